// The tables of the report page: what stands in the columns is what the report has.

#include "src/migrate/html-summary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "src/migrate/explanations.h"
#include "tests/migrate/report-example.h"

namespace torvel::migrate::test {

namespace {

using nlohmann::json;

json summaryOf(const Report& report, HtmlDetails details = HtmlDetails::inside) {
    const Places places(report);
    const ReportTotals totals = totalsOf(report, places);
    const HtmlTables tables = htmlTablesOf(report, places);
    const HtmlSummary summary{report, places, totals, tables, 1700000100, details};
    return json::parse(textFrom([&](const TextSink& sink) { writeHtmlSummary(summary, sink); }));
}

/// The texts that a column has the numbers of.
std::vector<std::string> texts(const json& summary, const json& column) {
    std::vector<std::string> result;
    for (const json& number : column) {
        result.push_back(summary["strings"].at(number.get<std::size_t>()));
    }
    return result;
}

using Texts = std::vector<std::string>;
using Numbers = std::vector<int>;

}  // namespace

TEST(HtmlSummary, ThePlant) {
    Report report = plant();
    report.project = {"0123456789abcdef0123456789abcdef", "old plant"};
    const json summary = summaryOf(report);
    EXPECT_EQ(summary["format"], 1);
    EXPECT_EQ(summary["version"], "1.0.0");
    EXPECT_EQ(summary["made"], 1700000100);
    EXPECT_EQ(summary["project"], json::parse(R"({"identity": "0123456789abcdef0123456789abcdef",
        "name": "old plant"})"));
    EXPECT_EQ(summary["runs"], json::parse(R"([{"version": "1.0.0", "began": 1700000000,
        "ended": 1700000002, "programs": 5, "converted": 2, "lines": 15, "convertedLines": 13,
        "openFindings": 4}])"));
    EXPECT_EQ(summary["notices"], json({"top.pgm and top.prg have the same output."}));
    EXPECT_EQ(summary["effort"], json::parse(R"({"rewrite": [10, 40], "complete": [5, 15],
        "look": [2, 10], "fix-source": [10, 60]})"));
    EXPECT_EQ(summary["totals"], json::parse(R"({"programs": 5, "lines": 15, "convertedLines": 13,
        "open": [[1, 1], [0, 0], [1, 2], [1, 1]], "finished": [[1, 1], [0, 0], [0, 0], [0, 0]]})"));
    EXPECT_EQ(summary["details"], "inside");
    EXPECT_EQ(summaryOf(report, HtmlDetails::files)["details"], "files");
}

TEST(HtmlSummary, ProgramsOfThePlant) {
    const json summary = summaryOf(plant());
    const json& programs = summary["programs"];
    EXPECT_EQ(texts(summary, programs["path"]), (Texts{"line1/main.pgm", "line1/second.pgm",
                                                       "line2/broken.pgm", "top.pgm", "top.prg"}));
    EXPECT_EQ(texts(summary, programs["output"]),
              (Texts{"out/line1/main.torvel", "out/line1/second.torvel", "out/line2/broken.torvel",
                     "out/top.torvel", "out/top.torvel"}));
    EXPECT_EQ(texts(summary, programs["machine"]), (Texts{"", "", "line2", "", ""}));
    EXPECT_EQ(programs["status"], (Numbers{0, 0, 1, 2, 2}));
    EXPECT_EQ(programs["outputState"], (Numbers{1, 2, 0, 0, 0}));
    EXPECT_EQ(programs["lines"], (Numbers{10, 5, 0, 0, 0}));
    EXPECT_EQ(programs["convertedLines"], (Numbers{9, 4, 0, 0, 0}));
}

TEST(HtmlSummary, FindingsOfThePlant) {
    const Report report = plant();
    const json summary = summaryOf(report);
    const json& findings = summary["findings"];
    EXPECT_EQ(findings["program"], (Numbers{0, 0, 1, 1, 2}));
    // What is in the included file is one place.
    EXPECT_EQ(findings["place"], (Numbers{0, 1, 2, 1, 3}));
    const Texts fingerprints = fingerprintsOf(report);
    EXPECT_EQ(summary["places"]["fingerprint"],
              (Texts{fingerprints[0], fingerprints[1], fingerprints[2], fingerprints[4]}));
    EXPECT_EQ(findings["rule"], (Numbers{0, 1, 0, 1, 2}));
    EXPECT_EQ(texts(summary, findings["file"]),
              (Texts{"line1/main.pgm", "shared/io.pgm", "line1/second.pgm", "shared/io.pgm",
                     "line2/broken.pgm"}));
    EXPECT_EQ(findings["line"], (Numbers{3, 2, 7, 2, 1}));
    EXPECT_EQ(findings["column"], (Numbers{0, 8, 0, 8, 0}));
    EXPECT_EQ(findings["lastColumn"], (Numbers{0, 9, 0, 9, 0}));
    EXPECT_EQ(findings["origin"], (Numbers{0, 1, 0, 1, 0}));
    EXPECT_EQ(findings["todo"], (Numbers{0, 2, 0, 2, 3}));
    EXPECT_EQ(findings["severity"], (Numbers{0, 1, 0, 1, 0}));
    EXPECT_EQ(findings["open"], (Numbers{1, 1, 0, 1, 1}));
    EXPECT_EQ(texts(summary, findings["text"]).at(4), "'gone.pgm' does not exist.");
    EXPECT_EQ(texts(summary, findings["lineText"]), (Texts{"$a = = $b", "° $a = 1e3", "$c = = $d",
                                                           "° $a = 1e3", "#include \"gone.pgm\""}));
    EXPECT_EQ(findings["outputLine"], (Numbers{3, 0, 7, 0, 0}));
    EXPECT_EQ(findings["outputLineCount"], (Numbers{1, 0, 1, 0, 0}));
    // File and line of each way of inclusion.
    EXPECT_EQ(findings["chain"], (Numbers{0, 1, 0, 2, 0}));
    EXPECT_EQ(summary["chains"].size(), 3U);
    EXPECT_EQ(summary["chains"][0], json::array());
    EXPECT_EQ(texts(summary, {summary["chains"][1][0], summary["chains"][2][0]}),
              (Texts{"line1/main.pgm", "line1/second.pgm"}));
    EXPECT_EQ(summary["chains"][1][1], 1);
    EXPECT_EQ(summary["chains"][2][1], 4);
}

TEST(HtmlSummary, RulesTellWhatToDo) {
    const json rules = summaryOf(plant())["rules"];
    ASSERT_EQ(rules.size(), 3U);
    EXPECT_EQ(rules[0]["code"], "numeric-expression-expected");
    EXPECT_EQ(rules[1]["code"], "value-cut");
    EXPECT_EQ(rules[1]["title"], "Text behind the value of an assignment is dropped.");
    const std::string help = rules[1]["help"];
    EXPECT_TRUE(help.starts_with("**moves**. The value ends where")) << help;
    EXPECT_NE(help.find("```brannic\n"), std::string::npos) << help;
    EXPECT_EQ(rules[2]["code"], "file-missing");
    EXPECT_EQ(rules[2]["title"], explanations().at("file-missing").title);
    EXPECT_EQ(rules[2]["section"], "The run ends");
}

TEST(HtmlSummary, ACodeWithoutAnEntryIsItsOwnTitle) {
    ReportFinding finding = rewrite("a.pgm", 1, "x");
    finding.row.code = "of-another-version";
    const json rules = summaryOf(reportOf({converted("a.pgm", 1, 0, {finding})}))["rules"];
    EXPECT_EQ(rules[0], json::parse(R"({"code": "of-another-version",
        "title": "of-another-version", "help": "", "section": ""})"));
}

TEST(HtmlSummary, EachTextIsThereOnce) {
    const json strings = summaryOf(largeReport(1000))["strings"];
    EXPECT_EQ(strings[0], "");
    Texts sorted = strings.get<Texts>();
    std::sort(sorted.begin(), sorted.end());
    EXPECT_EQ(std::adjacent_find(sorted.begin(), sorted.end()), sorted.end());
    // 10 paths and 10 outputs, one message, 100 different lines, and the empty text.
    EXPECT_EQ(sorted.size(), 122U);
}

TEST(HtmlSummary, NoPrograms) {
    const json summary = summaryOf(reportOf({}));
    EXPECT_EQ(summary["programs"]["path"], json::array());
    EXPECT_EQ(summary["findings"]["open"], json::array());
    EXPECT_EQ(summary["strings"], json({""}));
    EXPECT_EQ(summary["chains"], json::array({json::array()}));
}

TEST(HtmlSummary, HostileTextsComeBackAsTheyAre) {
    Report report = hostileReport();
    report.project.name = hostileName();
    const json summary = summaryOf(report);
    const std::string name = "=cmd|' /C calc'!A0\n\"</script><!--<script>,;°.pgm";
    EXPECT_EQ(summary["notices"][0], name);
    EXPECT_EQ(summary["project"]["name"], name);
    EXPECT_EQ(texts(summary, summary["programs"]["path"]), Texts{name});
    EXPECT_EQ(texts(summary, summary["programs"]["machine"]), Texts{name});
    const json& findings = summary["findings"];
    EXPECT_EQ(texts(summary, findings["text"]), Texts{"-1+1 \u2028\u2029 </script>\n\x1B seen."});
    EXPECT_EQ(texts(summary, findings["lineText"]),
              Texts{std::string("=1+1;\"a\"\t</script>\x01\x00\x1B[31m ", 26) + "° ]]>&<'>" +
                    std::string(1U << 20U, 'x')});
    EXPECT_EQ(texts(summary, {summary["chains"][1][0]}), Texts{name});
    EXPECT_EQ(findings["column"], Numbers{1});
    EXPECT_EQ(findings["lastColumn"], Numbers{5});
}

}  // namespace torvel::migrate::test
