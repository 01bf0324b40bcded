// The table of predefined constants is indexed by the compiler, which takes no row without a name or a
// value; the same routine is handed such rows here.

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>
#include <string>

#include "src/preprocess/predefined-constants.h"

namespace torvel {

namespace {

/// What is said of a table with a good row and `row`; empty if it is taken.
std::string faultOf(const PredefinedConstant& row) {
    const PredefinedConstant rows[] = {{"GOOD", "1", nullptr}, row};
    std::array<std::uint16_t, 4> slots{};
    NameLengths lengths;
    try {
        indexPredefined(rows, slots, lengths);
    } catch (const std::logic_error& error) {
        return error.what();
    }
    return {};
}

TEST(PredefinedTable, TakesACompleteRow) {
    EXPECT_EQ(faultOf({"NAME", "2", nullptr}), "");
    EXPECT_EQ(faultOf({"NAME", "2", "Torvel.Name"}), "");
    EXPECT_EQ(faultOf({"NAME", "", nullptr}), "");
}

TEST(PredefinedTable, RefusesARowWithoutAValue) {
    EXPECT_EQ(faultOf({"NAME", nullptr, nullptr}), "Internal preprocessor error.");
}

TEST(PredefinedTable, RefusesARowWithoutAName) {
    EXPECT_EQ(faultOf({nullptr, "2", nullptr}), "Internal preprocessor error.");
}

TEST(PredefinedTable, FindsRowsThatWantTheSameSlot) {
    const PredefinedConstant rows[] = {
        {"A", "1", nullptr}, {"I", "2", nullptr}, {"Q", "3", nullptr}};
    std::array<std::uint16_t, 8> slots{};
    NameLengths lengths;
    ASSERT_EQ(hashText("A") % slots.size(), hashText("I") % slots.size());
    ASSERT_EQ(hashText("A") % slots.size(), hashText("Q") % slots.size());
    indexPredefined(rows, slots, lengths);
    const PredefinedTable table{rows, slots, &lengths};
    for (std::size_t row = 0; row < std::size(rows); ++row) {
        const std::string_view name = rows[row].name;
        EXPECT_EQ(findPredefined(table, name, hashText(name)), row) << name;
    }
    EXPECT_FALSE(findPredefined(table, "Y", hashText("Y")));
}

TEST(PredefinedTable, FindsEveryRowByItsName) {
    const PredefinedTable& table = predefinedConstants();
    ASSERT_FALSE(table.rows.empty());
    for (std::size_t row = 0; row < table.rows.size(); ++row) {
        const std::string_view name = table.rows[row].name;
        EXPECT_EQ(findPredefined(table, name, hashText(name)), row) << name;
    }
}

TEST(PredefinedTable, FindsNoOtherName) {
    for (const std::string_view name : {"", "X", "taskstate_idle", "TASKSTATE_Idle_"}) {
        EXPECT_FALSE(findPredefined(predefinedConstants(), name, hashText(name))) << name;
    }
}

}  // namespace

}  // namespace torvel
