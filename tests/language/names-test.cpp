// Where the names of a program stand.

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/language/questions.h"

namespace torvel::language::test {

namespace {

using Names = std::vector<std::string>;

TEST(Names, DefinesAndTheirUses) {
    Questions questions;
    questions.write("main.pgm",
                    "#define FEED 25.5\n"
                    "#define FAST FEED\n"
                    "#define OFFSET -2.5\n"
                    "F FEED + OFFSET\n"
                    "#ifdef FAST\n"
                    "#undef FAST\n"
                    "#endif\n");
    EXPECT_EQ(
        namesOf(questions.convert("main.pgm")),
        (Names{"define definition main.pgm:0:8-12 FEED = 25.5",
               "define definition main.pgm:1:8-12 FAST = 25.5", "name main.pgm:1:13-17 FEED",
               "lost-define definition main.pgm:2:8-14 OFFSET = -2.5", "statement main.pgm:3:0-1 F",
               "name main.pgm:3:2-6 FEED", "name main.pgm:3:9-15 OFFSET",
               "name main.pgm:4:7-11 FAST", "name main.pgm:5:7-11 FAST"}));
}

TEST(Names, LabelsAndSubroutines) {
    Questions questions;
    questions.write("main.pgm",
                    "again: HOME X\n"
                    "N100 HOME Y\n"
                    "GOTO again\n"
                    "GOTO N100\n"
                    "CALL probe_it\n"
                    "DFS probe_it\n"
                    "ENDDFS\n");
    const auto program = questions.convert("main.pgm");
    EXPECT_EQ(namesOf(program),
              (Names{"label definition main.pgm:0:0-5 again", "statement main.pgm:0:7-11 HOME",
                     "label definition main.pgm:1:0-4 N100", "statement main.pgm:1:5-9 HOME",
                     "statement main.pgm:2:0-4 GOTO", "label main.pgm:2:5-10 again",
                     "statement main.pgm:3:0-4 GOTO", "label main.pgm:3:5-9 N100",
                     "statement main.pgm:4:0-4 CALL", "function main.pgm:4:5-13 probe_it",
                     "statement main.pgm:5:0-3 DFS", "function definition main.pgm:5:4-12 probe_it",
                     "statement main.pgm:6:0-6 ENDDFS"}));
    EXPECT_EQ(namesIn(program, 5), (Names{"statement main.pgm:5:0-3 DFS", "opens main.pgm:5",
                                          "function definition main.pgm:5:4-12 probe_it"}));
    EXPECT_EQ(namesIn(program, 6), (Names{"function-end main.pgm:6",
                                          "statement main.pgm:6:0-6 ENDDFS", "closes main.pgm:6"}));
}

TEST(Names, OfALineThatIsRefused) {
    Questions questions;
    questions.write("main.pgm", "again: PROBE $a\nGOTO again, $b\n");
    EXPECT_EQ(namesOf(questions.convert("main.pgm")),
              (Names{"label definition main.pgm:0:0-5 again", "statement main.pgm:0:7-12 PROBE",
                     "variable main.pgm:0:13-15 $a", "statement main.pgm:1:0-4 GOTO",
                     "label main.pgm:1:5-10 again", "variable main.pgm:1:12-14 $b"}));
}

TEST(Names, VariablesAreDeclaredOrUsed) {
    Questions questions;
    questions.write("main.pgm", "DVAR $a[$n] = $b, $c\n$a[0] = $c\n");
    EXPECT_EQ(namesOf(questions.convert("main.pgm")),
              (Names{"statement main.pgm:0:0-4 DVAR", "variable definition main.pgm:0:5-7 $a",
                     "variable main.pgm:0:8-10 $n", "variable main.pgm:0:14-16 $b",
                     "variable definition main.pgm:0:18-20 $c", "variable main.pgm:1:0-2 $a",
                     "statement main.pgm:1:0-2 $a", "variable main.pgm:1:8-10 $c"}));
}

TEST(Names, AMacroOfSeveralLinesAndItsCall) {
    Questions questions;
    questions.write("main.pgm",
                    "#define DEPTH 5\n"
                    "#macro CUT($d) MOVEINC X $d DEPTH \\\n"
                    "  $count = DEPTH\n"
                    "CUT(1)\n");
    EXPECT_EQ(namesOf(questions.convert("main.pgm")),
              (Names{"define definition main.pgm:0:8-13 DEPTH = 5",
                     "macro definition main.pgm:1:7-10 CUT = #macro CUT($d)",
                     "variable main.pgm:1:11-13 $d", "name main.pgm:1:28-33 DEPTH",
                     "variable main.pgm:2:2-8 $count", "name main.pgm:2:11-16 DEPTH",
                     "name main.pgm:3:0-3 CUT", "statement main.pgm:3:0-3 CUT"}));
}

TEST(Names, IncludesLeadToTheirFiles) {
    Questions questions;
    questions.write("main.pgm", "#include \"inc/tool.pgm\"\n  #include \"inc/tool.pgm\" ; twice\n");
    questions.write("inc/tool.pgm", "HOME X\n");
    EXPECT_EQ(namesOf(questions.convert("main.pgm")),
              (Names{"include main.pgm:0:10-22 inc/tool.pgm = inc/tool.pgm",
                     "include main.pgm:1:12-24 inc/tool.pgm = inc/tool.pgm",
                     "statement inc/tool.pgm:0:0-4 HOME"}));
}

TEST(Names, ItemsHaveTheirTorvelNames) {
    Questions questions;
    questions.write("main.pgm", "$a = $PAXIS[11].X\nSETPARM X $PAXIS[11], 2\n");
    questions.openProject("[reference]\naxis_parameters = { 11 = \"ServoLoopGainKp\" }\n");
    const Names names = namesOf(questions.convert("main.pgm"));
    EXPECT_EQ(names[2], "item main.pgm:0:5-17 $PAXIS = AxisParameter.ServoLoopGainKp");
    EXPECT_EQ(names.back(), "item main.pgm:1:10-20 $PAXIS = AxisParameter.ServoLoopGainKp");
}

TEST(Names, BlocksAndConditionals) {
    Questions questions;
    questions.write("main.pgm",
                    "#ifdef SIM\nIF $a == 1 THEN\n#else\nELSE\n#endif\nPROBE X\nENDIF\n");
    const auto program = questions.convert("main.pgm");
    const auto has = [&](std::size_t line, std::string_view name) {
        const Names names = namesIn(program, line);
        return std::find(names.begin(), names.end(), name) != names.end();
    };
    EXPECT_TRUE(has(0, "opens-conditional main.pgm:0"));
    EXPECT_TRUE(has(1, "opens main.pgm:1"));
    EXPECT_TRUE(has(2, "continues-conditional main.pgm:2"));
    EXPECT_TRUE(has(3, "continues main.pgm:3"));
    EXPECT_TRUE(has(4, "closes-conditional main.pgm:4"));
    EXPECT_TRUE(has(6, "closes main.pgm:6"));
}

TEST(Names, ColumnsAreCountedAsEditorsDo) {
    Questions questions;
    // A degree sign, a micro sign and a character of two units, in UTF-8.
    questions.write("utf8.pgm",
                    "/* \xC2\xB0\xC2\xB5\xF0\x9D\x84\x9E */\n"
                    "MSGDISPLAY 1, \"\xC2\xB0\xF0\x9D\x84\x9E\", $a\n");
    // The same signs in Windows-1252; what would be UTF-8 in another line counts as two characters.
    questions.write("latin.pgm", "; 5\xB0 \xB5\nMSGDISPLAY 1, \"\xC2\xB0\", $a\n");
    const auto columnOf = [](const nlohmann::json& program) {
        for (const std::string& name : namesOf(program)) {
            if (name.starts_with("variable")) {
                return name;
            }
        }
        return std::string();
    };
    EXPECT_EQ(columnOf(questions.convert("utf8.pgm")), "variable utf8.pgm:1:21-23 $a");
    EXPECT_EQ(columnOf(questions.convert("latin.pgm")), "variable latin.pgm:1:20-22 $a");
}

TEST(Names, InALineThatLostABlockComment) {
    Questions questions;
    questions.write("main.pgm", "$a = /* first */ $b\n");
    const Names names = namesOf(questions.convert("main.pgm"));
    EXPECT_NE(std::find(names.begin(), names.end(), "variable main.pgm:0:17-19 $b"), names.end());
}

}  // namespace

}  // namespace torvel::language::test
