// docs/checks.md: every check has an entry whose words are those of its row, and whose example gives the output and
// the findings that it shows. The form of the page is told at its end. Every check is met by a golden case, beside
// a line that has none.

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "tests/support/case-run.h"
#include "tests/support/check-rows.h"
#include "tests/support/temporary-directory.h"
#include "tests/support/text-difference.h"

namespace torvel::test {

namespace {

namespace fs = std::filesystem;

struct Entry {
    std::string heading;
    std::string code;
    /// Its words, with one blank between them.
    std::string text;
    /// By the kind of block.
    std::map<std::string, std::string> blocks;
};

std::vector<Entry> readPage() {
    std::vector<Entry> entries;
    const std::string page = readFile(fs::path(TORVEL_SOURCE_DIR) / "docs/checks.md");
    std::string block;
    for (const std::string_view line : splitLines(page)) {
        if (!block.empty() && line == "```") {
            block.clear();
        } else if (!block.empty()) {
            entries.back().blocks[block] += std::string(line) + '\n';
        } else if (line.starts_with("## ")) {
            entries.emplace_back();  // the text of a section belongs to no entry
        } else if (line.starts_with("### ")) {
            entries.emplace_back().heading = line.substr(4);
        } else if (entries.empty()) {
            continue;
        } else if (line.starts_with("```")) {
            block = line.substr(3);
            entries.back().blocks[block];
        } else if (line.starts_with("<a id=\"")) {
            entries.back().code = line.substr(7, line.size() - 13);
        } else {
            entries.back().text += ' ' + std::string(line);
        }
    }
    std::erase_if(entries, [](const Entry& entry) { return entry.heading.empty(); });
    return entries;
}

const std::vector<Entry>& pageEntries() {
    static const std::vector<Entry> entries = readPage();
    return entries;
}

const CheckRow* findRow(const std::string& code) {
    for (const CheckRow& row : checkRows()) {
        if (row.code == code) {
            return &row;
        }
    }
    return nullptr;
}

bool isCheck(const CheckRow& row) {
    return row.severity != Severity::none;
}

TEST(ChecksPage, EveryCheckHasAnEntryWithItsWords) {
    std::set<std::string> codes;
    for (const Entry& entry : pageEntries()) {
        const CheckRow* const row = findRow(entry.code);
        ASSERT_NE(row, nullptr) << entry.heading << " names no check: " << entry.code;
        EXPECT_TRUE(codes.insert(entry.code).second) << entry.code << " has two entries";
        EXPECT_EQ(entry.heading, row->title);
        for (const std::string_view words : {row->happens, row->todo}) {
            EXPECT_NE(entry.text.find(words), std::string::npos) << entry.code << ": " << words;
        }
        const std::string severity = '*' + std::string(severityName(row->severity)) + '*';
        EXPECT_EQ(entry.text.find(severity) != std::string::npos, isCheck(*row)) << entry.code;
    }
    EXPECT_EQ(codes.size(), checkRows().size());
}

TEST(ChecksPage, ExamplesGiveWhatTheyShow) {
    for (const Entry& entry : pageEntries()) {
        SCOPED_TRACE(entry.code);
        Case test;
        ASSERT_TRUE(entry.blocks.contains("brannic"));
        test.files.push_back({"main.pgm", entry.blocks.at("brannic")});
        test.arguments = {"-o", "out", "main.pgm"};
        const Outcome outcome = runCase(test, test.files, runForChecks);
        EXPECT_EQ(textDifference(entry.blocks.at("torvel") + '\n', outcome.output.value_or("")),
                  "");
        if (!entry.blocks.contains("checks")) {
            EXPECT_FALSE(isCheck(*findRow(entry.code)));
            continue;
        }
        EXPECT_EQ(textDifference(entry.blocks.at("checks"), outcome.checks.value_or("")), "");
        EXPECT_NE(entry.blocks.at("checks").find(' ' + entry.code + '\n'), std::string::npos);
    }
}

/// The lines of source, and the codes that each has.
struct Shown {
    std::set<std::string> codes;
    /// Codes of cases that hold lines without a finding too.
    std::set<std::string> besideQuietLines;
};

Shown shownByCases() {
    Shown shown;
    visitCases(fs::path(TORVEL_SOURCE_DIR) / "tests/golden",
               [&](const std::string&, const std::string&, const fs::path& path) {
                   const Case test = readCase(path);
                   if (!test.expected.checks || test.files.empty()) {
                       return;
                   }
                   std::set<std::string> codes;
                   std::set<std::string> places;
                   for (const std::string_view line : splitLines(*test.expected.checks)) {
                       codes.emplace(line.substr(line.find(' ') + 1));
                       const std::size_t colon = line.find(':');
                       places.emplace(line.substr(0, line.find_first_of(": ", colon + 1)));
                   }
                   shown.codes.insert(codes.begin(), codes.end());
                   if (places.size() < splitLines(test.files.front().content).size()) {
                       shown.besideQuietLines.insert(codes.begin(), codes.end());
                   }
               });
    return shown;
}

TEST(CheckCoverage, EveryCheckIsMetBesideALineThatHasNone) {
    const Shown shown = shownByCases();
    for (const CheckRow& row : checkRows()) {
        if (isCheck(row)) {
            EXPECT_TRUE(shown.codes.contains(std::string(row.code))) << row.code;
            EXPECT_TRUE(shown.besideQuietLines.contains(std::string(row.code))) << row.code;
        }
    }
    for (const std::string& code : shown.codes) {
        EXPECT_NE(findRow(code), nullptr) << code << " is no check";
    }
}

}  // namespace

}  // namespace torvel::test
