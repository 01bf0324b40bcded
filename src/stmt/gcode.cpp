// A line of G-code stays one: each word is written as it is, its value translated. Words stand with
// one blank between them.

#include "src/stmt/gcode.h"

#include <algorithm>

#include "src/expr/axis-lists.h"
#include "src/expr/expressions.h"
#include "src/expr/number-text.h"
#include "src/lex/characters.h"
#include "src/lex/lexer.h"

namespace torvel {

namespace {

constexpr TokenType words[] = {
    TokenType::GCODE_WORD,    TokenType::LETTER_E,         TokenType::LETTER_F,
    TokenType::LETTER_G,      TokenType::LETTER_I,         TokenType::LETTER_J,
    TokenType::LETTER_K,      TokenType::LETTER_L,         TokenType::LETTER_M,
    TokenType::LETTER_N,      TokenType::LETTER_O,         TokenType::LETTER_P,
    TokenType::LETTER_Q,      TokenType::LETTER_R,         TokenType::LETTER_S,
    TokenType::LETTER_T,      TokenType::AXIS_NAME,        TokenType::AXIS_DEFINE,
    TokenType::AXIS_FEEDRATE, TokenType::APTGLOB_VARIABLE, TokenType::APTTASK_VARIABLE,
};

constexpr std::int32_t refusedGcodes[] = {45,  46,  47,  51,  52,  83,  84,  110, 111,
                                          112, 113, 143, 144, 149, 153, 212, 213, 295,
                                          296, 297, 395, 396, 397, 495, 496, 497};

constexpr std::int32_t refusedMcodes[] = {19, 23,  24,  25,  33,  34,  35,  43,  44,  45,  46, 97,
                                          98, 123, 124, 133, 134, 143, 144, 146, 219, 319, 419};

/// Codes whose argument, the next word, is a time.
constexpr std::int32_t dwellGcodes[] = {4, 43, 60, 61, 65, 66, 165, 166};

template <std::size_t count>
bool contains(const std::int32_t (&numbers)[count], std::int32_t number) {
    return std::find(std::begin(numbers), std::end(numbers), number) != std::end(numbers);
}

/// Gnumber
bool writeGcode(Statement& statement, bool& expectsDwell) {
    const std::string_view number = statement.cursor.text().substr(1);
    statement.cursor.advance();
    const std::optional<std::int32_t> code = parseIntegerText(number);
    if (!code) {
        return refuse(statement, Message::IntegerLiteralExpected);
    }
    if (contains(refusedGcodes, *code)) {
        return logConversionMessage(statement.context, Message::GcodeUnsupported, {number});
    }
    expectsDwell = contains(dwellGcodes, *code);
    statement.text += 'G';
    statement.text += number;
    return true;
}

/// M number
bool writeMcode(Statement& statement) {
    ExpressionText number;
    if (!translateNumericLiteral(statement.context, statement.cursor, number)) {
        return false;
    }
    const std::optional<std::int32_t> code = parseIntegerText(number);
    if (!code) {
        return refuse(statement, Message::IntegerLiteralExpected);
    }
    if (contains(refusedMcodes, *code)) {
        return logConversionMessage(statement.context, Message::McodeUnsupported, {number});
    }
    statement.text += 'M';
    statement.text += number;
    return true;
}

/// name [=] value
bool writeWord(Statement& statement, std::string_view name) {
    statement.text += name;
    accept(statement, TokenType::ASSIGN);
    return writeExpression(statement);
}

/// name [=] value, where the name begins with an axis of `axisLength` bytes. If name and value together
/// begin with a longer axis name, as "X" and "10" do with the axes X and X1, the value stands in
/// parentheses.
bool writeAxisValue(Statement& statement, std::string_view name, std::size_t axisLength) {
    StatementText& text = statement.text;
    const std::size_t start = text.size();
    if (!writeWord(statement, name)) {
        return false;
    }
    const AxisNames& axes = statement.context.axes;
    if (axes.goesOnWith(text[start + axisLength]) &&
        axisNameLength(std::string_view(text).substr(start), axes) > name.size()) {
        text.insert(start + name.size(), 1, '(');
        text += ')';
    }
    return true;
}

/// axis [[=] value]: the value may be left out at the end and in front of another axis.
bool writeAxisWord(Statement& statement, std::string_view axis) {
    if (statement.cursor.atEnd() || isAxis(statement.cursor.type())) {
        statement.text += axis;
        return true;
    }
    return writeAxisValue(statement, axis, axis.size());
}

/// N number
bool writeLineNumber(Statement& statement) {
    const auto number =
        expectToken(statement.context, statement.cursor, TokenType::INTEGER_LITERAL);
    if (!number) {
        return false;
    }
    statement.text += 'N';
    statement.text += *number;
    return true;
}

/// An address letter; in the place of a dwell's argument F is P.
bool writeLetter(Statement& statement, TokenType letter, bool isDwell) {
    const char name = isDwell ? 'P' : upperCase(statement.cursor.text()[0]);
    statement.cursor.advance();
    const bool isIndexed = statement.cursor.is(TokenType::LEFT_BRACKET);
    switch (letter) {
        case TokenType::LETTER_G:
            return refuse(statement, isIndexed ? Message::GcodeIndexUnsupported
                                               : Message::IntegerLiteralExpected);
        case TokenType::LETTER_M: return writeMcode(statement);
        case TokenType::LETTER_N: return writeLineNumber(statement);
        case TokenType::LETTER_S:
            if (isIndexed) {
                return refuse(statement, Message::SpindleIndexUnsupported);
            }
            break;
        default: break;
    }
    return writeWord(statement, std::string_view(&name, 1));
}

bool writeLineWord(Statement& statement, bool& expectsDwell) {
    TokenCursor& cursor = statement.cursor;
    const TokenType type = cursor.type();
    if (!isOneOf(type, words)) {
        return reportUnexpectedToken(statement.context, cursor, words);
    }
    const bool isDwell = expectsDwell;
    expectsDwell = false;
    if (isDwell && type != TokenType::LETTER_F && type != TokenType::LETTER_P) {
        return refuse(statement, Message::IntegerLiteralExpected);
    }
    switch (type) {
        case TokenType::GCODE_WORD: return writeGcode(statement, expectsDwell);
        case TokenType::APTGLOB_VARIABLE:
        case TokenType::APTTASK_VARIABLE: return refuse(statement, Message::AxisPointUnsupported);
        case TokenType::AXIS_NAME:
        case TokenType::AXIS_FEEDRATE:
        case TokenType::AXIS_DEFINE: {
            const std::string_view name =
                type == TokenType::AXIS_DEFINE ? cursor.value() : cursor.text();
            cursor.advance();
            return type == TokenType::AXIS_FEEDRATE
                       ? writeAxisValue(statement, name, name.size() - 1)
                       : writeAxisWord(statement, name);
        }
        default: return writeLetter(statement, type, isDwell);
    }
}

}  // namespace

bool translateGcodeStatement(Statement& statement) {
    bool expectsDwell = false;
    bool isFirst = true;
    while (!statement.cursor.atEnd()) {
        if (!isFirst) {
            statement.text += ' ';
        }
        isFirst = false;
        if (!writeLineWord(statement, expectsDwell)) {
            return false;
        }
    }
    return true;
}

}  // namespace torvel
