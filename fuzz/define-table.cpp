// The table of names against a plain one: a list of the frames that are open, each with the names that its
// branches keep and those of the branch that is open. Each byte of an input is an operation; the first tells
// after how many of them all names are looked up, since a look-up changes what the table has to do later.

#include "src/preprocess/define-table.h"

#include <array>
#include <map>
#include <optional>

#include "fuzz/require.h"
#include "fuzz/target.h"
#include "src/base/hash.h"

namespace torvel::fuzz {

namespace {

using Kind = DefineTable::Kind;

/// What a name was entered as: the number tells the entries apart.
struct Meaning {
    Kind kind = Kind::define;
    std::uint32_t number = 0;
    bool isProgramWide = true;
};

using Names = std::map<std::string_view, Meaning>;

class PlainTable {
public:
    void enter(std::string_view name, Kind kind, std::uint32_t number) {
        Names& names = frames_.empty() ? program_ : frames_.back().open;
        names[name] = {kind, number, frames_.empty()};
    }
    std::optional<Meaning> find(std::string_view name) const {
        for (auto frame = frames_.rbegin(); frame != frames_.rend(); ++frame) {
            if (const auto found = frame->open.find(name); found != frame->open.end()) {
                return found->second;
            }
        }
        const auto found = program_.find(name);
        return found == program_.end() ? std::nullopt : std::optional(found->second);
    }
    std::optional<Meaning> findUntaken(std::string_view name) const {
        bool isInactive = false;
        for (const Frame& frame : frames_) {
            isInactive = isInactive || !frame.active;
        }
        const auto found = untaken_.find(name);
        return !isInactive || found == untaken_.end() ? std::nullopt : std::optional(found->second);
    }

    void open(bool active) { frames_.push_back({active, active, {}, {}}); }
    void begin(bool active) {
        frames_.back().active = active;
        frames_.back().taken = frames_.back().taken || active;
    }
    bool isTaken() const { return frames_.back().taken; }
    void end() {
        Frame& frame = frames_.back();
        for (const auto& [name, meaning] : frame.open) {
            if (frame.active) {
                frame.kept[name] = meaning;
            } else if (meaning.kind != Kind::undefined) {
                untaken_[name] = meaning;
            }
        }
        frame.open.clear();
    }
    void close() {
        end();
        const Names kept = frames_.back().kept;
        frames_.pop_back();
        Names& outer = frames_.empty() ? program_ : frames_.back().open;
        for (auto [name, meaning] : kept) {
            meaning.isProgramWide = frames_.empty();
            outer[name] = meaning;
        }
    }

    bool hasFrames() const { return !frames_.empty(); }

private:
    struct Frame {
        bool active = false;
        bool taken = false;
        Names open;
        Names kept;
    };
    std::vector<Frame> frames_;
    Names program_;
    Names untaken_;
};

const std::array<std::string_view, 8> names = {
    "A",
    "B",
    "$c",
    "longer",
    "with_digits_1",
    "exactly_sixty_two_bytes_long_name_which_the_lengths_still_know",
    "exactly_sixty_three_bytes_long_name_that_the_lengths_do_not_tell",
    "a_name_of_more_bytes_than_the_table_of_lengths_tells_which_is_found_in_another_way_1"};

void compare(const std::optional<Meaning>& expected, const DefineTable::Entry* found,
             std::string_view name) {
    const std::string fault = ": " + std::string(name);
    require(expected.has_value() == (found != nullptr), "a name is seen or is not" + fault);
    require(found == nullptr || (found->kind == expected->kind &&
                                 found->expansion.pieces.first == expected->number),
            "a name means another thing" + fault);
}

void compareAll(const PlainTable& plain, DefineTable& table) {
    for (const std::string_view name : names) {
        const std::uint64_t hash = hashText(name);
        const std::optional<Meaning> expected = plain.find(name);
        const DefineTable::Entry* found = table.find(name, hash);
        compare(expected, found, name);
        require(!expected || expected->isProgramWide == table.isProgramWide(*found),
                "counts everywhere or does not: " + std::string(name));
        compare(plain.findUntaken(name), table.findUntaken(name, hash), name);
    }
}

}  // namespace

void checkDefineTable(const Target& /*target*/, std::string_view input) {
    const NameLengths lengths;
    DefineTable table(lengths);
    PlainTable plain;
    std::uint32_t number = 0;
    const std::size_t operationsPerLook = input.empty() ? 1 : 1U + (input[0] & 7U);
    std::size_t operations = 0;
    for (const char c : input.substr(0, 96)) {
        const auto byte = static_cast<unsigned char>(c);
        const std::string_view name = names[byte % names.size()];
        const bool flag = (byte & 8U) != 0;
        const unsigned operation = byte >> 4U;
        if (operation < 8) {
            const Kind kind = operation < 4   ? Kind::define
                              : operation < 6 ? Kind::macro
                                              : Kind::undefined;
            table.enter(name, kind, {{++number, 0}, 0});
            plain.enter(name, kind, number);
        } else if (operation < 11) {
            table.openScope(flag);
            plain.open(flag);
        } else if (operation < 13 && plain.hasFrames()) {
            table.endBranch();
            plain.end();
            if (operationsPerLook == 1) {
                compareAll(plain, table);
            }
            // Of the branches of a conditional one at most is active.
            const bool isActive = flag && !plain.isTaken();
            table.beginBranch(isActive);
            plain.begin(isActive);
        } else if (plain.hasFrames()) {
            table.closeScope();
            plain.close();
        }
        if (++operations % operationsPerLook == 0) {
            compareAll(plain, table);
        }
    }
    compareAll(plain, table);
}

}  // namespace torvel::fuzz
