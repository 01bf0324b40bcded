// Every table of data/ is met by some golden case: a row of each kind of parameter and data item, and
// a name of each family of constants.

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <string_view>

#include "tests/coverage/golden-lines.h"

namespace torvel::test {

namespace {

bool isWordCharacter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
}

/// The words of every program of the golden cases, comments left out.
const std::set<std::string, std::less<>>& goldenWords() {
    static const std::set<std::string, std::less<>> words = [] {
        std::set<std::string, std::less<>> found;
        for (const GoldenLine& line : goldenLines()) {
            std::string word;
            for (const char c : line.source + ' ') {
                if (isWordCharacter(c)) {
                    word += c;
                } else {
                    found.insert(word);
                    word.clear();
                }
            }
        }
        return found;
    }();
    return words;
}

/// Tells of groups of rows which have a name that a golden case uses.
class Groups {
public:
    void add(std::string_view group, std::string_view name) {
        bool& isMet = groups_.try_emplace(std::string(group), false).first->second;
        isMet = isMet || goldenWords().contains(name);
    }
    std::string unmet() const {
        Missing missing;
        for (const auto& [group, isMet] : groups_) {
            missing.unless(isMet, group);
        }
        return missing.list();
    }

private:
    std::map<std::string, bool> groups_;
};

TEST(DataCoverage, EveryKindOfParameterIsMetByNameAndByIdentifier) {
    Groups groups;
    const auto add = [&groups](const std::string& kind, const std::string& legacy) {
        groups.add(kind, legacy);
        groups.add(kind + ", PARAMETERID_", "PARAMETERID_" + legacy);
    };
#define AXIS_PARAMETER(number, legacy, torvel) add("axis parameter", #legacy);
#define AXIS_PARAMETER_REMOVED(number, legacy) add("removed axis parameter", #legacy);
#define AXIS_PARAMETER_SECOND_NAME(number, legacy) add("second name", #legacy);
#define TASK_PARAMETER(number, legacy, torvel) add("task parameter", #legacy);
#define TASK_PARAMETER_REMOVED(number, legacy) add("removed task parameter", #legacy);
#define SYSTEM_PARAMETER(number, legacy, torvel) add("system parameter", #legacy);
#define SYSTEM_PARAMETER_REMOVED(number, legacy) add("removed system parameter", #legacy);
#include "data/parameters.def"
    EXPECT_TRUE(groups.unmet().empty()) << "are met by no golden case:\n" << groups.unmet();
}

TEST(DataCoverage, EveryKindOfDataItemIsMetAsASignalAndAsAStatusItem) {
    Groups groups;
    const auto add = [&groups](std::string_view kind, const std::string& legacy) {
        groups.add(kind, "DATAITEM_" + legacy);
    };
#define AXIS_ITEM(number, legacy, signal) add("axis item", #legacy);
#define TASK_ITEM(number, legacy, signal) add("task item", #legacy);
#define AXIS_AND_TASK_ITEM(number, legacy, signal) add("axis and task item", #legacy);
#define SYSTEM_ITEM(number, legacy, signal) add("system item", #legacy);
#define SYSTEM_ITEM_MISSPELLED(number, legacy, signal) add("misspelled system item", #legacy);
#define REMOVED_ITEM(number, legacy) add("removed item", #legacy);
#include "data/data-items.def"
    EXPECT_TRUE(groups.unmet().empty()) << "are met by no golden case:\n" << groups.unmet();

    Missing missing;
    for (const std::string_view prefix :
         {"AxisDataSignal.", "TaskDataSignal.", "SystemDataSignal.", "SystemataSignal.",
          "AxisStatusItem.", "TaskStatusItem.", "SystemStatusItem."}) {
        missing.unless(anyGoldenLine([=](const GoldenLine& line) {
                           return line.isConverted && line.text.find(prefix) != std::string::npos;
                       }),
                       prefix);
    }
    EXPECT_TRUE(missing.list().empty()) << "are written by no golden case:\n" << missing.list();
}

/// The files of constants other than parameters and data items. A family is what its names have in
/// front of their first "_".
TEST(DataCoverage, EveryFamilyOfConstantsIsMet) {
    Groups groups;
    const auto add = [&groups](std::string_view name) {
        const std::size_t line = name.find('_');
        if (line != std::string_view::npos) {
            groups.add(name.substr(0, line + 1), name);
        }
    };
#define PREDEFINED_CONSTANTS
#define PREDEFINED(name, value) add(name);
#define PREDEFINED_REPLACED(name, value, replacement) add(name);
#include "data/axis-faults.def"
#include "data/axis-status.def"
#include "data/data-matrix.def"
#include "data/display-flags.def"
#include "data/drive-info.def"
#include "data/drive-status.def"
#include "data/fiber-search-results.def"
#include "data/return-types.def"
#include "data/small-groups.def"
#include "data/task-modes.def"
#include "data/task-states.def"
#include "data/task-status.def"
#undef PREDEFINED
#undef PREDEFINED_REPLACED
    EXPECT_TRUE(groups.unmet().empty()) << "are met by no golden case:\n" << groups.unmet();
}

TEST(DataCoverage, EveryShorthandIsMet) {
    Missing missing;
#define PREDEFINED(name, value) \
    missing.unless(goldenWords().contains(std::string_view(name)), name);
#include "data/shorthands.def"
#undef PREDEFINED
    EXPECT_TRUE(missing.list().empty()) << "are met by no golden case:\n" << missing.list();
}

}  // namespace

}  // namespace torvel::test
