#include "src/preprocess/predefined-constants.h"

namespace torvel {

namespace {

constexpr PredefinedConstant rows[] = {
#define PREDEFINED(name, value) {name, value, nullptr},
#define PREDEFINED_REPLACED(name, value, replacement) {name, value, replacement},
#include "data/predefined-constants.def"
};

struct Index {
    std::array<std::uint16_t, 8192> slots{};
    NameLengths lengths;
};

constexpr Index index = [] {
    Index made;
    indexPredefined(rows, made.slots, made.lengths);
    return made;
}();

/// A row, or a line of the files that says what the rows behind it are.
enum class Mark : std::uint8_t { row, known, composed };

constexpr Mark marks[] = {
#define PREDEFINED(name, value) Mark::row,
#define PREDEFINED_REPLACED(name, value, replacement) Mark::row,
#define KNOWN_ROWS Mark::known,
#define COMPOSED_ROWS Mark::composed,
#include "data/predefined-constants.def"
};

constexpr auto composedRows = [] {
    std::array<bool, std::size(rows)> composed{};
    std::size_t row = 0;
    bool isComposed = false;
    for (const Mark mark : marks) {
        if (mark == Mark::row) {
            composed[row++] = isComposed;
        } else {
            isComposed = mark == Mark::composed;
        }
    }
    return composed;
}();

constexpr PredefinedTable table = {rows, index.slots, &index.lengths, composedRows};

}  // namespace

const PredefinedTable& predefinedConstants() {
    return table;
}

std::optional<std::size_t> findPredefined(const PredefinedTable& table, std::string_view name,
                                          std::uint64_t hash) {
    const std::size_t mask = table.slots.size() - 1;
    for (std::size_t slot = hash & mask; table.slots[slot] != 0; slot = (slot + 1) & mask) {
        const std::size_t row = table.slots[slot] - 1U;
        if (table.rows[row].name == name) {
            return row;
        }
    }
    return std::nullopt;
}

}  // namespace torvel
