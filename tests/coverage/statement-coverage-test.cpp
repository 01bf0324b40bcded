// Every row of the tables of statements, values, callbacks, functions and variables is used by some
// golden case, with the outcome that the row gives.

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <set>
#include <string>

#include "tests/coverage/golden-rows.h"

namespace torvel::test {

namespace {

/// The kinds of variable that cannot be assigned to: a line that begins with one is never converted.
const std::set<TokenType> refusedTargets = {
#define READ_ONLY(kind, get, index, selector, items, message) TokenType::kind,
#define REFUSED(kind, message) TokenType::kind,
#define PLAIN(kind, name, index)
#define CALL(kind, get, set, index, selector, items)
#include "src/expr/variables.def"
};

/// The message of routines that read their operands and then refuse the statement; empty: any.
std::optional<std::string_view> refusalOfRoutine(const TableRow& row) {
    if (row.token == TokenType::DATACOLLECT && row.word == TokenType::START) {
        return "DatacollectStartNoOneToOne";
    }
    if (row.token == TokenType::IFOV && row.word == TokenType::AXISPAIR) {
        return "IfovAxispairNoOneToOne";
    }
    // G alone begins a line only to be refused: a number belongs to it.
    if (row.token == TokenType::LETTER_G || refusedTargets.contains(row.token)) {
        return "";
    }
    return std::nullopt;
}

/// The text of a row up to its first hole.
std::string_view callOf(const TableRow& row) {
    return row.text.substr(0, row.text.find('{'));
}

/// Whether a line came out as its row says.
bool hasOutcome(const GoldenLine& line, const TableRow& row) {
    if (row.kind == TableRow::Kind::refused) {
        return !line.isConverted && hasLogged(line, row.message);
    }
    if (row.kind == TableRow::Kind::routine) {
        const std::optional<std::string_view> refusal = refusalOfRoutine(row);
        return refusal ? !line.isConverted && (refusal->empty() || hasLogged(line, *refusal))
                       : line.isConverted;
    }
    return line.isConverted && line.text.find(callOf(row)) != std::string::npos &&
           (row.message.empty() || hasLogged(line, row.message));
}

TEST(StatementCoverage, EveryStatementRowIsUsed) {
    Missing missing;
    for (const TableRow& row : statementRows()) {
        missing.unless(
            row.kind == TableRow::Kind::byWord || anyGoldenLine([&](const GoldenLine& line) {
                return isOfRow(line, row) && hasOutcome(line, row);
            }),
            nameOf(row) + (row.text.empty() ? "" : " " + std::string(row.text)));
    }
    EXPECT_TRUE(missing.list().empty()) << "have no golden case:\n" << missing.list();
}

/// Whether the words of the row may also be none of those that it names.
bool hasOtherwise(const TableRow& byWord) {
    return std::any_of(statementRows().begin(), statementRows().end(), [&](const TableRow& row) {
        const TokenType last = row.isSecond ? row.second : row.word;
        return row.isWord && last == TokenType::INVALID && &rowInFrontOf(row) == &byWord;
    });
}

/// A word that a row BY_WORD or WORD_BY_WORD does not have, or none, is reported with those that it has.
TEST(StatementCoverage, EveryKeywordWithWordsRefusesAnother) {
    Missing missing;
    const auto isRefused = [](const TableRow& byWord, const GoldenLine& line) {
        TableRow without = byWord;
        without.isSecond = byWord.isWord;
        without.isWord = true;
        return isOfRow(line, without) && !line.isConverted && line.messages.size() == 1 &&
               line.messages.front().find(" seen. Expected a token of type ") != std::string::npos;
    };
    for (const TableRow& row : statementRows()) {
        if (row.kind == TableRow::Kind::byWord && !hasOtherwise(row)) {
            missing.unless(
                anyGoldenLine([&](const GoldenLine& line) { return isRefused(row, line); }),
                nameOf(row));
        }
    }
    EXPECT_TRUE(missing.list().empty()) << "have no golden case with a wrong word:\n"
                                        << missing.list();
}

TEST(StatementCoverage, EveryValueIsUsed) {
    Missing missing;
    for (const TableRow& row : valueRows()) {
        missing.unless(anyGoldenLine([&](const GoldenLine& line) {
                           return hasValue(line, row) && hasOutcome(line, row);
                       }),
                       nameOf(row));
    }
    EXPECT_TRUE(missing.list().empty()) << "have no golden case as a value:\n" << missing.list();
}

TEST(StatementCoverage, EveryRefusedStringValueIsUsed) {
    Missing missing;
    for (const TableRow& row : stringValueRows()) {
        missing.unless(anyGoldenLine([&](const GoldenLine& line) {
                           return (line.isLedBy(TokenType::STRGLOB_VARIABLE) ||
                                   line.isLedBy(TokenType::GLOBAL_STRING_DEFINE)) &&
                                  hasValue(line, row) && hasOutcome(line, row);
                       }),
                       nameOf(row));
    }
    EXPECT_TRUE(missing.list().empty()) << "have no golden case behind a string variable:\n"
                                        << missing.list();
}

TEST(StatementCoverage, EveryCallbackIsUsed) {
    Missing missing;
    const auto isCalled = [](Message message) {
        return anyGoldenLine([=](const GoldenLine& line) {
            return line.has(TokenType::CALLBACK) && line.logged(message);
        });
    };
#define SERVICE(code, message) missing.unless(isCalled(Message::message), #code);
#define MESSAGE_COMMAND(value, message) missing.unless(isCalled(Message::message), #value);
#define LIBRARY_CALL(function, message) missing.unless(isCalled(Message::message), function);
#include "src/stmt/callbacks.def"
    EXPECT_TRUE(missing.list().empty()) << "have no golden case:\n" << missing.list();
}

TEST(StatementCoverage, EveryFunctionIsUsed) {
    Missing missing;
    for (const TableRow& row : functionRows()) {
        missing.unless(anyGoldenLine([&](const GoldenLine& line) {
                           return hasFunction(line, row) && hasOutcome(line, row);
                       }),
                       nameOf(row));
    }
    for (const StatusRow& row : statusRows()) {
        missing.unless(anyGoldenLine([&](const GoldenLine& line) {
                           return line.isConverted &&
                                  line.hasPair(row.token, TokenType::LEFT_PAREN) &&
                                  line.text.find(row.call) != std::string::npos &&
                                  (row.message.empty() || hasLogged(line, row.message));
                       }),
                       spellingOf(row.token));
    }
    EXPECT_TRUE(missing.list().empty()) << "have no golden case:\n" << missing.list();
}

/// Whether a converted line has a variable of the kind, led by it or not, and `text` in its result.
bool isConvertedVariable(TokenType kind, bool leads, std::string_view text) {
    return anyGoldenLine([=](const GoldenLine& line) {
        return line.isConverted && line.has(kind) && line.isLedBy(kind) == leads &&
               line.text.find(text) != std::string::npos;
    });
}

bool isRefusedTarget(TokenType kind, Message message) {
    return anyGoldenLine([=](const GoldenLine& line) {
        return line.isLedBy(kind) && !line.isConverted && line.logged(message);
    });
}

bool isRefusedVariable(TokenType kind, Message message) {
    return anyGoldenLine([=](const GoldenLine& line) {
        return !line.isConverted && line.has(kind) && line.logged(message);
    });
}

TEST(StatementCoverage, EveryKindOfVariableIsReadAndAssigned) {
    Missing missing;
#define PLAIN(kind, name, index)                                                         \
    missing.unless(isConvertedVariable(TokenType::kind, false, name), "read of " #kind); \
    missing.unless(isConvertedVariable(TokenType::kind, true, name), "assignment to " #kind);
#define CALL(kind, get, set, index, selector, items)                                    \
    missing.unless(isConvertedVariable(TokenType::kind, false, get), "read of " #kind); \
    missing.unless(isConvertedVariable(TokenType::kind, true, set), "assignment to " #kind);
#define READ_ONLY(kind, get, index, selector, items, message)                           \
    missing.unless(isConvertedVariable(TokenType::kind, false, get), "read of " #kind); \
    missing.unless(isRefusedTarget(TokenType::kind, Message::message), "assignment to " #kind);
#define REFUSED(kind, message) \
    missing.unless(isRefusedVariable(TokenType::kind, Message::message), "refusal of " #kind);
#include "src/expr/variables.def"
    EXPECT_TRUE(missing.list().empty()) << "have no golden case:\n" << missing.list();
}

}  // namespace

}  // namespace torvel::test
