#include "src/expr/named-operands.h"

#include <algorithm>
#include <vector>

#include "src/expr/expressions.h"
#include "src/expr/number-checks.h"
#include "src/expr/number-text.h"

namespace torvel {

namespace {

/// What a set does with an operand that it has no name for.
struct SetRules {
    OperandSet set{};
    bool isNumber = false;
    /// The name of what is left out, or of any other number or value.
    std::optional<std::string_view> otherName;
    std::optional<Message> notConstant;
    std::optional<Message> unknown;
    std::optional<Message> placeholder;
};

/// By OperandSet.
constexpr SetRules setRules[] = {
#define WORDS(set) {OperandSet::set, false, {}, {}, {}, {}},
#define WORDS_OR(set, name) {OperandSet::set, false, name, {}, {}, {}},
#define NUMBERS(set, notConstant, unknown) \
    {OperandSet::set, true, {}, Message::notConstant, Message::unknown, {}},
#define NUMBERS_OR(set, notConstant, name) \
    {OperandSet::set, true, name, Message::notConstant, {}, {}},
#define NUMBERS_OR_PLACEHOLDER(set, placeholder, message) \
    {OperandSet::set, true, placeholder, {}, {}, Message::message},
#include "src/expr/named-operands.def"
};

struct WordName {
    OperandSet set;
    TokenType word;
    std::string_view name;
};

constexpr WordName wordNames[] = {
#define WORD_NAME(set, word, name) {OperandSet::set, TokenType::word, name},
#include "src/expr/named-operands.def"
};

struct NumberName {
    OperandSet set;
    std::int32_t number;
    std::string_view name;
};

constexpr NumberName numberNames[] = {
#define NUMBER_NAME(set, number, name) {OperandSet::set, number, name},
#include "src/expr/named-operands.def"
};

const SetRules& rulesOf(OperandSet set) {
    return setRules[static_cast<std::size_t>(set)];
}

/// The name of the current token if it is a word of the set.
const WordName* findWord(const Statement& statement, OperandSet set) {
    const auto* const row = std::find_if(
        std::begin(wordNames), std::end(wordNames),
        [&](const WordName& each) { return each.set == set && statement.cursor.is(each.word); });
    return row == std::end(wordNames) ? nullptr : row;
}

void reportNoWord(Statement& statement, OperandSet set) {
    std::vector<TokenType> words;
    for (const WordName& row : wordNames) {
        if (row.set == set) {
            words.push_back(row.word);
        }
    }
    reportUnexpectedToken(statement, words);
}

void translateWord(Statement& statement, OperandSet set, Presence presence, ExpressionText& out) {
    const bool isRequired =
        presence == Presence::required ||
        (presence == Presence::behindComma && acceptToken(statement, TokenType::COMMA));
    const WordName* const row =
        isRequired || presence == Presence::optional ? findWord(statement, set) : nullptr;
    if (row != nullptr) {
        statement.cursor.advance();
        out += row->name;
    } else if (isRequired) {
        reportNoWord(statement, set);
    } else {
        out += *rulesOf(set).otherName;
    }
}

/// The name of a number; null: the set has none.
const NumberName* findNumber(OperandSet set, std::optional<std::int32_t> number) {
    const auto* const row = std::find_if(
        std::begin(numberNames), std::end(numberNames),
        [&](const NumberName& each) { return each.set == set && each.number == number; });
    return row == std::end(numberNames) ? nullptr : row;
}

}  // namespace

void checkOctalName(const Statement& statement, OperandSet set, std::string_view text,
                    const Token* first) {
    if (statement.context.record == nullptr) {
        return;
    }
    const std::optional<std::int32_t> decimal = decimalReading(text);
    if (decimal && findNumber(set, parseIntegerText(text)) != findNumber(set, decimal)) {
        noteCheck(statement, Check::Octal, first);
    }
}

void translateNamedOperand(Statement& statement, OperandSet set, Presence presence,
                           ExpressionText& out) {
    if (!rulesOf(set).isNumber) {
        translateWord(statement, set, presence, out);
        return;
    }
    ExpressionText text;
    const Token* const first = statement.cursor.place();
    {
        const UnwrittenOperand unwritten(statement);
        translateExpression(statement, text);
    }
    checkOctalName(statement, set, text, first);
    writeNumberName(statement, set, text, out);
}

void writeNumberName(Statement& statement, OperandSet set, std::string_view text,
                     ExpressionText& out) {
    const SetRules& rules = rulesOf(set);
    const std::optional<std::int32_t> number = parseIntegerText(text);
    if (!number && rules.notConstant) {
        refuse(statement, *rules.notConstant);
        return;
    }
    const NumberName* const row = findNumber(set, number);
    if (row != nullptr) {
        out += row->name;
    } else if (rules.unknown) {
        refuse(statement, *rules.unknown);
    } else {
        out += *rules.otherName;
        if (rules.placeholder) {
            logConversionMessage(statement, *rules.placeholder);
        }
    }
}

}  // namespace torvel
