// docs/limits.md tells what comes of which input: every row names a test that exists, and a message and a
// status that are the test's. What it says of the rules of the languages is converted here.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "src/app/command.h"
#include "tests/coverage/page-tables.h"
#include "tests/support/case-file.h"
#include "tests/support/case-run.h"
#include "tests/support/escapes.h"
#include "tests/support/message-rows.h"
#include "tests/support/temporary-directory.h"
#include "tests/support/text-difference.h"

namespace torvel::test {

namespace {

namespace fs = std::filesystem;

const fs::path root = TORVEL_SOURCE_DIR;

struct PageRow {
    std::string input;
    std::string status;
    std::string message;
    /// "folder/Suite.Name"
    std::string test;
};

std::vector<PageRow> readRows() {
    std::vector<PageRow> rows;
    for (const std::vector<std::string>& cells :
         tableRows(readFile(root / "docs/limits.md"),
                   "| input | what happens | status | message | test |")) {
        rows.push_back({cells[0], cells[2], unquoted(cells[3]), unquoted(cells[4])});
    }
    return rows;
}

/// The path of a case; empty if the name is none of a case.
fs::path casePath(const std::string& test) {
    fs::path found;
    for (const std::string folder : {"golden", "command_line"}) {
        visitCases(root / "tests" / folder,
                   [&](const std::string& subject, const std::string& name, const fs::path& path) {
                       if (test == folder + "/" + replaceAll(subject, "_", "-") + "." + name ||
                           test == folder + "/" + subject + "." + name) {
                           found = path;
                       }
                   });
    }
    return found;
}

/// Whether a source of tests/<folder> has the test: by itself, or as a named row of one that has rows.
bool isInSources(const std::string& test) {
    const std::size_t slash = test.find('/');
    const std::size_t dot = test.find('.');
    if (slash == std::string::npos || dot == std::string::npos) {
        return false;
    }
    const std::string suite = test.substr(slash + 1, dot - slash - 1);
    const std::string name = test.substr(dot + 1);
    for (const auto& entry : fs::directory_iterator(root / "tests" / test.substr(0, slash))) {
        if (entry.path().extension() != ".cpp") {
            continue;
        }
        const std::string source = readFile(entry.path());
        const auto has = [&](const std::string& text) {
            return source.find(text) != std::string::npos;
        };
        const std::string both = "(" + suite + ", " + name + ")";
        if (has("TEST" + both) || has("TEST_F" + both) || has("TEST_P" + both) ||
            (has("TEST_P(" + suite + ", ") && has("\"" + name + "\""))) {
            return true;
        }
    }
    return false;
}

/// A row of what comes of a tree of programs, or of a command for it.
struct TreeRow {
    std::string tree;
    /// Empty if nothing is told.
    std::string told;
    /// "folder/Suite.Name"
    std::string test;
};

std::vector<TreeRow> readTreeRows() {
    std::vector<TreeRow> rows;
    for (const std::string subject : {"tree", "command"}) {
        for (const std::vector<std::string>& cells :
             tableRows(readFile(root / "docs/limits.md"),
                       "| " + subject + " | what happens | what is told | test |")) {
            rows.push_back({cells[0], unquoted(cells[2]), unquoted(cells[3])});
        }
    }
    return rows;
}

/// The literals of the sources of tests/<folder> without what stands between them, so that a sentence over several
/// lines is one.
std::string joinedSources(const std::string& folder) {
    std::string all;
    for (const auto& entry : fs::directory_iterator(root / "tests" / folder)) {
        if (entry.path().extension() == ".cpp") {
            all += readFile(entry.path());
        }
    }
    std::string joined;
    for (std::size_t i = 0; i < all.size(); ++i) {
        const std::size_t next = all[i] == '"' ? all.find_first_not_of(" \n", i + 1) : i;
        if (next > i + 1 && next != std::string::npos && all[next] == '"') {
            i = next;
        } else {
            joined += all[i];
        }
    }
    return joined;
}

/// Whether the pieces between "…" stand in `text`, each behind the one before it and in its line.
bool tells(const std::string& text, const std::string& sentence) {
    std::vector<std::string> pieces;
    std::size_t begin = 0;
    const std::string hole = "…";
    for (std::size_t at = sentence.find(hole); at != std::string::npos;
         at = sentence.find(hole, begin)) {
        pieces.push_back(sentence.substr(begin, at - begin));
        begin = at + hole.size();
    }
    pieces.push_back(sentence.substr(begin));
    std::erase(pieces, "");
    for (std::size_t at = text.find(pieces.front()); at != std::string::npos;
         at = text.find(pieces.front(), at + 1)) {
        const std::string line = text.substr(at, text.find('\n', at) - at);
        std::size_t in = 0;
        if (std::all_of(pieces.begin(), pieces.end(), [&](const std::string& piece) {
                in = line.find(piece, in);
                return in != std::string::npos;
            })) {
            return true;
        }
    }
    return false;
}

/// The symbol of the message that a cell shows; its own text if it is none.
std::string symbolOf(const std::string& text) {
    for (const MessageRow& row : messageRows()) {
        if (replaceAll(row.text, "{}", "…") == text) {
            return std::string(row.symbol);
        }
    }
    const MessageRow* const row = rowOfMessage(text);
    return row == nullptr ? text : std::string(row->symbol);
}

std::set<std::string> expectedSymbols(const Case& test) {
    std::set<std::string> symbols;
    const auto add = [&](const std::string& message) {
        const MessageRow* const row = rowOfMessage(message);
        symbols.insert(row == nullptr ? message : std::string(row->symbol));
    };
    for (const std::string& message : messagesOfLog(test.expected.log.value_or(""))) {
        add(message);
    }
    if (!test.expected.standardError.empty()) {
        add(messageOfStandardError(test.expected.standardError));
    }
    return symbols;
}

/// A row of what the rules of the languages lose.
struct Loss {
    std::string brannic;
    std::string torvel;
    /// Empty if nothing is told.
    std::string message;
};

std::vector<Loss> readLosses() {
    std::vector<Loss> losses;
    for (const std::vector<std::string>& cells :
         tableRows(readFile(root / "docs/limits.md"), "| Brannic | Torvel | message |")) {
        losses.push_back({linesOfCell(cells[0]), linesOfCell(cells[1]), cells[2]});
    }
    return losses;
}

std::string withoutLineEndsBehind(std::string text) {
    text.erase(text.find_last_not_of('\n') + 1);
    return text;
}

TEST(LimitsPage, WhatTheRulesLoseIsWhatTheConverterGives) {
    const std::vector<Loss> losses = readLosses();
    EXPECT_GT(losses.size(), 40U);
    for (const Loss& loss : losses) {
        Case test;
        test.files.push_back({"main.pgm", loss.brannic});
        test.arguments = {"-o", "out", "main.pgm"};
        const Outcome outcome = runCase(test, test.files, runCommand);
        EXPECT_EQ(withoutLineEndsBehind(outcome.output.value_or(outcome.standardError)),
                  loss.torvel);
        const std::vector<std::string> messages = messagesOfLog(outcome.log.value_or(""));
        if (loss.message.empty()) {
            EXPECT_TRUE(messages.empty()) << loss.brannic << ": " << messages.front();
        } else {
            EXPECT_EQ(messages, std::vector<std::string>{loss.message}) << loss.brannic;
        }
    }
}

TEST(LimitsPage, HasRows) {
    EXPECT_GT(readRows().size(), 80U);
}

TEST(LimitsPage, EveryRowNamesATestThatExists) {
    for (const PageRow& row : readRows()) {
        EXPECT_TRUE(!casePath(row.test).empty() || isInSources(row.test))
            << row.input << ": no test is called " << row.test;
    }
}

TEST(LimitsPage, EveryTreeNamesATestThatTellsTheSame) {
    const std::vector<TreeRow> rows = readTreeRows();
    EXPECT_GT(rows.size(), 20U);
    const std::string sources = joinedSources("migrate");
    for (const TreeRow& row : rows) {
        EXPECT_TRUE(isInSources(row.test)) << row.tree << ": no test is called " << row.test;
        EXPECT_TRUE(row.told.empty() || tells(sources, row.told))
            << row.tree << ": no test expects " << row.told;
    }
}

TEST(LimitsPage, EveryRowHasAMessageThatExists) {
    for (const PageRow& row : readRows()) {
        if (!row.message.empty()) {
            EXPECT_NE(findMessageRow(symbolOf(row.message)), nullptr)
                << row.input << ": no message is " << row.message;
        }
        EXPECT_TRUE(row.status == "0" || row.status == "1" || row.status == "0 or 1") << row.input;
    }
}

TEST(LimitsPage, RowsOfCasesTellWhatTheCaseExpects) {
    for (const PageRow& row : readRows()) {
        const fs::path path = casePath(row.test);
        if (path.empty()) {
            continue;
        }
        const Case test = readCase(path);
        EXPECT_EQ(row.status, std::to_string(test.expected.status)) << row.input;
        const std::set<std::string> symbols = expectedSymbols(test);
        EXPECT_FALSE(row.message.empty() && row.status == "1") << row.input;
        EXPECT_TRUE(row.message.empty() || symbols.contains(symbolOf(row.message)))
            << row.input << ": " << path << " does not expect " << row.message;
    }
}

}  // namespace

}  // namespace torvel::test
