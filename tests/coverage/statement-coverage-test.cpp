// Every row of the tables of statements, values, callbacks, functions and variables is used by some
// golden case, with the outcome that the row gives.

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "tests/coverage/golden-lines.h"

namespace torvel::test {

namespace {

struct KeywordWord {
    TokenType keyword;
    TokenType word;
};

constexpr KeywordWord keywordWords[] = {
#define WORD(token, word, pattern, text) {TokenType::token, TokenType::word},
#define WORD_ADVISED(token, word, pattern, text, message) {TokenType::token, TokenType::word},
#define WORD_ROUTINE(token, word, convert) {TokenType::token, TokenType::word},
#define WORD_REFUSED(token, word, message) {TokenType::token, TokenType::word},
#include "src/stmt/statements.def"
};

bool isWordOf(TokenType keyword, TokenType word) {
    return std::any_of(
        std::begin(keywordWords), std::end(keywordWords),
        [=](const KeywordWord& row) { return row.keyword == keyword && row.word == word; });
}

/// Whether the statement is led by `keyword`, and `word` is the first of its words behind it.
bool isForm(const GoldenLine& line, TokenType keyword, TokenType word) {
    if (!line.isLedBy(keyword)) {
        return false;
    }
    const auto found = std::find_if(line.statement.begin() + 1, line.statement.end(),
                                    [=](TokenType type) { return isWordOf(keyword, type); });
    return found != line.statement.end() && *found == word;
}

/// The kinds of variable that cannot be assigned to: a line that begins with one is never converted.
const std::set<TokenType> refusedTargets = {
#define READ_ONLY(kind, get, index, selector, items, message) TokenType::kind,
#define REFUSED(kind, message) TokenType::kind,
#define PLAIN(kind, name, index)
#define CALL(kind, get, set, index, selector, items)
#include "src/expr/variables.def"
};

/// G alone begins a line only to be refused: a number belongs to it.
bool isNeverConverted(TokenType token) {
    return token == TokenType::LETTER_G || refusedTargets.contains(token);
}

bool isStatement(TokenType token) {
    return anyGoldenLine([=](const GoldenLine& line) {
        return line.isLedBy(token) && (line.isConverted || isNeverConverted(token));
    });
}

bool isAdvised(TokenType token, Message message) {
    return anyGoldenLine([=](const GoldenLine& line) {
        return line.isLedBy(token) && line.isConverted && line.logged(message);
    });
}

bool isRefused(TokenType token, Message message) {
    return anyGoldenLine([=](const GoldenLine& line) {
        return line.isLedBy(token) && !line.isConverted && line.logged(message);
    });
}

bool isWord(TokenType token, TokenType word) {
    return anyGoldenLine(
        [=](const GoldenLine& line) { return line.isConverted && isForm(line, token, word); });
}

bool isAdvisedWord(TokenType token, TokenType word, Message message) {
    return anyGoldenLine([=](const GoldenLine& line) {
        return line.isConverted && line.logged(message) && isForm(line, token, word);
    });
}

bool isRefusedWord(TokenType token, TokenType word, Message message) {
    return anyGoldenLine([=](const GoldenLine& line) {
        return !line.isConverted && line.logged(message) && isForm(line, token, word);
    });
}

/// The routines that read their operands and then refuse the statement.
bool isRoutineWord(TokenType token, TokenType word) {
    if (token == TokenType::DATACOLLECT && word == TokenType::START) {
        return isRefusedWord(token, word, Message::DatacollectStartNoOneToOne);
    }
    if (token == TokenType::IFOV && word == TokenType::AXISPAIR) {
        return isRefusedWord(token, word, Message::IfovAxispairNoOneToOne);
    }
    return isWord(token, word);
}

TEST(StatementCoverage, EveryStatementRowIsUsed) {
    Missing missing;
#define STATEMENT(token, convert) missing.unless(isStatement(TokenType::token), #token);
#define UNCHECKED(token, convert) missing.unless(isStatement(TokenType::token), #token);
#define FORM(token, pattern, text) missing.unless(isStatement(TokenType::token), #token);
#define FORM_ADVISED(token, pattern, text, message) \
    missing.unless(isAdvised(TokenType::token, Message::message), #token);
#define REFUSED(token, message) \
    missing.unless(isRefused(TokenType::token, Message::message), #token " " #message);
#define WORD(token, word, pattern, text) \
    missing.unless(isWord(TokenType::token, TokenType::word), #token " " #word);
#define WORD_ADVISED(token, word, pattern, text, message)                              \
    missing.unless(isAdvisedWord(TokenType::token, TokenType::word, Message::message), \
                   #token " " #word);
#define WORD_ROUTINE(token, word, convert) \
    missing.unless(isRoutineWord(TokenType::token, TokenType::word), #token " " #word);
#define WORD_REFUSED(token, word, message)                                             \
    missing.unless(isRefusedWord(TokenType::token, TokenType::word, Message::message), \
                   #token " " #word);
#include "src/stmt/statements.def"
    EXPECT_TRUE(missing.list().empty()) << "have no golden case:\n" << missing.list();
}

/// A row BY_WORD: a word that it does not have, or none, is reported with the words that it has.
TEST(StatementCoverage, EveryKeywordWithWordsRefusesAnother) {
    Missing missing;
    const auto hasWrongWord = [](TokenType token) {
        return anyGoldenLine([=](const GoldenLine& line) {
            return line.isLedBy(token) && !line.isConverted && line.messages.size() == 1 &&
                   line.messages.front().find(" seen. Expected a token of type ") !=
                       std::string::npos;
        });
    };
#define BY_WORD(token, pattern) missing.unless(hasWrongWord(TokenType::token), #token);
#include "src/stmt/statements.def"
    EXPECT_TRUE(missing.list().empty()) << "have no golden case with a wrong word:\n"
                                        << missing.list();
}

TEST(StatementCoverage, EveryRefusedValueIsUsed) {
    Missing missing;
    const auto isRefusedValue = [](TokenType token, Message message) {
        return anyGoldenLine([=](const GoldenLine& line) {
            return line.hasPair(TokenType::ASSIGN, token) && !line.isConverted &&
                   line.logged(message);
        });
    };
#define VALUE(token, message) \
    missing.unless(isRefusedValue(TokenType::token, Message::message), #token " " #message);
#include "src/stmt/values.def"
    EXPECT_TRUE(missing.list().empty()) << "have no golden case as a value:\n" << missing.list();
}

TEST(StatementCoverage, EveryValueWithARoutineIsUsed) {
    Missing missing;
    for (const TokenType token :
         {TokenType::DBLTOSTR, TokenType::STRMID, TokenType::STRUPR, TokenType::STRLWR,
          TokenType::CALLBACK, TokenType::FILESIZE, TokenType::DSPMEM, TokenType::FLASHPARAM}) {
        missing.unless(anyGoldenLine([=](const GoldenLine& line) {
                           return line.hasPair(TokenType::ASSIGN, token) && line.isConverted;
                       }),
                       tokenTypeName(token));
    }
    EXPECT_TRUE(missing.list().empty()) << "have no golden case as a converted value:\n"
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
    const auto isCalled = [](TokenType keyword, std::string_view call) {
        return anyGoldenLine([=](const GoldenLine& line) {
            return line.isConverted && line.hasPair(keyword, TokenType::LEFT_PAREN) &&
                   line.text.find(call) != std::string::npos;
        });
    };
    const auto isRefusedCall = [](TokenType keyword, Message message) {
        return anyGoldenLine([=](const GoldenLine& line) {
            return line.has(keyword) && !line.isConverted && line.logged(message);
        });
    };
#define FUNCTION(keyword, call, arguments) \
    missing.unless(isCalled(TokenType::keyword, call), #keyword);
#define SPECIAL(keyword, translate) missing.unless(isCalled(TokenType::keyword, "("), #keyword);
#define REFUSED(keyword, message) \
    missing.unless(isRefusedCall(TokenType::keyword, Message::message), #keyword);
#include "src/expr/functions.def"
    EXPECT_TRUE(missing.list().empty()) << "have no golden case:\n" << missing.list();
}

/// Whether a converted line has a variable of the kind, led by it or not, and `text` in its result.
bool isConvertedVariable(TokenType kind, bool leads, std::string_view text) {
    return anyGoldenLine([=](const GoldenLine& line) {
        return line.isConverted && line.has(kind) && line.isLedBy(kind) == leads &&
               line.text.find(text) != std::string::npos;
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
    missing.unless(isRefused(TokenType::kind, Message::message), "assignment to " #kind);
#define REFUSED(kind, message) \
    missing.unless(isRefusedVariable(TokenType::kind, Message::message), "refusal of " #kind);
#include "src/expr/variables.def"
    EXPECT_TRUE(missing.list().empty()) << "have no golden case:\n" << missing.list();
}

}  // namespace

}  // namespace torvel::test
