#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

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
    /// By byte: whether a name or a string begins with it, and whether it is a name.
    std::array<bool, 256> begins = [] {
        std::array<bool, 256> bytes{};
        bytes['"'] = true;
        return bytes;
    }();
    std::array<bool, 256> isName{};

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
        if (name.size() == 1) {
            isName[first] = true;
        } else if (name.size() < LongNames::shortest) {
            byPair[pairOf(name[0], name[1])] |= std::uint64_t{1} << name.size();
        }
    }
    constexpr std::uint64_t of(char first, char second) const {
        return byPair[pairOf(first, second)] |
               (isName[static_cast<unsigned char>(first)] ? 2U : 0U);
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
/// Each name has a stack of the entries that are seen now, the innermost on top, so a look-up costs
/// the same however deep the conditionals are.
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
        std::uint32_t below_ = none;
    };

    /// Enters `name`, not empty, in the innermost open branch. The newest entry of a branch counts.
    /// The name's text must stay where it is.
    void enter(std::string_view name, Kind kind, const Expansion& expansion = {});

    /// What `name`, whose FNV-1a hash is `hash`, is here; null if no `#define`, `#macro` or `#undef`
    /// that can be seen has named it.
    const Entry* find(std::string_view name, std::uint64_t hash) const;

    /// Whether an entry counts everywhere, not only in a branch that is open.
    bool isProgramWide(const Entry& entry) const { return rootOf(entry.scope_) == 0; }

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
    const LongNames& longNames() const { return longNames_; }

private:
    static constexpr std::uint32_t none = UINT32_MAX;

    struct Name {
        std::string_view text;
        std::uint64_t hash = 0;
        std::uint32_t top = none;
        std::uint32_t untaken = none;
    };
    struct Scope {
        std::uint32_t label = 0;
        bool active = false;
        /// Names with an entry of the current branch; one may stand here twice.
        std::vector<std::uint32_t> names;
        /// Name and entry of what the taken branch defined, once that branch has ended.
        std::vector<std::pair<std::uint32_t, std::uint32_t>> ofTakenBranch;
    };

    std::size_t slotOf(std::string_view name, std::uint64_t hash) const;
    std::uint32_t intern(std::string_view name);
    void growSlots();
    void push(std::uint32_t name, std::uint32_t entry, std::uint32_t scope);
    std::uint32_t rootOf(std::uint32_t scope) const;
    void takeOff(Scope& scope);

    std::vector<Name> names_;
    std::vector<std::uint32_t> slots_;  // number of the name + 1 by hash, open addressing; 0: free
    std::vector<Entry> entries_;
    std::vector<Scope> scopes_;
    std::size_t inactiveScopes_ = 0;
    /// By scope label: the scope that it has become part of, or itself. Label 0 is the program.
    /// Looking up a root shortens the ways to it.
    mutable std::vector<std::uint32_t> mergedInto_ = {0};
    NameLengths lengths_;
    LongNames longNames_;
};

}  // namespace torvel
