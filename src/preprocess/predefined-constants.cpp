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

constexpr PredefinedTable table = {rows, index.slots, &index.lengths};

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
