#include "src/expr/status-items.h"

#include "src/expr/name-table.h"

namespace torvel {

namespace {

constexpr NumberedName axisRows[] = {
#define AXIS_ITEM(number, legacy, signal) {number, "AxisStatusItem." #signal},
#define AXIS_AND_TASK_ITEM(number, legacy, signal) {number, "AxisStatusItem." #signal},
#define REMOVED_ITEM(number, legacy) {number, ""},
#include "data/data-items.def"
};
constexpr NumberedName taskRows[] = {
#define TASK_ITEM(number, legacy, signal) {number, "TaskStatusItem." #signal},
#define AXIS_AND_TASK_ITEM(number, legacy, signal) {number, "TaskStatusItem." #signal},
#define REMOVED_ITEM(number, legacy) {number, ""},
#include "data/data-items.def"
};
constexpr NumberedName systemRows[] = {
#define SYSTEM_ITEM(number, legacy, signal) {number, "SystemStatusItem." #signal},
#define SYSTEM_ITEM_MISSPELLED(number, legacy, signal) {number, "SystemStatusItem." #signal},
#define REMOVED_ITEM(number, legacy) {number, ""},
#include "data/data-items.def"
};

constexpr NameTable<highestNumber(axisRows)> axisItems(axisRows);
constexpr NameTable<highestNumber(taskRows)> taskItems(taskRows);
constexpr NameTable<highestNumber(systemRows)> systemItems(systemRows);

}  // namespace

std::optional<std::string_view> lookupAxisStatusItem(std::uint32_t number) {
    return axisItems.find(number);
}

std::optional<std::string_view> lookupTaskStatusItem(std::uint32_t number) {
    return taskItems.find(number);
}

std::optional<std::string_view> lookupSystemStatusItem(std::uint32_t number) {
    return systemItems.find(number);
}

}  // namespace torvel
