#include "src/expr/known-rows.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>

namespace torvel {

namespace {

/// A number of a row, or a line of the files that says what the rows behind it are.
struct Mark {
    std::uint32_t number = 0;
    bool isRow = true;
    bool isKnown = false;
};

/// Whether a number stands in a section of known rows.
template <std::size_t count>
constexpr bool isKnownNumber(const Mark (&marks)[count], std::uint32_t number) {
    bool isKnown = false;
    for (const Mark& mark : marks) {
        if (!mark.isRow) {
            isKnown = mark.isKnown;
        } else if (mark.number == number) {
            return isKnown;
        }
    }
    return false;
}

constexpr Mark axisParameters[] = {
#define KNOWN_ROWS {0, false, true},
#define COMPOSED_ROWS {0, false, false},
#define AXIS_PARAMETER(number, legacy, torvel) {number},
#include "data/parameters.def"
};
constexpr Mark taskParameters[] = {
#define KNOWN_ROWS {0, false, true},
#define COMPOSED_ROWS {0, false, false},
#define TASK_PARAMETER(number, legacy, torvel) {number},
#include "data/parameters.def"
};
constexpr Mark systemParameters[] = {
#define KNOWN_ROWS {0, false, true},
#define COMPOSED_ROWS {0, false, false},
#define SYSTEM_PARAMETER(number, legacy, torvel) {number},
#include "data/parameters.def"
};
constexpr Mark dataItems[] = {
#define KNOWN_ROWS {0, false, true},
#define COMPOSED_ROWS {0, false, false},
#define AXIS_ITEM(number, legacy, signal) {number},
#define TASK_ITEM(number, legacy, signal) {number},
#define AXIS_AND_TASK_ITEM(number, legacy, signal) {number},
#define SYSTEM_ITEM(number, legacy, signal) {number},
#define SYSTEM_ITEM_MISSPELLED(number, legacy, signal) {number},
#include "data/data-items.def"
};

}  // namespace

bool isKnownRow(ItemTable table, std::uint32_t number) {
    switch (table) {
        case ItemTable::axisParameter: return isKnownNumber(axisParameters, number);
        case ItemTable::taskParameter: return isKnownNumber(taskParameters, number);
        case ItemTable::systemParameter: return isKnownNumber(systemParameters, number);
        default: return isKnownNumber(dataItems, number);
    }
}

}  // namespace torvel
