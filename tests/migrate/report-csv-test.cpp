// The report for spreadsheets: texts written by hand, and read back by Python's csv.

#include "src/migrate/report-csv.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/migrate/other-program.h"
#include "tests/migrate/report-example.h"
#include "tests/support/temporary-directory.h"

namespace torvel::migrate::test {

namespace {

std::string findingsCsv(const Report& report) {
    const Places places(report);
    return textFrom([&](const TextSink& sink) { writeFindingsCsv(report, places, sink); });
}

std::string programsCsv(const Report& report) {
    return textFrom([&](const TextSink& sink) { writeProgramsCsv(report, sink); });
}

/// The rows as Python reads them, as a list of lists; null without Python.
nlohmann::json readBack(const std::string& csv) {
    const torvel::test::TemporaryDirectory directory;
    const std::string path = (directory.path() / "report.csv").string();
    torvel::test::writeFile(path, csv);
    const CommandResult result = python(R"(
import csv, json, sys
csv.field_size_limit(1 << 24)
with open(sys.argv[1], encoding='utf-8-sig', newline='') as file:
    print(json.dumps(list(csv.reader(file, strict=True))))
)",
                                        {path});
    return result.status == 0 ? nlohmann::json::parse(result.standardOutput) : nlohmann::json();
}

}  // namespace

TEST(ReportCsv, Fields) {
    EXPECT_EQ(csvField(""), "");
    EXPECT_EQ(csvField("G1 X1"), "G1 X1");
    EXPECT_EQ(csvField("a,b"), "\"a,b\"");
    EXPECT_EQ(csvField("say \"x\""), "\"say \"\"x\"\"\"");
    EXPECT_EQ(csvField("a\r\nb"), "\"a\r\nb\"");
    EXPECT_EQ(csvField(" a"), "\" a\"");
    EXPECT_EQ(csvField(std::string_view("a\0\x1B", 3)), "a␀␛");
}

TEST(ReportCsv, FormulasAndNumbers) {
    for (const std::string formula : {"=1+1", "+1+1", "-1-1", "@SUM(A1)", "-X", "=", "-", "+.e1",
                                      "-1e", "＝1", "＋1", "－1", "＠a"}) {
        EXPECT_EQ(csvField(formula), "'" + formula);
    }
    EXPECT_EQ(csvField("=cmd|' /C calc'!A0"), "'=cmd|' /C calc'!A0");
    EXPECT_EQ(csvField("=A1,B1"), "\"'=A1,B1\"");
    EXPECT_EQ(csvField("\t=1"), "\"'\t=1\"");
    for (const std::string number : {"-5", "+5", "-0.5", "-.5", "5", "-1e-3", "+1.5E+3", "-1."}) {
        EXPECT_EQ(csvField(number), number);
    }
    EXPECT_EQ(csvField("-1,5"), "\"-1,5\"");
    EXPECT_EQ(csvField("a=1"), "a=1");
}

TEST(ReportCsv, WhatIsLongerThanACell) {
    const std::string whole(32000, 'x');
    EXPECT_EQ(csvField(whole), whole);
    EXPECT_EQ(csvField(whole + "y"), whole.substr(1) + "… (2 more characters)");
}

TEST(ReportCsv, FindingsOfThePlant) {
    std::string csv = findingsCsv(plant());
    // Each row ends in the 32 digits of a fingerprint.
    for (std::size_t end = csv.find("\r\n") + 2; (end = csv.find("\r\n", end)) != std::string::npos;
         end += 3) {
        csv.replace(end - 32, 32, "F");
        end -= 31;
    }
    EXPECT_EQ(csv,
              "\xEF\xBB\xBF"
              "Program,Output,Machine,File,Line,Column,Code,Origin,Todo,Severity,Open,Text,Line "
              "text,Included from,Output line,Fingerprint\r\n"
              "line1/main.pgm,out/line1/main.torvel,,line1/main.pgm,3,,numeric-expression-expected,"
              "message,rewrite,,yes,Expected a numeric expression.,$a = = $b,,3,F\r\n"
              "line1/main.pgm,out/line1/main.torvel,,shared/io.pgm,2,8,value-cut,check,look,moves,"
              "yes,Text behind the value of an assignment is dropped.,° $a = "
              "1e3,line1/main.pgm:1,,F\r\n"
              "line1/second.pgm,out/line1/second.torvel,,line1/second.pgm,7,,"
              "numeric-expression-expected,message,rewrite,,no,Expected a numeric expression.,"
              "$c = = $d,,7,F\r\n"
              "line1/second.pgm,out/line1/second.torvel,,shared/io.pgm,2,8,value-cut,check,look,"
              "moves,yes,Text behind the value of an assignment is dropped.,° $a = "
              "1e3,line1/second.pgm:4,,F\r\n"
              "line2/broken.pgm,out/line2/broken.torvel,line2,line2/broken.pgm,1,,file-missing,"
              "message,fix-source,,yes,'gone.pgm' does not exist.,\"#include \"\"gone.pgm\"\"\",,,"
              "F\r\n");
}

TEST(ReportCsv, ProgramsOfThePlant) {
    EXPECT_EQ(
        programsCsv(plant()),
        "\xEF\xBB\xBF"
        "Program,Output,Machine,Status,Output state,Lines,Converted lines,Fix "
        "source,Rewrite,Complete,Look,Moves,Stops,Reads,Finished\r\n"
        "line1/main.pgm,out/line1/main.torvel,,converted,as-generated,10,9,0,1,0,1,1,0,0,0\r\n"
        "line1/second.pgm,out/line1/second.torvel,,edited,edited,5,4,0,0,0,1,1,0,0,1\r\n"
        "line2/broken.pgm,out/line2/broken.torvel,line2,unreadable,none,0,0,1,0,0,0,0,0,0,"
        "0\r\n"
        "top.pgm,out/top.torvel,,collides,none,0,0,0,0,0,0,0,0,0,0\r\n"
        "top.prg,out/top.torvel,,collides,none,0,0,0,0,0,0,0,0,0,0\r\n");
}

TEST(ReportCsv, NoPrograms) {
    const std::string programs = programsCsv(reportOf({}));
    EXPECT_EQ(std::count(programs.begin(), programs.end(), '\n'), 1);
    const std::string findings = findingsCsv(reportOf({}));
    EXPECT_EQ(std::count(findings.begin(), findings.end(), '\n'), 1);
}

TEST(ReportCsv, AnotherReaderFindsHostileTexts) {
    if (!runs({"python3", "-c", "import csv"})) {
        TORVEL_TEST_NEEDS("python3");
    }
    const std::string name = "'=cmd|' /C calc'!A0\n\"</script><!--<script>,;°.pgm";
    const nlohmann::json findings = readBack(findingsCsv(hostileReport()));
    ASSERT_EQ(findings.size(), 2U);
    ASSERT_EQ(findings[1].size(), findings[0].size());
    EXPECT_EQ(findings[1][0], name);
    EXPECT_EQ(findings[1][2], name);
    EXPECT_EQ(findings[1][11], "'-1+1 \u2028\u2029 </script>\n␛ seen.");
    const std::string line = findings[1][12];
    EXPECT_TRUE(line.starts_with("'=1+1;\"a\"\t</script>␁␀␛[31m ° ]]>&<'>xxx"))
        << line.substr(0, 60);
    EXPECT_TRUE(line.ends_with("x… (1,016,612 more characters)")) << line.substr(line.size() - 60);

    const nlohmann::json programs = readBack(programsCsv(hostileReport()));
    ASSERT_EQ(programs.size(), 2U);
    EXPECT_EQ(programs[1][0], name);
    EXPECT_EQ(readBack(findingsCsv(largeReport(1000))).size(), 1001U);
}

}  // namespace torvel::migrate::test
