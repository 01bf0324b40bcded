// A line of G-code stays one: each word is written as it is, its value translated. Words stand with
// one blank between them.

#include <array>

#include "src/base/characters.h"
#include "src/expr/axis-lists.h"
#include "src/expr/expressions.h"
#include "src/expr/number-checks.h"
#include "src/expr/number-text.h"
#include "src/lex/lexer.h"
#include "src/stmt/routines.h"

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

/// By kind of token whether it is one of them.
constexpr auto beginsWord = [] {
    std::array<bool, tokenTypeCount + 2> kinds{};
    for (const TokenType word : words) {
        kinds[static_cast<std::uint32_t>(word)] = true;
    }
    return kinds;
}();

/// Which numbers stand in a list.
template <std::size_t count>
struct CodeSet {
    explicit consteval CodeSet(const std::int32_t (&numbers)[count]) {
        for (const std::int32_t number : numbers) {
            contained[static_cast<std::size_t>(number)] = true;
        }
    }
    bool contains(std::int32_t number) const {
        return number >= 0 && static_cast<std::size_t>(number) < contained.size() &&
               contained[static_cast<std::size_t>(number)];
    }

    std::array<bool, 500> contained{};
};

constexpr CodeSet refusedGcodes({45,  46,  47,  51,  52,  83,  84,  110, 111, 112, 113, 143, 144,
                                 149, 153, 212, 213, 295, 296, 297, 395, 396, 397, 495, 496, 497});

constexpr CodeSet refusedMcodes({19, 23,  24,  25,  33,  34,  35,  43,  44,  45,  46, 97,
                                 98, 123, 124, 133, 134, 143, 144, 146, 219, 319, 419});

/// Codes whose argument, the next word, is a time.
constexpr CodeSet dwellGcodes({4, 43, 60, 61, 65, 66, 165, 166});

/// Whether a code with leading zeros means something else without them: it was refused, or a dwell.
bool isOtherCode(const Statement& statement, std::string_view number,
                 bool (*isSpecial)(std::int32_t code)) {
    const auto decimal =
        statement.context.record == nullptr ? std::nullopt : decimalReading(number);
    return decimal && isSpecial(*decimal) != isSpecial(*parseIntegerText(number));
}

/// Gnumber
void writeGcode(Statement& statement, bool& expectsDwell) {
    const std::string_view number = statement.cursor.text().substr(1);
    const Token* const first = statement.cursor.place();
    statement.cursor.advance();
    if (isOtherCode(statement, number,
                    [](std::int32_t code) { return refusedGcodes.contains(code); }) ||
        isOtherCode(statement, number,
                    [](std::int32_t code) { return dwellGcodes.contains(code); })) {
        noteCheck(statement, Check::Octal, first);
    }
    const std::optional<std::int32_t> code = parseIntegerText(number);
    if (!code) {
        refuse(statement, Message::IntegerLiteralExpected);
    } else if (refusedGcodes.contains(*code)) {
        refuse(statement, Message::GcodeUnsupported, {number});
    } else {
        expectsDwell = dwellGcodes.contains(*code);
    }
    statement.text += 'G';
    statement.text += number;
}

/// M number
void writeMcode(Statement& statement) {
    const Token* const first = statement.cursor.place();
    ExpressionText number;
    translateNumericLiteral(statement, number);
    if (isOtherCode(statement, number,
                    [](std::int32_t code) { return refusedMcodes.contains(code); })) {
        noteCheck(statement, Check::Octal, first);
    }
    const std::optional<std::int32_t> code = parseIntegerText(number);
    if (!code) {
        refuse(statement, Message::IntegerLiteralExpected);
    } else if (refusedMcodes.contains(*code)) {
        refuse(statement, Message::McodeUnsupported, {number});
    }
    statement.text += 'M';
    statement.text += number;
}

bool isNumberToken(TokenType type) {
    return type == TokenType::INTEGER_LITERAL || type == TokenType::HEX_LITERAL ||
           type == TokenType::FLOAT_LITERAL || type == TokenType::NUMBER_DEFINE;
}

/// Whether "=" stands behind a number outside parentheses and brackets.
bool hasComparisonBehindNumber(std::span<const Token> tokens) {
    int depth = 0;
    for (std::size_t at = 1; at < tokens.size(); ++at) {
        const TokenType before = tokens[at - 1].type;
        depth += before == TokenType::LEFT_PAREN || before == TokenType::LEFT_BRACKET ? 1 : 0;
        depth -= before == TokenType::RIGHT_PAREN || before == TokenType::RIGHT_BRACKET ? 1 : 0;
        if (depth == 0 && tokens[at].type == TokenType::ASSIGN && isNumberToken(before)) {
            return true;
        }
    }
    return false;
}

/// Whether a number of the text has an exponent. Only computed ones have, and theirs have a sign.
bool hasExponent(std::string_view text) {
    bool isInString = false;
    for (std::size_t at = 1; at + 2 < text.size(); ++at) {
        isInString = isInString != (text[at - 1] == '"');
        if (!isInString && text[at] == 'e' && (isDigit(text[at - 1]) || text[at - 1] == '.') &&
            (text[at + 1] == '+' || text[at + 1] == '-') && isDigit(text[at + 2])) {
            return true;
        }
    }
    return false;
}

/// What is written behind a word's letter or axis, its tokens beginning at `first`.
void checkWordValue(Statement& statement, const Token* first, std::string_view text) {
    if (hasComparisonBehindNumber({first, statement.cursor.place()})) {
        noteCheck(statement, Check::ComparisonAsValue, first);
    }
    if (text.find('e') != std::string_view::npos && hasExponent(text)) {
        noteCheck(statement, Check::NumberText, first);
    }
}

/// Whether a value that begins so goes on with the word in front of it.
bool beginsGlued(char first) {
    return hasClass(first, letterClass | underscoreClass);
}

void writePlainValue(Statement& statement) {
    acceptToken(statement, TokenType::ASSIGN);
    translateExpression(statement, statement.text);
}

void writeCheckedValue(Statement& statement) {
    const Token* const word = statement.cursor.place() - 1;
    const std::size_t start = statement.text.size();
    const Token* const first = word + (statement.cursor.is(TokenType::ASSIGN) ? 2 : 1);
    writePlainValue(statement);
    const std::string_view text = std::string_view(statement.text).substr(start);
    checkWordValue(statement, first, text);
    if (!text.empty() && beginsGlued(text[0])) {
        noteCheck(statement, Check::GluedWord, word);
    }
}

/// Whether the value is a number in front of the next word, as most are.
bool isPlainNumber(const TokenCursor& cursor) {
    const TokenType type = cursor.type();
    const TokenType next = cursor.following();
    return (type == TokenType::INTEGER_LITERAL || type == TokenType::FLOAT_LITERAL) &&
           (next == TokenType::END_OF_FILE || isAxis(next) || isAddressLetter(next));
}

/// The value where somebody asks for checks.
void writeRecordedValue(Statement& statement) {
    if (isPlainNumber(statement.cursor)) {
        translateExpression(statement, statement.text);  // nothing is to be said of it
    } else {
        writeCheckedValue(statement);
    }
}

/// Whether the E at `letter`, behind a number, reads as its exponent: no blank stands on either side.
bool isExponent(const Token* letter, const Token* end) {
    const auto isDirectlyBehind = [](const Token* token) {
        return token[-1].text.offset + token[-1].text.length == token->text.offset;
    };
    const Token* digits = letter + 1;
    if (digits != end && (digits->type == TokenType::MINUS || digits->type == TokenType::PLUS) &&
        isDirectlyBehind(digits)) {
        ++digits;
    }
    return isDirectlyBehind(letter) && digits != end &&
           digits->type == TokenType::INTEGER_LITERAL && isDirectlyBehind(digits);
}

/// name [=] value, the name being written already
void writeValue(Statement& statement) {
    if (statement.context.record != nullptr) [[unlikely]] {
        writeRecordedValue(statement);
        return;
    }
    writePlainValue(statement);
}

/// The same where the name, of `nameLength` bytes, begins with an axis of `axisLength` bytes. If name and value
/// together begin with a longer axis name, as "X" and "10" do with the axes X and X1, the value stands in
/// parentheses.
void writeAxisValue(Statement& statement, std::size_t nameLength, std::size_t axisLength) {
    StatementText& text = statement.text;
    const std::size_t valueStart = text.size();
    const std::size_t start = valueStart - nameLength;
    writeValue(statement);
    const AxisNames& axes = statement.context.axes;
    if (axes.goesOnWith(text[start + axisLength]) &&
        axisNameLength(std::string_view(text).substr(start), axes) > nameLength) {
        // In parentheses it does not go on with its word.
        if (statement.context.record != nullptr && beginsGlued(text[valueStart])) {
            GrowingArray<RecordedFinding>& findings = statement.context.record->findings;
            findings.truncate(findings.size() - 1);
        }
        parenthesise(text, valueStart);
    }
}

/// axis [[=] value]: the value may be left out at the end and in front of another axis.
void writeAxisWord(Statement& statement, std::string_view axis) {
    statement.text.appendStored(axis);
    if (!statement.cursor.atEnd() && !isAxis(statement.cursor.type())) {
        writeAxisValue(statement, axis.size(), axis.size());
    }
}

/// An address letter; in the place of a dwell's argument F is P.
void writeLetter(Statement& statement, TokenType letter, bool isDwell) {
    const char name = isDwell ? 'P' : upperCase(statement.cursor.text()[0]);
    const Token* const place = statement.cursor.place();
    const TokenType before = statement.cursor.previous();
    statement.cursor.advance();
    const bool isIndexed = statement.cursor.is(TokenType::LEFT_BRACKET);
    switch (letter) {
        case TokenType::LETTER_G:
            refuse(statement,
                   isIndexed ? Message::GcodeIndexUnsupported : Message::IntegerLiteralExpected);
            break;
        case TokenType::LETTER_M: writeMcode(statement); break;
        case TokenType::LETTER_N:
            statement.text += 'N';
            statement.text += expectToken(statement, TokenType::INTEGER_LITERAL);
            break;
        case TokenType::LETTER_S:
            if (isIndexed) {
                refuse(statement, Message::SpindleIndexUnsupported);
            }
            [[fallthrough]];
        default:
            statement.text += name;
            writeValue(statement);
            break;
    }
    const bool isBehindNumber =
        before == TokenType::INTEGER_LITERAL || before == TokenType::FLOAT_LITERAL;
    if (letter == TokenType::LETTER_E && isBehindNumber && statement.context.record != nullptr &&
        isExponent(place, statement.cursor.place())) {
        noteCheck(statement, Check::ExponentWord, place - 1);
    }
}

void writeLineWord(Statement& statement, bool& expectsDwell) {
    TokenCursor& cursor = statement.cursor;
    const TokenType type = cursor.type();
    if (!beginsWord[static_cast<std::uint32_t>(type)]) {
        reportUnexpectedToken(statement, words);
        return;
    }
    const bool isDwell = expectsDwell;
    expectsDwell = false;
    if (isDwell && type != TokenType::LETTER_F && type != TokenType::LETTER_P) {
        refuse(statement, Message::IntegerLiteralExpected);
        return;
    }
    switch (type) {
        case TokenType::GCODE_WORD: writeGcode(statement, expectsDwell); break;
        case TokenType::APTGLOB_VARIABLE:
        case TokenType::APTTASK_VARIABLE: refuse(statement, Message::AxisPointUnsupported); break;
        case TokenType::AXIS_NAME:
        case TokenType::AXIS_DEFINE: {
            const std::string_view axis =
                type == TokenType::AXIS_DEFINE ? cursor.value() : cursor.text();
            if (type == TokenType::AXIS_DEFINE) {
                noteValueUse(statement);
            }
            cursor.advance();
            writeAxisWord(statement, axis);
            break;
        }
        case TokenType::AXIS_FEEDRATE: {
            const std::string_view specifier = cursor.text();
            appendTokenText(type, specifier, statement.text);
            cursor.advance();
            writeAxisValue(statement, specifier.size(), specifier.size() - 1);
            break;
        }
        default: writeLetter(statement, type, isDwell); break;
    }
}

}  // namespace

void translateGcodeStatement(Statement& statement) {
    bool expectsDwell = false;
    writeLineWord(statement, expectsDwell);
    while (!statement.cursor.atEnd()) {
        statement.text += ' ';
        writeLineWord(statement, expectsDwell);
    }
}

}  // namespace torvel
