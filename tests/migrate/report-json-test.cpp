// The report as JSON: a text written by hand, the published schema, and texts that could break out of their quotes.

#include "src/migrate/report-json.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "tests/migrate/other-program.h"
#include "tests/migrate/report-example.h"
#include "tests/support/temporary-directory.h"

namespace torvel::migrate::test {

namespace {

std::string jsonOf(const Report& report) {
    const Places places(report);
    const ReportTotals totals = totalsOf(report, places);
    return textFrom([&](const TextSink& sink) { writeJsonReport(report, places, totals, sink); });
}

/// The text with "F" in the place of each fingerprint.
std::string withoutFingerprints(std::string text) {
    const std::string name = R"("fingerprint": ")";
    for (std::size_t at = text.find(name); at != std::string::npos; at = text.find(name, at)) {
        at += name.size();
        text.replace(at, 32, "F");
    }
    return text;
}

}  // namespace

TEST(ReportJson, ThePlant) {
    const std::string expected =
        R"({
  "format": 1,
  "tool": {
    "name": "torvel-migrate",
    "version": "1.0.0"
  },
  "runs": [
    {"version": "1.0.0", "began": 1700000000, "ended": 1700000002, "programs": 5, "converted": 2, "lines": 15, "convertedLines": 13, "openFindings": 4}
  ],
  "notices": [
    "top.pgm and top.prg have the same output."
  ],
  "programs": [
    {"path": "line1/main.pgm", "output": "out/line1/main.torvel", "machine": "", "status": "converted", "outputState": "as-generated", "lines": 10, "convertedLines": 9, "findings": [{"file": "line1/main.pgm", "line": 3, "column": 0, "lastColumn": 0, "code": "numeric-expression-expected", "origin": "message", "todo": "rewrite", "severity": "", "open": true, "text": "Expected a numeric expression.", "lineText": "$a = = $b", "furtherLines": [], "includedFrom": [], "outputLine": 3, "outputLineCount": 1, "fingerprint": "F"}, {"file": "shared/io.pgm", "line": 2, "column": 8, "lastColumn": 9, "code": "value-cut", "origin": "check", "todo": "look", "severity": "moves", "open": true, "text": "Text behind the value of an assignment is dropped.", "lineText": "° $a = 1e3", "furtherLines": [], "includedFrom": [{"file": "line1/main.pgm", "line": 1}], "outputLine": 0, "outputLineCount": 0, "fingerprint": "F"}]},
    {"path": "line1/second.pgm", "output": "out/line1/second.torvel", "machine": "", "status": "edited", "outputState": "edited", "lines": 5, "convertedLines": 4, "findings": [{"file": "line1/second.pgm", "line": 7, "column": 0, "lastColumn": 0, "code": "numeric-expression-expected", "origin": "message", "todo": "rewrite", "severity": "", "open": false, "text": "Expected a numeric expression.", "lineText": "$c = = $d", "furtherLines": [], "includedFrom": [], "outputLine": 7, "outputLineCount": 1, "fingerprint": "F"}, {"file": "shared/io.pgm", "line": 2, "column": 8, "lastColumn": 9, "code": "value-cut", "origin": "check", "todo": "look", "severity": "moves", "open": true, "text": "Text behind the value of an assignment is dropped.", "lineText": "° $a = 1e3", "furtherLines": [], "includedFrom": [{"file": "line1/second.pgm", "line": 4}], "outputLine": 0, "outputLineCount": 0, "fingerprint": "F"}]},
    {"path": "line2/broken.pgm", "output": "out/line2/broken.torvel", "machine": "line2", "status": "unreadable", "outputState": "none", "lines": 0, "convertedLines": 0, "findings": [{"file": "line2/broken.pgm", "line": 1, "column": 0, "lastColumn": 0, "code": "file-missing", "origin": "message", "todo": "fix-source", "severity": "", "open": true, "text": "'gone.pgm' does not exist.", "lineText": "#include \"gone.pgm\"", "furtherLines": [], "includedFrom": [], "outputLine": 0, "outputLineCount": 0, "fingerprint": "F"}]},
    {"path": "top.pgm", "output": "out/top.torvel", "machine": "", "status": "collides", "outputState": "none", "lines": 0, "convertedLines": 0, "findings": []},
    {"path": "top.prg", "output": "out/top.torvel", "machine": "", "status": "collides", "outputState": "none", "lines": 0, "convertedLines": 0, "findings": []}
  ],
  "totals": {
    "programs": 5,
    "byStatus": {"converted": 2, "unreadable": 1, "collides": 2},
    "byOutputState": {"none": 3, "as-generated": 1, "edited": 1, "conflict": 0, "deleted": 0, "foreign": 0, "not-written": 0},
    "lines": 15,
    "convertedLines": 13,
    "open": {"fix-source": {"places": 1, "inOutputs": 1}, "rewrite": {"places": 1, "inOutputs": 1}, "complete": {"places": 0, "inOutputs": 0}, "look": {"places": 1, "inOutputs": 2}},
    "finished": {"fix-source": {"places": 0, "inOutputs": 0}, "rewrite": {"places": 1, "inOutputs": 1}, "complete": {"places": 0, "inOutputs": 0}, "look": {"places": 0, "inOutputs": 0}},
    "openBySeverity": {"moves": {"places": 1, "inOutputs": 2}, "stops": {"places": 0, "inOutputs": 0}, "reads": {"places": 0, "inOutputs": 0}},
    "openByCode": {"file-missing": {"places": 1, "inOutputs": 1}, "numeric-expression-expected": {"places": 1, "inOutputs": 1}, "value-cut": {"places": 1, "inOutputs": 2}}
  },
  "estimate": {
    "minutesEach": {"fix-source": {"least": 10, "most": 60}, "rewrite": {"least": 10, "most": 40}, "complete": {"least": 5, "most": 15}, "look": {"least": 2, "most": 10}},
    "minutesForPlaces": {"least": 22, "most": 110},
    "minutesForOutputs": {"least": 24, "most": 120}
  }
}
)";
    EXPECT_EQ(withoutFingerprints(jsonOf(plant())), expected);
}

TEST(ReportJson, NoPrograms) {
    const nlohmann::json json = nlohmann::json::parse(jsonOf(reportOf({})));
    EXPECT_EQ(json["programs"], nlohmann::json::array());
    EXPECT_EQ(json["totals"]["programs"], 0);
    EXPECT_EQ(json["estimate"]["minutesForOutputs"]["most"], 0);
}

TEST(ReportJson, HostileTextsComeBackAsTheyAre) {
    const std::string text = jsonOf(hostileReport());
    // What a page might have this text in.
    EXPECT_EQ(text.find('<'), std::string::npos);
    EXPECT_EQ(text.find("\xE2\x80\xA8"), std::string::npos);
    EXPECT_EQ(text.find("\xE2\x80\xA9"), std::string::npos);
    EXPECT_TRUE(std::all_of(text.begin(), text.end(), [](char c) {
        return static_cast<unsigned char>(c) >= 0x20 || c == '\n';
    }));

    const nlohmann::json json = nlohmann::json::parse(text);
    const std::string name = "=cmd|' /C calc'!A0\n\"</script><!--<script>,;°.pgm";
    EXPECT_EQ(json["notices"][0], name);
    EXPECT_EQ(json["programs"][0]["path"], name);
    EXPECT_EQ(json["programs"][0]["machine"], name);
    const nlohmann::json& finding = json["programs"][0]["findings"][0];
    EXPECT_EQ(finding["text"], "-1+1 \u2028\u2029 </script>\n\x1B seen.");
    EXPECT_EQ(finding["lineText"], std::string("=1+1;\"a\"\t</script>\x01\x00\x1B[31m ", 26) +
                                       "° ]]>&<'>" + std::string(1U << 20U, 'x'));
    EXPECT_EQ(finding["furtherLines"], nlohmann::json({4, 5}));
    EXPECT_EQ(finding["includedFrom"][0]["file"], name);
}

TEST(ReportJson, FollowsItsSchema) {
    if (!runs({"python3", "-W", "ignore", "-c", "from jsonschema import Draft202012Validator"})) {
        TORVEL_TEST_NEEDS("python3-jsonschema");
    }
    const torvel::test::TemporaryDirectory directory;
    const std::string path = (directory.path() / "report.json").string();
    const std::string script = R"(
import json, sys
from jsonschema import Draft202012Validator
schema = json.load(open(sys.argv[1]))
Draft202012Validator.check_schema(schema)
errors = list(Draft202012Validator(schema).iter_errors(json.load(open(sys.argv[2]))))
for error in errors[:5]:
    print(error.json_path, error.message[:300])
sys.exit(1 if errors else 0)
)";
    const std::string schema = TORVEL_SOURCE_DIR "/docs/report.schema.json";
    for (const Report& report : {plant(), hostileReport(), reportOf({}), largeReport(1000)}) {
        torvel::test::writeFile(path, jsonOf(report));
        const CommandResult result = python(script, {schema, path});
        EXPECT_EQ(result.status, 0) << result.standardOutput << result.standardError;
    }
    // The schema refuses what is none.
    std::string wrong = jsonOf(plant());
    wrong.replace(wrong.find("\"collides\", \"outputState\""), 10, "\"collided\"");
    torvel::test::writeFile(path, wrong);
    EXPECT_EQ(python(script, {schema, path}).status, 1);
}

}  // namespace torvel::migrate::test
