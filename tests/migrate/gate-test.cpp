// The gate and its baseline.

#include "src/migrate/gate.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "tests/migrate/report-example.h"
#include "tests/support/temporary-directory.h"

namespace torvel::migrate::test {

namespace {

Report programWith(std::vector<ReportFinding> findings) {
    return reportOf({converted("a.pgm", 9, 9, std::move(findings))});
}

GateResult gateOf(const Report& report, const std::optional<Baseline>& baseline,
                  const std::vector<std::string>& failOn = {}) {
    std::vector<FailOn> kinds;
    for (const std::string& name : failOn) {
        kinds.push_back(failOnNamed(name).value());
    }
    return gate(report, Places(report), baseline, kinds);
}

Baseline acceptedOf(const Report& report, const Baseline& baseline = {},
                    const AcceptFilter& filter = {}) {
    return accepted(report, Places(report), baseline, filter);
}

/// The lines of the new findings.
std::vector<std::uint32_t> newLines(const GateResult& result) {
    std::vector<std::uint32_t> lines;
    for (const NewFinding& finding : result.newFindings) {
        lines.push_back(finding.line);
    }
    return lines;
}

/// File and count of each entry.
std::vector<std::pair<std::string, std::uint32_t>> counts(const Baseline& baseline) {
    std::vector<std::pair<std::string, std::uint32_t>> all;
    for (const BaselineEntry& entry : baseline.entries) {
        all.emplace_back(entry.file, entry.count);
    }
    return all;
}

std::string failureOf(const std::string& text) {
    try {
        parseBaseline(text, "b.json");
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "none";
}

using Lines = std::vector<std::uint32_t>;
using Counts = std::vector<std::pair<std::string, std::uint32_t>>;

}  // namespace

TEST(Gate, WithoutBaselineAndKindsNothingFails) {
    const GateResult result = gateOf(plant(), std::nullopt);
    EXPECT_FALSE(result.fails());
    EXPECT_EQ(result.passed, 3U);
    EXPECT_EQ(gateText(result, 10), "");
}

TEST(Gate, KindsThatFail) {
    EXPECT_EQ(newLines(gateOf(plant(), std::nullopt, {"moves"})), Lines{2});
    EXPECT_EQ(newLines(gateOf(plant(), std::nullopt, {"look"})), Lines{2});
    EXPECT_EQ(newLines(gateOf(plant(), std::nullopt, {"rewrite", "fix-source"})), (Lines{3, 1}));
    EXPECT_FALSE(gateOf(plant(), std::nullopt, {"stops", "reads", "complete"}).fails());
    EXPECT_FALSE(failOnNamed("Moves").has_value());
    EXPECT_FALSE(failOnNamed("").has_value());
}

TEST(Gate, AnEmptyBaselineMakesEverythingNew) {
    const GateResult result = gateOf(plant(), Baseline());
    // The line that is finished by hand is none.
    EXPECT_EQ(newLines(result), (Lines{3, 2, 1}));
    EXPECT_EQ(result.newFindings[1].file, "shared/io.pgm");
    EXPECT_EQ(result.newFindings[1].program, "line1/main.pgm");
}

TEST(Gate, WhatWasAcceptedIsKnown) {
    const Baseline baseline = acceptedOf(plant());
    const GateResult result = gateOf(plant(), baseline);
    EXPECT_FALSE(result.fails());
    EXPECT_EQ(result.known, 3U);
    EXPECT_TRUE(result.noLongerNeeded.empty());
    EXPECT_FALSE(gateOf(plant(), baseline, {"moves", "look", "rewrite"}).fails());
}

TEST(Gate, InsertedLinesMakeNothingNew) {
    const Baseline baseline = acceptedOf(
        programWith({valueCut("a.pgm", 2, "$a = 1e3", {7, 8}), rewrite("a.pgm", 5, "$b = =")}));
    const GateResult result = gateOf(programWith({valueCut("a.pgm", 7, "    $a = 1e3", {11, 12}),
                                                  rewrite("a.pgm", 10, "$b  = =")}),
                                     baseline);
    EXPECT_FALSE(result.fails());
    EXPECT_TRUE(result.noLongerNeeded.empty());
}

TEST(Gate, ARepairedFindingPaysForNoOther) {
    const Baseline baseline = acceptedOf(programWith({valueCut("a.pgm", 2, "$a = 1e3")}));
    const GateResult result = gateOf(programWith({valueCut("a.pgm", 2, "$b = 1e3")}), baseline);
    EXPECT_EQ(newLines(result), Lines{2});
    ASSERT_EQ(result.noLongerNeeded.size(), 1U);
    EXPECT_EQ(result.noLongerNeeded[0].text, "$a = 1e3");
    // Nor does one of another file.
    EXPECT_TRUE(
        gateOf(reportOf({converted("b.pgm", 1, 1, {valueCut("b.pgm", 2, "$a = 1e3")})}), baseline)
            .fails());
}

TEST(Gate, TheThirdOfTwoIsNew) {
    const ReportFinding first = valueCut("a.pgm", 2, "$a = 1e3");
    const ReportFinding second = valueCut("a.pgm", 5, "$a = 1e3");
    const ReportFinding third = valueCut("a.pgm", 9, "$a = 1e3");
    const Baseline baseline = acceptedOf(programWith({first, second}));
    EXPECT_EQ(counts(baseline), (Counts{{"a.pgm", 2}}));
    const GateResult more = gateOf(programWith({first, second, third}), baseline);
    EXPECT_EQ(newLines(more), Lines{9});
    EXPECT_EQ(more.known, 2U);
    const GateResult fewer = gateOf(programWith({third}), baseline);
    EXPECT_FALSE(fewer.fails());
    ASSERT_EQ(fewer.noLongerNeeded.size(), 1U);
    EXPECT_EQ(fewer.noLongerNeeded[0].count, 1U);
}

TEST(Gate, AnIncludedFileCountsOnce) {
    const ReportFinding shared = valueCut("inc.pgm", 2, "$a = 1e3");
    const Report report =
        reportOf({converted("a.pgm", 1, 1, {shared}), converted("b.pgm", 1, 1, {shared})});
    EXPECT_EQ(newLines(gateOf(report, Baseline())), Lines{2});
    const Baseline baseline = acceptedOf(report);
    EXPECT_EQ(counts(baseline), (Counts{{"inc.pgm", 1}}));
    // One more program that includes it brings nothing new.
    EXPECT_FALSE(
        gateOf(reportOf({converted("a.pgm", 1, 1, {shared}), converted("b.pgm", 1, 1, {shared}),
                         converted("c.pgm", 1, 1, {shared})}),
               baseline)
            .fails());
}

TEST(Gate, CommentsOfAFileNeverCount) {
    ReportFinding comments = valueCut("a.pgm", 1, "/* licence */");
    comments.row.code = "comment-dropped";
    comments.row.severity = Severity::reads;
    const Report report = programWith({comments});
    EXPECT_FALSE(gateOf(report, Baseline()).fails());
    EXPECT_FALSE(gateOf(report, std::nullopt, {"reads"}).fails());
    EXPECT_TRUE(acceptedOf(report).entries.empty());
}

TEST(Gate, AcceptOfACode) {
    const Report report =
        programWith({valueCut("a.pgm", 2, "$a = 1e3"), rewrite("a.pgm", 5, "$b = =")});
    const Baseline baseline = acceptedOf(report, {}, {{"value-cut"}, {}});
    ASSERT_EQ(baseline.entries.size(), 1U);
    EXPECT_EQ(baseline.entries[0].code, "value-cut");
    // A second one goes on from there.
    EXPECT_EQ(acceptedOf(report, baseline, {{"numeric-expression-expected"}, {}}).entries.size(),
              2U);
}

TEST(Gate, AcceptOfAProgram) {
    const ReportFinding shared = valueCut("inc.pgm", 2, "$a = 1e3");
    const Report report = reportOf({converted("a.pgm", 1, 1, {rewrite("a.pgm", 1, "x"), shared}),
                                    converted("b.pgm", 1, 1, {rewrite("b.pgm", 1, "x"), shared})});
    EXPECT_EQ(counts(acceptedOf(report, {}, {{}, {"b.pgm"}})),
              (Counts{{"b.pgm", 1}, {"inc.pgm", 1}}));
    EXPECT_EQ(counts(acceptedOf(report, {}, {{"value-cut"}, {"b.pgm"}})), (Counts{{"inc.pgm", 1}}));
    EXPECT_TRUE(acceptedOf(report, {}, {{}, {"c.pgm"}}).entries.empty());
}

TEST(Gate, AcceptPrunes) {
    const ReportFinding first = valueCut("a.pgm", 2, "$a = 1e3");
    const ReportFinding second = valueCut("a.pgm", 5, "$a = 1e3");
    const Baseline old =
        acceptedOf(reportOf({converted("a.pgm", 1, 1, {first, second}),
                             converted("gone.pgm", 1, 1, {rewrite("gone.pgm", 1, "x")})}));
    EXPECT_EQ(counts(old), (Counts{{"a.pgm", 2}, {"gone.pgm", 1}}));
    // Also where only something else is accepted.
    EXPECT_EQ(counts(acceptedOf(programWith({second}), old, {{"octal"}, {}})),
              (Counts{{"a.pgm", 1}}));
}

TEST(Gate, WhatAPersonIsTold) {
    Baseline baseline;
    baseline.entries = {{"gone.pgm", "octal", std::string(32, '0'), 2, 4, "$a = 010"}};
    EXPECT_EQ(gateText(gateOf(plant(), baseline), 2),
              "3 new findings:\n"
              "  line1/main.pgm:3: Expected a numeric expression. [numeric-expression-expected]\n"
              "  shared/io.pgm:2: Text behind the value of an assignment is dropped. [value-cut]\n"
              "  and 1 more\n"
              "1 entry of the baseline is no longer needed; `torvel-migrate accept` takes it out:\n"
              "  gone.pgm: $a = 010 (2 times) [octal]\n");
    ReportFinding hostile = rewrite("a\n\x1B[2J.pgm", 1, "x");
    EXPECT_EQ(gateText(gateOf(programWith({hostile}), Baseline()), 2),
              "1 new finding:\n"
              "  a␊␛[2J.pgm:1: Expected a numeric expression. [numeric-expression-expected]\n");
}

TEST(Baseline, Text) {
    Baseline baseline;
    const std::string hash(32, 'a');
    baseline.entries = {{"b.pgm", "octal", hash, 1, 7, "$a = 010"},
                        {"a.pgm", "value-cut", hash, 2, 2, "$a = 1e3"},
                        {"a.pgm", "octal", hash, 1, 0, "say \"x\""}};
    EXPECT_EQ(baselineText(baseline), R"({
  "format": 1,
  "writer": "torvel-migrate 1.0.0",
  "findings": [
    {"file": "a.pgm", "code": "octal", "text": "say \"x\"", "count": 1, "line": 0, "hash": "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"},
    {"file": "a.pgm", "code": "value-cut", "text": "$a = 1e3", "count": 2, "line": 2, "hash": "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"},
    {"file": "b.pgm", "code": "octal", "text": "$a = 010", "count": 1, "line": 7, "hash": "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"}
  ]
}
)");
    EXPECT_EQ(baselineText({}),
              "{\n  \"format\": 1,\n  \"writer\": \"torvel-migrate 1.0.0\",\n"
              "  \"findings\": []\n}\n");
}

TEST(Baseline, IsReadAsItWasWritten) {
    const Baseline baseline = acceptedOf(plant());
    EXPECT_EQ(parseBaseline(baselineText(baseline), "b.json"), baseline);
    const Baseline hostile = acceptedOf(hostileReport());
    ASSERT_EQ(hostile.entries.size(), 1U);
    const std::string text = baselineText(hostile);
    // A line of a megabyte is a hash and its beginning.
    EXPECT_LT(text.size(), 1000U);
    const Baseline back = parseBaseline(text, "b.json");
    EXPECT_EQ(back, hostile);
    EXPECT_FALSE(gateOf(hostileReport(), back).fails());
    EXPECT_TRUE(parseBaseline(baselineText({}), "b.json").entries.empty());
}

TEST(Baseline, Damaged) {
    const std::string advice =
        ". Take its last good version from version control, or remove it and write it anew with "
        "`torvel-migrate accept`.";
    const std::string good = baselineText(acceptedOf(plant()));
    EXPECT_TRUE(failureOf("").starts_with("The baseline 'b.json' cannot be used: parse error at "));
    EXPECT_TRUE(failureOf("").ends_with(advice));
    EXPECT_TRUE(failureOf("<<<<<<< HEAD\n" + good).ends_with(advice));
    EXPECT_TRUE(failureOf("[]").ends_with(advice));
    EXPECT_TRUE(failureOf("{\"format\": 1}").ends_with(advice));
    EXPECT_TRUE(failureOf("{\"format\": \"1\", \"findings\": []}").ends_with(advice));
    EXPECT_TRUE(failureOf("{\"format\": 1, \"findings\": [{}]}").ends_with(advice));
    EXPECT_TRUE(failureOf("{\"format\": 1, \"findings\": [1]}").ends_with(advice));
    EXPECT_TRUE(failureOf("{\"format\": 1, \"findings\": {}}").ends_with(advice));
    EXPECT_TRUE(failureOf(std::string(1U << 16U, '[')).ends_with(advice));
    // Cut off anywhere, it is no baseline.
    for (std::size_t length = 0; length + 2 < good.size(); length += 7) {
        EXPECT_NE(failureOf(good.substr(0, length)), "none") << length;
    }
    EXPECT_EQ(failureOf("{\"format\": 0, \"findings\": []}"),
              "The baseline 'b.json' cannot be used: there is no format 0" + advice);
    const std::string hash(32, 'a');
    Baseline twice;
    twice.entries = {{"a.pgm", "octal", hash, 1, 7, "x"}, {"a.pgm", "octal", hash, 1, 8, "x"}};
    EXPECT_EQ(failureOf(baselineText(twice)),
              "The baseline 'b.json' cannot be used: an entry of 'a.pgm' stands twice" + advice);
    for (const BaselineEntry& entry : {BaselineEntry{"a.pgm", "octal", hash, 0, 1, ""},
                                       BaselineEntry{"a.pgm", "octal", "x", 1, 1, ""},
                                       BaselineEntry{"a.pgm", "octal", hash + "a", 1, 1, ""}}) {
        EXPECT_EQ(failureOf(baselineText({{entry}})),
                  "The baseline 'b.json' cannot be used: an entry of 'a.pgm' with the code 'octal' "
                  "has a number or hash that cannot be" +
                      advice);
    }
}

TEST(Baseline, OfANewerVersion) {
    EXPECT_EQ(
        failureOf("{\"format\": 2, \"writer\": \"torvel-migrate 3.1.0\", \"findings\": [{}]}"),
        "The baseline 'b.json' cannot be used: it was written by torvel-migrate 3.1.0, in a "
        "newer format than this version knows. Use that version or a later one.");
}

TEST(Baseline, IsReplacedAsAWhole) {
    const torvel::test::TemporaryDirectory directory;
    const NativePath path = directory.path() / "migration-baseline.json";
    bool isThere = true;
    EXPECT_TRUE(readBaseline(path, isThere).entries.empty());
    EXPECT_FALSE(isThere);
    const Baseline baseline = acceptedOf(plant());
    writeBaseline(path, baseline);
    writeBaseline(path, baseline);
    EXPECT_EQ(readBaseline(path, isThere), baseline);
    EXPECT_TRUE(isThere);
    EXPECT_EQ(torvel::test::readFile(path), baselineText(baseline));
    // Nothing else is left in the folder.
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(directory.path()), {}), 1);
    EXPECT_THROW(writeBaseline(directory.path() / "none" / "b.json", baseline), std::runtime_error);
    EXPECT_THROW(writeBaseline(directory.path(), baseline), std::runtime_error);
    EXPECT_THROW(readBaseline(directory.path(), isThere), std::runtime_error);
}

}  // namespace torvel::migrate::test
