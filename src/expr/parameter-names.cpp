#include "src/expr/parameter-names.h"

#include "src/expr/name-table.h"

namespace torvel {

namespace {

constexpr NumberedName axisRows[] = {
#define AXIS_PARAMETER(number, legacy, torvel) {number, "AxisParameter." #torvel},
#define AXIS_PARAMETER_REMOVED(number, legacy) {number, ""},
#include "data/parameters.def"
};
constexpr NumberedName taskRows[] = {
#define TASK_PARAMETER(number, legacy, torvel) {number, "TaskParameter." #torvel},
#define TASK_PARAMETER_REMOVED(number, legacy) {number, ""},
#include "data/parameters.def"
};
constexpr NumberedName systemRows[] = {
#define SYSTEM_PARAMETER(number, legacy, torvel) {number, "SystemParameter." #torvel},
#define SYSTEM_PARAMETER_REMOVED(number, legacy) {number, ""},
#include "data/parameters.def"
};

constexpr NameTable<highestNumber(axisRows)> axisNames(axisRows);
constexpr NameTable<highestNumber(taskRows)> taskNames(taskRows);
constexpr NameTable<highestNumber(systemRows)> systemNames(systemRows);

}  // namespace

std::optional<std::string_view> lookupAxisParameterName(std::uint32_t number) {
    return axisNames.find(number);
}

std::optional<std::string_view> lookupTaskParameterName(std::uint32_t number) {
    return taskNames.find(number);
}

std::optional<std::string_view> lookupSystemParameterName(std::uint32_t number) {
    return systemNames.find(number);
}

}  // namespace torvel
