// What a site calls parameters, data items and predefined constants, over the built-in rows.

#include "src/expr/reference-rows.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "src/app/conversion.h"
#include "src/checks/finding-telling.h"
#include "src/preprocess/preprocessor.h"
#include "src/preprocess/site-constants.h"

namespace torvel::test {

namespace {

/// One file in memory.
FileSource sourceOf(const std::string& content) {
    return {
        [](const NativePath& directory, std::string_view text) { return directory / text; },
        [](const NativePath& path) {
            return FoundFile{path, FileKind::regular};
        },
        [content](const NativePath&, const MakeRoom& makeRoom) {
            content.copy(makeRoom(content.size()), content.size());
            return FileReading{true, false, content.size(), {1, 1}};
        },
    };
}

struct Converted {
    std::string output;
    std::vector<std::string> codes;
};

Converted convert(const std::string& content, const ReferenceRows* reference,
                  const PredefinedTable& predefined = predefinedConstants()) {
    Program program;
    const AxisNames axes;
    const Limits limits;
    CheckRecord record;
    preprocessProgram(program, "main.pgm", axes, limits, predefined, sourceOf(content), &record);
    MessageLog log;
    ConversionContext context{program, axes, limits, log, {}, 0, &record, reference};
    ProgramOutput output;
    convertProgram(context, output);
    Converted converted{output.text.toString(), {}};
    tellFindings(program, record, log,
                 [&](const Finding& finding) { converted.codes.emplace_back(finding.code); });
    return converted;
}

ReferenceRows rows() {
    ReferenceRows rows;
    rows.add(ReferenceKind::axisParameter, 131, "ServoLoopGainKp");
    rows.add(ReferenceKind::axisParameter, 90'000, "BeyondTheTable");
    rows.add(ReferenceKind::taskParameter, 7, "TaskName");
    rows.add(ReferenceKind::taskItem, 352, "OwnSignal");
    return rows;
}

std::string faultOf(ReferenceKind kind, std::uint32_t number, std::string_view name) {
    ReferenceRows own = rows();
    try {
        own.add(kind, number, name);
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
    return {};
}

std::string faultOf(const std::map<std::string, std::string>& constants) {
    try {
        const SiteConstants site(constants);
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
    return {};
}

}  // namespace

TEST(ReferenceRows, NumbersThatAProgramWrites) {
    const ReferenceRows own = rows();
    const Converted converted = convert(
        "$PAXIS[131].X = 5\nSETPARM X $PAXIS[90000], 2\n$PTASK[7] = 1\n"
        "DATACOLLECT ITEM 0, X, 352\n",
        &own);
    EXPECT_EQ(converted.output,
              "ParameterSetAxisValue(X, AxisParameter.ServoLoopGainKp, 5)\n"
              "ParameterSetAxisValue(X, AxisParameter.BeyondTheTable, 2)\n"
              "ParameterSetTaskValue(TaskGetIndex(), TaskParameter.TaskName, 1)\n"
              "DataCollectionAddTaskSignal(X, TaskDataSignal.OwnSignal)\n"
              "\n");
    // The slot of DATACOLLECT is dropped; no number is composed any more.
    EXPECT_EQ(converted.codes, (std::vector<std::string>{"operand-dropped"}));
}

TEST(ReferenceRows, ALegacyNameKeepsItsOwnTorvelName) {
    const std::string program = "SETPARM X GainKp, 5\n$PAXIS[PARAMETERID_GainKp].X = 5\n";
    const std::string builtIn = convert(program, nullptr).output;
    ReferenceRows own;
    for (std::uint32_t number = 0; number < 1000; ++number) {
        own.add(ReferenceKind::axisParameter, number, "Other");
    }
    EXPECT_EQ(convert(program, &own).output, builtIn);
    EXPECT_EQ(convert("SETPARM X $PAXIS[1], 5\n", &own).output,
              "ParameterSetAxisValue(X, AxisParameter.Other, 5)\n\n");
}

TEST(ReferenceRows, AreCheckedWhenTheyAreEntered) {
    EXPECT_EQ(faultOf(ReferenceKind::axisParameter, 131, "Twice"),
              "There are two names of axis parameter 131.");
    EXPECT_EQ(faultOf(ReferenceKind::taskParameter, 131, "Other"), "");
    EXPECT_EQ(
        faultOf(ReferenceKind::systemItem, 1, ""),
        "The name '' of system item 1 is no name of Torvel: a letter, then letters and digits.");
    EXPECT_EQ(
        faultOf(ReferenceKind::axisItem, 2, "A.B"),
        "The name 'A.B' of axis item 2 is no name of Torvel: a letter, then letters and digits.");
    EXPECT_NE(faultOf(ReferenceKind::axisItem, 2, "1A"), "");
}

TEST(SiteConstants, OverAndBehindTheBuiltInOnes) {
    const SiteConstants site({{"TASKMODE_Absolute", "(1 << 9)"},
                              {"PLANT_MODE", "(TASKMODE_Absolute | 1)"},
                              {"PLANT_RATE", "250"}});
    const Converted converted =
        convert("$a = TASKMODE_Absolute\n$b = PLANT_MODE\nF PLANT_RATE\n", nullptr, site.table());
    EXPECT_EQ(converted.output, "$a = (1 << 9)\n$b = ((1 << 9) | 1)\nF250\n\n");
    EXPECT_EQ(converted.codes, std::vector<std::string>());
    // Without them the bit is composed, and the other names are none.
    const Converted builtIn = convert("$a = TASKMODE_Absolute\n", nullptr);
    EXPECT_EQ(builtIn.output, "$a = (1 << 0)\n\n");
    EXPECT_EQ(builtIn.codes, (std::vector<std::string>{"composed-number"}));
}

TEST(SiteConstants, AreCheckedWhenTheyAreEntered) {
    EXPECT_EQ(faultOf({{"2FAST", "1"}}),
              "The predefined constant '2FAST' is no word: a letter or \"_\", then letters, digits "
              "and \"_\".");
    EXPECT_NE(faultOf({{"", "1"}}), "");
    EXPECT_NE(faultOf({{"#if", "1"}}), "");
    EXPECT_EQ(faultOf({{"EMPTY", " "}}),
              "The value of the predefined constant 'EMPTY' has to be a text of one line.");
    EXPECT_NE(faultOf({{"LINES", "1\n2"}}), "");
    EXPECT_EQ(faultOf({{"_fine9", "-1"}}), "");
}

}  // namespace torvel::test
