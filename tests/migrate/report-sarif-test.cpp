// The report as SARIF: a text written by hand, the published schema, and the validator of the standard's makers.

#include "src/migrate/report-sarif.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "tests/migrate/other-program.h"
#include "tests/migrate/report-example.h"
#include "tests/support/temporary-directory.h"

namespace torvel::migrate::test {

namespace {

/// Where script/setup puts the validator, with the schema of what it reads.
const std::filesystem::path packages = TORVEL_SOURCE_DIR "/build/sarif/node_modules";

std::string sarif(const Report& report) {
    const Places places(report);
    const ReportTotals totals = totalsOf(report, places);
    return textFrom([&](const TextSink& sink) { writeSarif(report, places, totals, sink); });
}

nlohmann::json runOf(const Report& report) {
    return nlohmann::json::parse(sarif(report))["runs"][0];
}

std::filesystem::path findFile(const std::string& name) {
    if (std::filesystem::exists(packages)) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(packages)) {
            if (entry.path().filename() == name) {
                return entry.path();
            }
        }
    }
    return {};
}

}  // namespace

TEST(ReportSarif, ResultsOfThePlant) {
    const nlohmann::json run = runOf(plant());
    EXPECT_EQ(run["columnKind"], "utf16CodeUnits");
    EXPECT_EQ(run["tool"]["driver"]["name"], "torvel-migrate");
    // What moves otherwise and what could not be read stand before the line with a marker; the finding of the included
    // file is one, and the finished one is none.
    nlohmann::json results = run["results"];
    const std::vector<std::string> expected = fingerprintsOf(plant());
    ASSERT_EQ(results.size(), 3U);
    EXPECT_EQ(results[0]["partialFingerprints"]["torvelFinding/v1"], expected[1]);
    EXPECT_EQ(results[1]["partialFingerprints"]["torvelFinding/v1"], expected[4]);
    EXPECT_EQ(results[2]["partialFingerprints"]["torvelFinding/v1"], expected[0]);
    for (nlohmann::json& result : results) {
        result.erase("partialFingerprints");
    }
    EXPECT_EQ(results[0], nlohmann::json::parse(R"({
      "ruleId": "value-cut", "ruleIndex": 2, "level": "error",
      "message": {"text": "Text behind the value of an assignment is dropped."},
      "locations": [{"physicalLocation": {
        "artifactLocation": {"uri": "shared/io.pgm", "uriBaseId": "SRCROOT"},
        "region": {"startLine": 2, "startColumn": 8, "endColumn": 10}}}],
      "relatedLocations": [{"physicalLocation": {
        "artifactLocation": {"uri": "line1/main.pgm", "uriBaseId": "SRCROOT"},
        "region": {"startLine": 1}}, "message": {"text": "Included here."}}],
      "properties": {"origin": "check", "todo": "look", "severity": "moves"}})"));
    EXPECT_EQ(results[1], nlohmann::json::parse(R"({
      "ruleId": "file-missing", "ruleIndex": 0, "level": "error",
      "message": {"text": "'gone.pgm' does not exist."},
      "locations": [{"physicalLocation": {
        "artifactLocation": {"uri": "line2/broken.pgm", "uriBaseId": "SRCROOT"},
        "region": {"startLine": 1}}}],
      "properties": {"origin": "message", "todo": "fix-source", "severity": ""}})"));
    EXPECT_EQ(results[2], nlohmann::json::parse(R"({
      "ruleId": "numeric-expression-expected", "ruleIndex": 1, "level": "warning",
      "message": {"text": "Expected a numeric expression."},
      "locations": [{"physicalLocation": {
        "artifactLocation": {"uri": "line1/main.pgm", "uriBaseId": "SRCROOT"},
        "region": {"startLine": 3}}}],
      "properties": {"origin": "message", "todo": "rewrite", "severity": ""}})"));
}

TEST(ReportSarif, RulesHaveHelpInBothForms) {
    const nlohmann::json rules = runOf(plant())["tool"]["driver"]["rules"];
    ASSERT_EQ(rules.size(), 3U);
    EXPECT_EQ(rules[2]["id"], "value-cut");
    EXPECT_EQ(rules[2]["shortDescription"]["text"],
              "Text behind the value of an assignment is dropped.");
    EXPECT_EQ(rules[2]["fullDescription"]["text"], "Moves: another motion, axis, value or order.");
    const std::string text = rules[2]["help"]["text"];
    EXPECT_TRUE(text.starts_with("moves. The value ends where the next word cannot continue it"));
    const std::string markdown = rules[2]["help"]["markdown"];
    EXPECT_NE(markdown.find("```torvel\n$a = 1\n$a = 1000\n```"), std::string::npos);
}

TEST(ReportSarif, ACodeThatNoPageHas) {
    ReportFinding finding = rewrite("a.pgm", 0, "");
    finding.row.code = "of-tomorrow";
    const nlohmann::json run = runOf(reportOf({converted("a.pgm", 1, 1, {finding})}));
    EXPECT_EQ(run["tool"]["driver"]["rules"][0]["shortDescription"]["text"], "of-tomorrow");
    EXPECT_FALSE(run["results"][0]["locations"][0]["physicalLocation"].contains("region"));
}

TEST(ReportSarif, Uris) {
    EXPECT_EQ(uriOf("line 1/m#1%.pgm"), "line%201/m%231%25.pgm");
    EXPECT_EQ(uriOf("a:b.pgm"), "file:///a:b.pgm");
    EXPECT_EQ(uriOf("ab:c.pgm"), "ab%3Ac.pgm");
    EXPECT_EQ(uriOf("../x.pgm"), "../x.pgm");
    EXPECT_EQ(uriOf("/srv/x y.pgm"), "file:///srv/x%20y.pgm");
    EXPECT_EQ(uriOf("//server/share/x.pgm"), "file://server/share/x.pgm");
    EXPECT_EQ(uriOf("C:/plant/x.pgm"), "file:///C:/plant/x.pgm");
    EXPECT_EQ(uriOf("\xE4\n?.pgm"), "%C3%A4%0A%3F.pgm");
    EXPECT_EQ(uriOf("\xC3\xA4.pgm"), "%C3%A4.pgm");
}

TEST(ReportSarif, MessagesHaveNoLinks) {
    ReportFinding finding = rewrite("a.pgm", 1, "x");
    finding.row.text = "Unexpected [x](1) seen.";
    EXPECT_EQ(
        runOf(reportOf({converted("a.pgm", 1, 1, {finding})}))["results"][0]["message"]["text"],
        "Unexpected \\[x\\](1) seen.");
}

TEST(ReportSarif, HostileTexts) {
    const nlohmann::json result = runOf(hostileReport())["results"][0];
    EXPECT_EQ(result["message"]["text"], "-1+1 \u2028\u2029 </script>\n\x1B seen.");
    EXPECT_EQ(result["locations"][0]["physicalLocation"]["artifactLocation"]["uri"],
              "%3Dcmd%7C%27%20/C%20calc%27%21A0%0A%22%3C/script%3E%3C%21--%3Cscript%3E%2C%3B%C2%B0."
              "pgm");
    // An include and two further lines.
    EXPECT_EQ(result["relatedLocations"].size(), 3U);
}

TEST(ReportSarif, NoPrograms) {
    EXPECT_EQ(runOf(reportOf({}))["results"], nlohmann::json::array());
}

TEST(ReportSarif, FollowsItsSchema) {
    const std::filesystem::path schema = findFile("sarif-2.1.0.json");
    if (schema.empty()) {
        TORVEL_TEST_NEEDS("the schema of SARIF in build/sarif");
    }
    if (!runs({"python3", "-W", "ignore", "-c", "import jsonschema"})) {
        TORVEL_TEST_NEEDS("python3-jsonschema");
    }
    const torvel::test::TemporaryDirectory directory;
    const std::string path = (directory.path() / "report.sarif").string();
    for (const Report& report : {plant(), hostileReport(), reportOf({}), largeReport(200)}) {
        torvel::test::writeFile(path, sarif(report));
        const CommandResult result = python(R"(
import json, sys
from jsonschema import validators
schema = json.load(open(sys.argv[1], encoding='utf-8-sig'))
validator = validators.validator_for(schema)(schema)
errors = list(validator.iter_errors(json.load(open(sys.argv[2]))))
for error in errors[:5]:
    print(list(error.path), error.message[:300])
sys.exit(1 if errors else 0)
)",
                                            {schema.string(), path});
        EXPECT_EQ(result.status, 0) << result.standardOutput << result.standardError;
    }
}

TEST(ReportSarif, PassesTheValidator) {
    const std::filesystem::path validator = findFile("Sarif.Multitool");
    if (validator.empty()) {
        TORVEL_TEST_NEEDS("the validator of SARIF in build/sarif");
    }
    const torvel::test::TemporaryDirectory directory;
    const std::string path = (directory.path() / "report.sarif").string();
    const std::string log = (directory.path() / "validation.sarif").string();
    for (const Report& report : {plant(), hostileReport(), largeReport(200)}) {
        torvel::test::writeFile(path, sarif(report));
        std::filesystem::remove(log);
        const CommandResult result =
            run({validator.string(), "validate", path, "--output", log, "--log", "ForceOverwrite"});
        // It ends with status 0 whatever it found: its log tells.
        ASSERT_TRUE(std::filesystem::exists(log)) << result.standardOutput << result.standardError;
        const nlohmann::json results =
            nlohmann::json::parse(torvel::test::readFile(log))["runs"][0]["results"];
        for (const nlohmann::json& problem : results) {
            // It asks for the address of a page about the program, which there is not.
            const bool isAddress = problem["ruleId"] == "SARIF2005";
            EXPECT_TRUE(isAddress || problem.value("level", "warning") == "note")
                << problem.dump(1);
        }
    }
}

}  // namespace torvel::migrate::test
