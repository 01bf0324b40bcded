#include "src/stmt/data-signals.h"

#include "src/expr/name-table.h"

namespace torvel {

namespace {

constexpr NumberedName axisRows[] = {
#define AXIS_ITEM(number, legacy, signal) {number, "AxisDataSignal." #signal},
#define AXIS_AND_TASK_ITEM(number, legacy, signal) {number, "AxisDataSignal." #signal},
#define REMOVED_ITEM(number, legacy) {number, ""},
#include "data/data-items.def"
};
constexpr NumberedName taskRows[] = {
#define TASK_ITEM(number, legacy, signal) {number, "TaskDataSignal." #signal},
#define AXIS_AND_TASK_ITEM(number, legacy, signal) {number, "TaskDataSignal." #signal},
#include "data/data-items.def"
};
// Nine names lack the "D" of their prefix on purpose; programs of the platform are written so.
constexpr NumberedName systemRows[] = {
#define SYSTEM_ITEM(number, legacy, signal) {number, "SystemDataSignal." #signal},
#define SYSTEM_ITEM_MISSPELLED(number, legacy, signal) {number, "SystemataSignal." #signal},
#include "data/data-items.def"
};

constexpr NameTable<highestNumber(axisRows)> axisSignals(axisRows);
constexpr NameTable<highestNumber(taskRows)> taskSignals(taskRows);
constexpr NameTable<highestNumber(systemRows)> systemSignals(systemRows);

}  // namespace

std::optional<std::string_view> lookupAxisDataSignal(std::uint32_t number) {
    return axisSignals.find(number);
}

std::optional<std::string_view> lookupTaskDataSignal(std::uint32_t number) {
    return taskSignals.find(number);
}

std::optional<std::string_view> lookupSystemDataSignal(std::uint32_t number) {
    return systemSignals.find(number);
}

}  // namespace torvel
