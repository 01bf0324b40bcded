// A line is converted in three steps: what may stand in front of a statement (block delete, labels,
// N-codes), the statement by its leading token, and the check that nothing is left of the line.

#include <array>

#include "src/base/characters.h"
#include "src/expr/expressions.h"
#include "src/expr/form.h"
#include "src/stmt/macros.h"
#include "src/stmt/routines.h"
#include "src/stmt/statement.h"
#include "src/stmt/values.h"
#include "src/stmt/word-statements.h"

namespace torvel {

namespace {

constexpr Form forms[] = {
#define FORM(token, pattern, text) makeForm("", pattern, text),
#define FORM_ADVISED(token, pattern, text, message) makeForm("", pattern, text),
#include "src/stmt/statements.def"
};

/// How a statement is converted.
struct Conversion {
    /// A token without a row begins a value.
    enum class Kind : std::uint8_t { value, routine, form, refused };

    Kind kind = Kind::value;
    bool mustEndLine = true;
    std::uint8_t form = 0;
    /// Why it is refused, or what is told beside the converted text.
    std::optional<Message> message;
    void (*convert)(Statement&) = nullptr;
};

constexpr auto leadingTokens = [] {
    std::array<Conversion, tokenTypeCount> table{};
    using Kind = Conversion::Kind;
    std::uint8_t form = 0;
    const auto at = [&](TokenType type) -> Conversion& {
        return table[static_cast<std::uint32_t>(type)];
    };
#define STATEMENT(token, convert) at(TokenType::token) = {Kind::routine, true, 0, {}, convert};
#define UNCHECKED(token, convert) at(TokenType::token) = {Kind::routine, false, 0, {}, convert};
#define FORM(token, pattern, text) at(TokenType::token) = {Kind::form, true, form++, {}, nullptr};
#define FORM_ADVISED(token, pattern, text, message) \
    at(TokenType::token) = {Kind::form, true, form++, Message::message, nullptr};
#define REFUSED(token, message) \
    at(TokenType::token) = {Kind::refused, true, 0, Message::message, nullptr};
#define BY_WORD(token, lead) at(TokenType::token) = {Kind::routine, true, 0, {}, convertByWord};
#include "src/stmt/statements.def"
    return table;
}();

void convertBy(Statement& statement, const Conversion& conversion) {
    switch (conversion.kind) {
        case Conversion::Kind::value: translateAssignmentValue(statement, statement.text); break;
        case Conversion::Kind::routine: conversion.convert(statement); break;
        case Conversion::Kind::refused: refuse(statement, *conversion.message); break;
        default:
            statement.cursor.advance();
            writeForm(statement, forms[conversion.form], statement.text);
            if (conversion.message) {
                logConversionMessage(statement, *conversion.message);
            }
            break;
    }
}

/// "/" [level] ["/" [level]] in front of a statement that could be skipped.
void skipBlockDelete(Statement& statement) {
    logConversionMessage(statement, Message::BlockDelete);
    statement.cursor.advance();
    if (acceptToken(statement, TokenType::SLASH)) {
        expectToken(statement, TokenType::INTEGER_LITERAL);
        return;
    }
    acceptToken(statement, TokenType::INTEGER_LITERAL);
    if (acceptToken(statement, TokenType::SLASH)) {
        acceptToken(statement, TokenType::INTEGER_LITERAL);
    }
}

/// name ":" or ":" name, on a line of its own in front of the statement; or N number, directly in front of it
/// and without a blank on purpose.
void writeLabel(Statement& statement) {
    TokenCursor& cursor = statement.cursor;
    switch (cursor.type()) {
        case TokenType::IDENTIFIER:
            statement.text += cursor.text();
            cursor.advance();
            noteFact(statement, Fact::Kind::label, statement.text, cursor.place() - 1);
            expectToken(statement, TokenType::COLON);
            statement.text += ":\n";
            break;
        case TokenType::COLON:
            cursor.advance();
            statement.text += expectToken(statement, TokenType::IDENTIFIER);
            noteFact(statement, Fact::Kind::label, statement.text, cursor.place() - 1);
            statement.text += ':';
            break;
        case TokenType::LETTER_N: {
            const Token* const first = cursor.place();
            statement.text += cursor.text();
            cursor.advance();
            statement.text += expectToken(statement, TokenType::INTEGER_LITERAL);
            noteFact(statement, Fact::Kind::label, statement.text, first);
            return;
        }
        default: return;
    }
    if (!cursor.atEnd()) {
        statement.text += '\n';
    }
}

void expectEnd(Statement& statement) {
    if (!statement.cursor.atEnd()) {
        reportUnexpectedToken(statement);
    }
}

/// The statement itself and the check of the line's end.
void dispatch(Statement& statement) {
    const TokenType type = statement.cursor.type();
    if (type == macroDefinitionToken) {
        convertMacroDefinition(statement,
                               statement.context.program.macros[statement.cursor.token().number]);
        return;
    }
    if (type == macroCallToken) {
        convertMacroCall(statement);
        expectEnd(statement);
        return;
    }
    const Conversion& conversion = leadingTokens[static_cast<std::uint32_t>(type)];
    convertBy(statement, conversion);
    if (conversion.mustEndLine) {
        expectEnd(statement);
    }
}

/// What stands in front of a statement; most lines have nothing.
void convertPrologue(Statement& statement) {
    if (statement.cursor.is(TokenType::SLASH)) {
        skipBlockDelete(statement);
    }
    switch (statement.cursor.type()) {
        case TokenType::IDENTIFIER:
        case TokenType::COLON:
        case TokenType::LETTER_N: writeLabel(statement); break;
        default: break;
    }
}

void convert(Statement& statement) {
    const TokenCursor& cursor = statement.cursor;
    if (cursor.is(TokenType::PERCENT)) {
        const Token* const first = cursor.place();
        const bool isAlone = cursor.following() == TokenType::END_OF_FILE;
        statement.cursor.skipToEnd();
        if (!isAlone) {
            noteCheck(statement, Check::PercentLine, first);
        }
        return;
    }
    convertPrologue(statement);
    if (!cursor.atEnd()) {
        dispatch(statement);
    }
}

}  // namespace

bool convertStatement(ConversionContext& context, const LineTokens& tokens, StatementText& text,
                      BlockEffect& effect) {
    text.clear();
    Statement statement{context, TokenCursor(context.program, tokens), text};
    convert(statement);
    effect = statement.effect;
    return !statement.isRefused;
}

std::size_t prologueLength(const ConversionContext& context, const LineTokens& tokens) {
    MessageLog log;
    ConversionContext unrecorded = {context.program, context.axes, context.limits, log,
                                    context.position};
    StatementText text;
    Statement statement{unrecorded, TokenCursor(context.program, tokens), text};
    convertPrologue(statement);
    return static_cast<std::size_t>(statement.cursor.place() - tokens.data());
}

void noteGluedCode(const ConversionContext& context, std::span<const Token> tokens,
                   std::string_view text) {
    if (!mayBeginWithCode(text)) {
        return;
    }
    // What may stand in front of an N-code has no letters.
    for (std::size_t at = 0; at + 1 < tokens.size(); ++at) {
        if (tokens[at].type != TokenType::LETTER_N) {
            continue;
        }
        const std::size_t end = 1 + tokens[at + 1].text.length;
        if (end < text.size() && (isDigit(text[end]) || text[end] == '.')) {
            CheckRecord& record = *context.record;
            record.findings.push_back(recordedFinding(
                Check::GluedWord, columnsOf(context.program, context.position, record.lineText,
                                            tokens.subspan(at, 2))));
        }
        return;
    }
}

void writeExpression(Statement& statement, std::string_view prefix) {
    statement.text += prefix;
    translateExpression(statement, statement.text);
}

}  // namespace torvel
