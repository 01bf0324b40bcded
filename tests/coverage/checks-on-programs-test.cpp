// docs/checks.md judges the findings on the examples and on the generated programs: each that is there has its row,
// and each row is met.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>
#include <sstream>
#include <string>

#include "bench/corpus.h"
#include "tests/coverage/page-tables.h"
#include "tests/support/case-run.h"
#include "tests/support/temporary-directory.h"
#include "tests/support/text-difference.h"

namespace torvel::test {

namespace {

namespace fs = std::filesystem;

/// "program file:line code" each.
using Findings = std::set<std::string>;

std::string page() {
    return readFile(fs::path(TORVEL_SOURCE_DIR) / "docs/checks.md");
}

void expectJudgement(const std::string& cell) {
    EXPECT_TRUE(cell == "right" || cell == "wrong") << cell;
}

/// "main.pgm 26, 30-32; inc/names.pgm 5" as "main.pgm:26" and so on.
std::set<std::string> placesOf(const std::string& cell) {
    std::set<std::string> places;
    std::istringstream files(cell);
    for (std::string ofFile; std::getline(files, ofFile, ';');) {
        std::istringstream words(ofFile);
        std::string file;
        words >> file;
        for (std::string range; std::getline(words, range, ',');) {
            const std::size_t dash = range.find('-');
            const int first = std::stoi(range);
            const int last = dash == std::string::npos ? first : std::stoi(range.substr(dash + 1));
            for (int line = first; line <= last; ++line) {
                EXPECT_TRUE(places.insert(file + ':' + std::to_string(line)).second) << cell;
            }
        }
    }
    return places;
}

Findings judgedFindings() {
    Findings findings;
    for (const auto& row : tableRows(page(), "| program | check | places | judged | why |")) {
        expectJudgement(row[3]);
        EXPECT_FALSE(row[4].empty());
        for (const std::string& place : placesOf(row[2])) {
            const std::string finding = unquoted(row[0]) + ' ' + place + ' ' + unquoted(row[1]);
            EXPECT_TRUE(findings.insert(finding).second) << finding << " has two rows";
        }
    }
    return findings;
}

/// The place of a check's line without its columns.
std::string placeOf(std::string_view line) {
    return std::string(line.substr(0, line.find_first_of(": ", line.find(':') + 1)));
}

std::string codeOf(std::string_view line) {
    return std::string(line.substr(line.find(' ') + 1));
}

Findings findingsOfExamples() {
    Findings findings;
    visitCases(
        fs::path(TORVEL_SOURCE_DIR) / "tests/golden/examples",
        [&](const std::string&, const std::string&, const fs::path& path) {
            const Case test = readCase(path);
            const std::string checks = runCase(test, test.files, runForChecks).checks.value_or("");
            for (const std::string_view line : splitLines(checks)) {
                findings.insert(path.stem().string() + ' ' + placeOf(line) + ' ' + codeOf(line));
            }
        });
    return findings;
}

std::string joined(const Findings& findings) {
    std::string text;
    for (const std::string& finding : findings) {
        text += finding + '\n';
    }
    return text;
}

/// The codes of the findings on a generated program of one family of lines.
std::set<std::string> codesOfFamily(const std::string& family) {
    const TemporaryDirectory directory;
    const fs::path program = directory.path() / "program";
    for (const bench::CorpusFile& file : bench::generateCorpus({20'000, 1, {family}})) {
        writeFile(program / file.path, file.text);
    }
    const std::string checks =
        runForChecks({"-o", directory.path().string(), (program / "main.pgm").string()}, {})
            .checks.value_or("");
    std::set<std::string> codes;
    for (const std::string_view line : splitLines(checks)) {
        codes.insert(codeOf(line));
    }
    return codes;
}

}  // namespace

TEST(ChecksOnPrograms, FindingsOfTheExamplesAreJudged) {
    EXPECT_EQ(textDifference(joined(judgedFindings()), joined(findingsOfExamples())), "");
}

TEST(ChecksOnPrograms, FindingsOfGeneratedProgramsAreJudgedByFamily) {
    std::map<std::string, std::set<std::string>> judged;
    for (const auto& row : tableRows(page(), "| family | check | judged | why |")) {
        expectJudgement(row[2]);
        EXPECT_TRUE(judged[unquoted(row[0])].insert(unquoted(row[1])).second) << row[0];
    }
    for (const std::string_view name : bench::corpusFamilies()) {
        const std::string family(name);
        if (family != "includes") {  // it has no lines of its own
            EXPECT_EQ(judged[family], codesOfFamily(family)) << family;
        }
        judged.erase(family);
    }
    EXPECT_TRUE(judged.empty()) << judged.begin()->first << " is no family";
}

}  // namespace torvel::test
