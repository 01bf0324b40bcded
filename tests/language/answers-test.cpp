// What is told of projects and programs, and what of questions that cannot be answered.

#include <gtest/gtest.h>

#include "tests/language/questions.h"

namespace torvel::language::test {

namespace {

using nlohmann::json;

TEST(Answers, AProgramWithItsOutputAndItsLines) {
    Questions questions;
    questions.write("main.pgm", "HOME X\nDVAR $a $b\n  PROBE X\n");
    const json program = questions.convert("main.pgm");
    EXPECT_EQ(program.at("status"), "converted");
    EXPECT_EQ(program.at("output"),
              "Home(X)\nvar $a\nvar $b\n#error_unconvertible (main.pgm:3): PROBE X\n\n");
    EXPECT_EQ(program.at("lines"),
              json({0, 0, 0, 1, 1, 0, 1, 1, 2, 1, 0, 2, 3, 1, 0, 0, 3, 4, 1, 1}));
    ASSERT_EQ(program.at("findings").size(), 1U);
    const json& finding = program.at("findings").at(0);
    EXPECT_EQ(finding.at("text"), "PROBE is no longer supported.");
    EXPECT_EQ(finding.at("line"), 3);
    EXPECT_EQ(finding.at("todo"), "rewrite");
    EXPECT_EQ(finding.at("column"), 0);
    EXPECT_EQ(finding.at("begin"), 2);
    EXPECT_EQ(finding.at("end"), 9);
    EXPECT_EQ(program.at("axes").at(0), "X");
}

TEST(Answers, ADocumentCountsInThePlaceOfItsFile) {
    Questions questions;
    questions.write("main.pgm", "#include \"tool.pgm\"\n");
    questions.write("tool.pgm", "HOME X\n");
    questions.requests.setDocument(questions.path("tool.pgm"), "HOME Y\n");
    EXPECT_NE(questions.convert("main.pgm").at("output").get<std::string>().find("Home(Y)"),
              std::string::npos);
    questions.requests.forgetDocument(questions.path("tool.pgm"));
    EXPECT_NE(questions.convert("main.pgm").at("output").get<std::string>().find("Home(X)"),
              std::string::npos);
}

TEST(Answers, DocumentsNeedNoFiles) {
    Questions questions;
    questions.requests.setDocument(questions.path("new/main.pgm"), "#include \"part.pgm\"\n");
    questions.requests.setDocument(questions.path("new/part.pgm"), "HOME X\n");
    const json program = questions.convert("new/main.pgm");
    EXPECT_EQ(program.at("status"), "converted");
    EXPECT_EQ(program.at("files").size(), 2U);
}

TEST(Answers, AFindingOfAnIncludedFileTellsTheWay) {
    Questions questions;
    questions.write("main.pgm", "HOME X\n#include \"inc/a.pgm\"\n");
    questions.write("inc/a.pgm", "#include \"b.pgm\"\n");
    questions.write("inc/b.pgm", "PROBE X\n");
    const json program = questions.convert("main.pgm");
    const json& finding = program.at("findings").at(0);
    EXPECT_EQ(program.at("files").at(finding.at("file").get<std::size_t>()).at("path"),
              questions.path("inc/b.pgm"));
    EXPECT_EQ(finding.at("includedFrom"),
              json({{{"file", 1}, {"line", 1}}, {{"file", 0}, {"line", 2}}}));
}

TEST(Answers, AProgramThatCannotBeReadHasTheFindingThatSaysWhy) {
    Questions questions;
    questions.write("main.pgm", "#define A 1\n$a = \"open\nHOME X\n");
    const json program = questions.convert("main.pgm");
    EXPECT_EQ(program.at("status"), "unreadable");
    ASSERT_EQ(program.at("findings").size(), 1U);
    EXPECT_EQ(program.at("findings").at(0).at("todo"), "fix-source");
    EXPECT_EQ(program.at("findings").at(0).at("line"), 2);
    const json missing = questions.convert("missing.pgm");
    EXPECT_EQ(missing.at("status"), "unreadable");
    EXPECT_EQ(missing.at("files").size(), 0U);
    EXPECT_EQ(missing.at("findings").size(), 1U);
}

TEST(Answers, TheProgramsOfAProjectAndTheirParts) {
    Questions questions;
    questions.write("migration.toml", "sources = [\"programs\"]\nparameters = \"machine.xml\"\n");
    questions.write(
        "machine.xml",
        "<M><Parameters><Axes><Axis><P n=\"AxisName\">ST</P></Axis></Axes></Parameters></M>");
    questions.write("programs/one.pgm", "#include \"inc/part.pgm\"\nHOME ST\n");
    questions.write("programs/two.pgm", "#include \"INC/PART.pgm\"\n");
    questions.write("programs/inc/part.pgm", "#include \"deep.pgm\"\n");
    questions.write("programs/inc/deep.pgm", "PROBE ST\n");
    const json project =
        questions.ask({{"do", "project"}, {"file", questions.path("migration.toml")}});
    EXPECT_EQ(project.at("programs"),
              json({questions.path("programs/one.pgm"), questions.path("programs/two.pgm")}));
    EXPECT_EQ(project.at("parts"),
              json({{{"path", questions.path("programs/inc/part.pgm")}, {"programs", {0, 1}}},
                    {{"path", questions.path("programs/inc/deep.pgm")}, {"programs", {0, 1}}}}));
    const json program = questions.ask({{"do", "convert"},
                                        {"project", project.at("project")},
                                        {"program", questions.path("programs/one.pgm")}});
    EXPECT_EQ(program.at("status"), "converted");
    EXPECT_EQ(program.at("axes"), json({"ST"}));
    const json names = questions.ask({{"do", "names"}});
    EXPECT_NE(names.at("output").get<std::string>().find("Home(ST)"), std::string::npos);
}

TEST(Answers, NamesAreToldOnce) {
    Questions questions;
    const json none = questions.ask({{"do", "names"}});
    EXPECT_EQ(none.at("fault"), "No program was converted.");
    questions.write("main.pgm", "HOME X\n");
    EXPECT_EQ(questions.convert("main.pgm").at("texts").size(), 2U);
    EXPECT_EQ(questions.ask({{"do", "names"}}).at("fault"), "No program was converted.");
}

TEST(Answers, AFileOfParametersThatCannotBeRead) {
    Questions questions;
    questions.write("main.pgm", "HOME X\n");
    questions.openProject("parameters = \"missing.xml\"");
    const json program = questions.convert("main.pgm");
    EXPECT_EQ(program.at("status"), "unreadable");
    EXPECT_EQ(program.at("findings").at(0).at("code"), "parameters-unreadable");
}

TEST(Answers, TablesTellWhatNamesAndCodesStandFor) {
    Questions questions;
    const std::size_t project =
        questions.openProject("[reference]\nconstants = { CLAMP_CLOSED = \"1\" }");
    const json tables = questions.ask({{"do", "tables"}, {"project", project}});
    EXPECT_EQ(tables.at("predefined").at("CLAMP_CLOSED").at("value"), "1");
    questions.write("rows.toml", "[reference]\nconstants = { CLAMP_CLOSED = \"2\" }");
    const json other = questions.ask({{"do", "project"},
                                      {"folder", questions.path("")},
                                      {"referenceFile", questions.path("rows.toml")}});
    const json others = questions.ask({{"do", "tables"}, {"project", other.at("project")}});
    EXPECT_EQ(others.at("predefined").at("CLAMP_CLOSED").at("value"), "2");
    EXPECT_EQ(tables.at("codes").at("value-cut").at("page"), "checks.md");
    EXPECT_FALSE(tables.at("codes").at("value-cut").at("body").get<std::string>().empty());
}

TEST(Answers, QuestionsThatCannotBeAnswered) {
    Questions questions;
    const auto faultOf = [&](std::string_view text) {
        return json::parse(questions.requests.answer(text).json).at("fault").get<std::string>();
    };
    EXPECT_FALSE(faultOf("").empty());
    EXPECT_FALSE(faultOf("[]").empty());
    EXPECT_FALSE(faultOf("{\"do\": 5}").empty());
    EXPECT_EQ(faultOf("{\"do\": \"convert\", \"project\": 7, \"program\": \"x\"}"),
              "There is no such project.");
    questions.openProject();
    EXPECT_EQ(faultOf("{\"do\": \"dance\", \"project\": 0}"), "There is no such question.");
    const json project = questions.ask({{"do", "project"}, {"settings", "parameters = 5"}});
    EXPECT_EQ(project.at("fault"),
              "'the editor's settings', line 1: 'parameters' must be a path in quotes.");
}

TEST(Answers, MoreFindingsThanAnEditorShowsAreCounted) {
    Questions questions;
    std::string text;
    for (int i = 0; i < 1200; ++i) {
        text += "PROBE X\n";
    }
    questions.write("main.pgm", text);
    const json program = questions.convert("main.pgm");
    EXPECT_EQ(program.at("findings").size(), 1000U);
    EXPECT_EQ(program.at("findingCounts"), json({1200}));
}

}  // namespace

}  // namespace torvel::language::test
