#include "src/expr/number-checks.h"

#include <algorithm>

#include "src/base/characters.h"
#include "src/expr/known-rows.h"
#include "src/expr/number-text.h"

namespace torvel {

namespace {

bool isNumber(TokenType type) {
    return type == TokenType::INTEGER_LITERAL || type == TokenType::HEX_LITERAL ||
           type == TokenType::FLOAT_LITERAL || type == TokenType::NUMBER_DEFINE;
}

/// The text that a number is written with.
TextSpan writtenText(const Program& program, const Token& token) {
    return isPreservedDefine(token.type) ? program.defineTexts[token.number].value : token.text;
}

bool isPredefined(const Program& program, const Token& token) {
    return isNumber(token.type) &&
           program.predefinedTexts.find(writtenText(program, token)).has_value();
}

bool isWrittenInProgram(const Program& program, std::span<const Token> tokens) {
    return std::any_of(tokens.begin(), tokens.end(), [&](const Token& token) {
        return isNumber(token.type) && !isPredefined(program, token);
    });
}

/// Whether a blank stands in front of a sign or behind it: in the line, or where the sign came from a define between
/// its token and the next.
bool isBlankBeside(const ConversionContext& context, const Token& sign, bool isBehind,
                   const Token* neighbour) {
    const TextSpan line = context.record->lineText;
    const std::uint32_t end = sign.text.offset + sign.text.length;
    if (sign.text.offset > line.offset && end < line.offset + line.length) {
        const std::uint32_t place = isBehind ? end : sign.text.offset - 1;
        return isBlank(context.program.text.view({place, 1})[0]);
    }
    if (isPreservedDefine(neighbour->type)) {
        return !isBehind;
    }
    return isBehind ? neighbour->text.offset != end
                    : neighbour->text.offset + neighbour->text.length != sign.text.offset;
}

/// Tells what a parameter or status item is called.
void noteItemPlace(const Statement& statement, ItemTable table, std::int32_t number,
                   const Token* first) {
    const TextSpan lineText = statement.context.record->lineText;
    // One that comes out of a define is told at the define.
    if (first == statement.cursor.place() || placeOf({first, 1}, lineText).empty()) {
        return;
    }
    MessageLog log;
    ConversionContext context = {statement.context.program, statement.context.axes,
                                 statement.context.limits, log, statement.context.position};
    context.reference = statement.context.reference;
    StatementText text;
    Statement item{context, statement.cursor, text};
    translateItem(item, table, number, first, text);
    recordPlace(statement, NamePlace::Kind::item, NamePlace::Role::use, first,
                log.empty() ? std::string_view(text) : log[0].text);
}

}  // namespace

std::optional<std::string_view> findReferenceRow(const Statement& statement, ReferenceKind kind,
                                                 std::uint32_t number, const Token* first) {
    const ConversionContext& context = statement.context;
    if (context.reference == nullptr) {
        return std::nullopt;
    }
    const bool isFromConstant =
        std::any_of(first, statement.cursor.place(),
                    [&](const Token& token) { return isPredefined(context.program, token); });
    return isFromConstant ? std::nullopt : context.reference->find(kind, number);
}

std::optional<std::int32_t> readWithoutZeros(std::string_view text) {
    const std::size_t sign = text.starts_with('-') || text.starts_with('+') ? 1 : 0;
    std::size_t zeros = sign;
    while (zeros + 1 < text.size() && text[zeros] == '0') {
        ++zeros;
    }
    if (zeros == sign || !isDigit(text[zeros])) {
        return std::nullopt;
    }
    const std::optional<std::int32_t> value = parseIntegerText(text);
    if (!value) {
        return std::nullopt;
    }
    const std::optional<std::int32_t> decimal =
        parseIntegerText(std::string(text.substr(0, sign)) + std::string(text.substr(zeros)));
    return decimal == value ? std::nullopt : decimal;
}

void checkOctal(const Statement& statement, std::string_view text, const Token* first) {
    if (statement.context.record != nullptr && decimalReading(text)) {
        noteCheck(statement, Check::Octal, first);
    }
}

void checkRowNumber(Statement& statement, ItemTable table, std::string_view text,
                    const Token* first) {
    if (statement.context.record == nullptr) {
        return;
    }
    checkOctal(statement, text, first);
    const std::optional<std::int32_t> number = parseIntegerText(text);
    if (number && *number >= 0 && !isKnownRow(table, static_cast<std::uint32_t>(*number)) &&
        !findReferenceRow(statement, referenceKindOf(table), static_cast<std::uint32_t>(*number),
                          first) &&
        isWrittenInProgram(statement.context.program, {first, statement.cursor.place()})) {
        noteCheck(statement, Check::ComposedNumber, first);
    }
}

void checkItemNumber(Statement& statement, ItemTable table, std::string_view text,
                     const Token* first) {
    if (statement.context.record == nullptr) {
        return;
    }
    checkRowNumber(statement, table, text, first);
    const std::optional<std::int32_t> number = parseIntegerText(text);
    if (number && statement.context.record->places != nullptr) {
        noteItemPlace(statement, table, *number, first);
    }
}

void checkPrintedNumber(Statement& statement) {
    const Program& program = statement.context.program;
    const Token* const token = statement.cursor.place();
    const std::optional<PredefinedText> text =
        program.predefinedTexts.find(writtenText(program, *token));
    if (!text || !text->isComposed) {
        return;
    }
    // The numbers of one constant are one finding.
    const bool isFirst =
        token->type != TokenType::INTEGER_LITERAL || token->text.offset == text->text.offset ||
        program.text.view({text->text.offset, token->text.offset - text->text.offset})
                .find_first_of("0123456789") == std::string_view::npos;
    if (isFirst) {
        noteCheck(statement, Check::ComposedNumber, token, token + 1);
    }
}

void checkJoinedBySign(Statement& statement, const Token* first) {
    const ConversionContext& context = statement.context;
    if (context.record == nullptr) {
        return;
    }
    const Token* const last = statement.cursor.place();
    int depth = 0;
    for (const Token* token = first; token != last; ++token) {
        const TokenType type = token->type;
        depth += type == TokenType::LEFT_PAREN || type == TokenType::LEFT_BRACKET ? 1 : 0;
        depth -= type == TokenType::RIGHT_PAREN || type == TokenType::RIGHT_BRACKET ? 1 : 0;
        if (depth != 0 || (type != TokenType::MINUS && type != TokenType::PLUS) || token == first ||
            last - token < 2) {
            continue;
        }
        using enum TokenType;
        const TokenType before = token[-1].type;
        const bool isBinary = isNumber(before) || before == RIGHT_PAREN ||
                              before == RIGHT_BRACKET || before == TRUE || before == FALSE ||
                              isAddressLetter(before) || isNumericVariable(before) ||
                              before == AXIS_NAME || before == AXIS_DEFINE;
        if (!isBinary) {
            continue;
        }
        const bool isTight = !isBlankBeside(context, *token, true, token + 1);
        const bool hasBlank = isBlankBeside(context, *token, false, token - 1);
        if (isTight && hasBlank) {
            noteCheck(statement, Check::JoinedBySign, first);
            return;
        }
    }
}

}  // namespace torvel
