#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "src/base/characters.h"
#include "src/base/program.h"
#include "src/preprocess/long-names.h"

namespace torvel {

/// A range of the pieces of all expansions.
struct PieceRange {
    std::uint32_t first = 0;
    std::uint32_t count = 0;
};

/// What a name stands for, and how many bytes that puts into a line. A preserved define counts as its
/// value's length, at least one byte.
struct Expansion {
    PieceRange pieces;
    std::uint32_t bytes = 0;
};

/// The lengths of names by the two bytes that they begin with, bit n for n bytes: which spans are
/// worth a look-up. Pairs share sets, so a set may hold lengths that its pair does not have.
struct NameLengths {
    static constexpr std::size_t pairs = 1024;
    /// Lengths that a set can hold: fewer bytes than this.
    static constexpr std::size_t bits = 64;

    std::array<std::uint64_t, pairs> byPair{};
    /// Which third bytes names with the pair have, by their lower five bits; all if one has no third byte.
    std::array<std::uint32_t, pairs> thirds{};
    /// By byte: whether a name or a string begins with it.
    std::array<bool, 256> begins = [] {
        std::array<bool, 256> bytes{};
        bytes['"'] = true;
        return bytes;
    }();
    /// Whether a name begins with anything but a letter, "_" and "$", or has a character that ends a word.
    bool hasOddNames = false;

    static constexpr std::size_t pairOf(char first, char second) {
        return (static_cast<unsigned char>(first) * 33U ^ static_cast<unsigned char>(second)) %
               pairs;
    }
    /// Of a name of 63 bytes or more only the first byte is noted: LongNames holds it. One that begins
    /// with a quote cannot be found, since a quote begins a string.
    constexpr void add(std::string_view name) {
        const auto first = static_cast<unsigned char>(name[0]);
        if (first == '"') {
            return;
        }
        begins[first] = true;
        hasOddNames = hasOddNames || !(isLetter(name[0]) || name[0] == '_' || name[0] == '$');
        for (const char c : name) {
            hasOddNames = hasOddNames || isWhiteSpace(c) || c == '"';
        }
        if (name.size() == 1) {
            for (unsigned second = 0; second < 256; ++second) {
                enter(pairOf(name[0], static_cast<char>(second)), 1, allThirds);
            }
        } else if (name.size() < LongNames::shortest) {
            enter(pairOf(name[0], name[1]), name.size(),
                  name.size() == 2 ? allThirds : thirdOf(name[2]));
        }
    }
    constexpr std::uint64_t of(char first, char second) const {
        return byPair[pairOf(first, second)];
    }
    /// Whether a name may begin with the three bytes from `at` on, or with less.
    bool mayBegin(const char* at) const {
        return (thirds[pairOf(at[0], at[1])] & thirdOf(at[2])) != 0;
    }

private:
    static constexpr std::uint32_t allThirds = ~std::uint32_t{0};

    static constexpr std::uint32_t thirdOf(char third) {
        return std::uint32_t{1} << static_cast<unsigned char>(third) % 32U;
    }
    constexpr void enter(std::size_t pair, std::size_t length, std::uint32_t third) {
        byPair[pair] |= std::uint64_t{1} << length;
        thirds[pair] |= third;
    }
};

/// The names that `#define` and `#macro` enter, as far as the open conditionals let them be seen.
///
/// Every branch of a conditional is converted as though it were taken. So a name that a branch defines
/// is seen to the branch's end; after that it is kept if the branch's own condition held, and else
/// remembered apart, where only the lines of a branch that was not taken find it. `#undef` in a
/// branch hides a name in the same way. When the conditional ends, what it kept becomes the
/// enclosing branch's, or the program's.
///
/// Each name has a stack of entries, the innermost on top, so a look-up costs the same however deep the
/// conditionals are. When a branch that was taken ends, its entries stay where they are and its scope is
/// hidden; a look-up takes hidden entries that it meets off the stack, and the end of the conditional puts
/// those back. So an `#else` costs the same however many names it hides.
class DefineTable {
public:
    /// `lengths` are those of the names that are found elsewhere when the table has none.
    explicit DefineTable(const NameLengths& lengths) : lengths_(lengths) {}

    enum class Kind : std::uint8_t { define, macro, undefined };

    struct Entry {
        Expansion expansion;
        Kind kind = Kind::define;

    private:
        friend class DefineTable;
        std::uint32_t scope_ = 0;
        /// What was entered before under the same name, or among entries that were taken off the one before.
        std::uint32_t below_ = none;
        std::uint32_t name_ = 0;
    };

    /// Enters `name`, not empty, in the innermost open branch. The newest entry of a branch counts.
    /// The name's text must stay where it is.
    void enter(std::string_view name, Kind kind, const Expansion& expansion = {});

    /// What `name`, whose FNV-1a hash is `hash`, is here; null if no `#define`, `#macro` or `#undef`
    /// that can be seen has named it.
    const Entry* find(std::string_view name, std::uint64_t hash) {
        if (names_.empty()) {
            return nullptr;
        }
        const std::uint32_t number = slots_[slotOf(name, hash)].number;
        if (number == 0) {
            return nullptr;
        }
        Name& found = names_[number - 1];
        if (hiddenScopes_ != 0) {
            takeOffHidden(found);
        }
        return found.top == none ? nullptr : &entries_[found.top];
    }

    /// Whether an entry counts everywhere, not only in a branch that is open.
    bool isProgramWide(const Entry& entry) { return rootOf(entry.scope_) == 0; }

    /// What the latest branch not taken made of `name`; null unless a branch that is not taken is open.
    const Entry* findUntaken(std::string_view name, std::uint64_t hash) const;

    /// Opens a conditional whose first branch's condition holds (`active`) or does not.
    void openScope(bool active);
    /// Ends the branch of the innermost conditional: its names are out of sight.
    void endBranch();
    /// Begins the next branch of the innermost conditional.
    void beginBranch(bool active);
    /// Ends the innermost conditional; what it kept becomes the enclosing branch's.
    void closeScope();

    /// The lengths of the table's names and of those found elsewhere.
    const NameLengths& lengths() const { return lengths_; }
    LongNames& longNames() { return longNames_; }

private:
    static constexpr std::uint32_t none = UINT32_MAX;

    struct Name {
        std::string_view text;
        std::uint32_t top = none;
        std::uint32_t untaken = none;
    };
    /// The entries of one branch.
    struct Scope {
        /// The scope that it has become part of, or itself.
        std::uint32_t mergedInto = 0;
        bool isHidden = false;
        /// If it is hidden: the last entry that was taken off its name's stack.
        std::uint32_t takenOff = none;
    };
    struct Conditional {
        /// The scope of the branch that is open.
        std::uint32_t scope = 0;
        bool active = false;
        /// The hidden scope of the branch that was taken, once that branch has ended.
        std::uint32_t taken = none;
        /// Names with an entry of the open branch, and of the branch that was taken; one may stand here twice.
        std::vector<std::uint32_t> names;
        std::vector<std::uint32_t> namesOfTaken;
    };

    /// So much of the hash stands beside a name's number that names are looked at only where they are found.
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t number = 0;  // of the name + 1; 0: free
    };

    std::size_t slotOf(std::string_view name, std::uint64_t hash) const {
        std::size_t slot = hash & (slots_.size() - 1);
        while (slots_[slot].number != 0 && (slots_[slot].hash != static_cast<std::uint32_t>(hash) ||
                                            names_[slots_[slot].number - 1].text != name)) {
            slot = (slot + 1) & (slots_.size() - 1);
        }
        return slot;
    }
    std::uint32_t intern(std::string_view name);
    void growSlots();
    std::uint32_t addScope();
    std::uint32_t rootOf(std::uint32_t scope);
    bool isOf(std::uint32_t entry, std::uint32_t scope) {
        return entry != none && rootOf(entries_[entry].scope_) == scope;
    }
    std::uint32_t takeOff(Name& name, std::uint32_t scope);
    void takeOffHidden(Name& name);
    void show(std::uint32_t scope);
    void endUntakenBranch(Conditional& conditional);

    std::vector<Name> names_;
    std::vector<Slot> slots_;  // by hash, open addressing
    std::vector<Entry> entries_;
    /// By number; 0 is the program. Looking up a root shortens the ways to it.
    std::vector<Scope> scopes_ = {Scope{}};
    std::vector<Conditional> conditionals_;
    std::size_t inactiveConditionals_ = 0;
    std::size_t hiddenScopes_ = 0;
    NameLengths lengths_;
    LongNames longNames_;
};

}  // namespace torvel
