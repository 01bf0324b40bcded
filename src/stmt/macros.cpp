#include "src/stmt/macros.h"

#include "src/expr/axis-lists.h"
#include "src/expr/expressions.h"
#include "src/expr/strings.h"
#include "src/lex/lexer.h"
#include "src/stmt/argument-checks.h"

namespace torvel {

namespace {

/// Notes the macro behind the facts of its body, which those of a body that is not kept are not.
void noteMacro(Statement& statement, std::string_view name, bool isKept, const RecordMark& mark) {
    CheckRecord& record = *statement.context.record;
    if (!isKept) {
        takeOff(record, mark);
    }
    for (std::size_t fact = mark.facts; fact < record.facts.size(); ++fact) {
        record.facts.data()[fact].isInBody = true;
    }
    noteFact(statement, isKept ? Fact::Kind::macro : Fact::Kind::lostMacro, name,
             statement.cursor.place());
}

}  // namespace

/// Every line of the body is converted, later ones too after one has failed, so that all messages
/// come. One that failed leaves the macro as it was written.
void convertMacroDefinition(Statement& statement, const Macro& macro) {
    const Program& program = statement.context.program;
    std::string body;
    bool isConverted = true;
    GrowingArray<Token> room;
    CheckRecord* const record = statement.context.record;
    const RecordMark mark = record == nullptr ? RecordMark() : markOf(*record);
    std::optional<ArgumentNames> arguments;
    if (record != nullptr) {
        arguments.emplace(program.text.view(macro.head));
    }
    for (std::size_t line = 0; line < macro.lines.lines.size(); ++line) {
        StatementText text;
        BlockEffect effect{};
        if (record != nullptr) {
            record->lineText = macro.lines.lines[line].text;
        }
        const LineTokens tokens =
            tokensOf(program, macro.lines, line, statement.context.axes, room);
        isConverted = convertStatement(statement.context, tokens, text, effect) && isConverted;
        if (record != nullptr) {
            noteEffect(statement, effect, text);
            noteGluedCode(statement.context, tokens, text);
            arguments->noteUses(statement, tokens);
        }
        body += line == 0 ? "" : "\n";
        body += text;
    }
    if (record != nullptr) {
        noteMacro(statement, arguments->macro(), isConverted, mark);
    }
    if (!isConverted) {
        statement.text += program.text.view(macro.unconverted);
        return;
    }
    statement.text += program.text.view(macro.head);
    statement.text += body.empty() ? "" : " ";
    for (const char c : body) {
        if (c == '\n') {
            statement.text += " \\";
        }
        statement.text += c;
    }
}

namespace {

/// An argument is an axis, a string or a number, by the token that begins it.
void writeArgument(Statement& statement, std::string_view macro, std::size_t number) {
    const TokenType type = statement.cursor.type();
    const Token* const first = statement.cursor.place();
    const std::size_t start = statement.text.size();
    if (isAxis(type) || type == TokenType::AT) {
        translateSingleAxis(statement, statement.text);
    } else if (beginsString(statement.cursor)) {
        translateStringExpression(statement, statement.text);
    } else {
        writeExpression(statement);
    }
    if (statement.context.record != nullptr) {
        noteArgument(statement, macro, number, first,
                     std::string_view(statement.text).substr(start));
    }
}

}  // namespace

void convertMacroCall(Statement& statement) {
    const Token* const place = statement.cursor.place();
    const std::string_view name = statement.cursor.text();
    statement.text += name;
    statement.text += '(';
    statement.cursor.advance();
    noteFact(statement, Fact::Kind::macroCall, name, place);
    expectToken(statement, TokenType::LEFT_PAREN);
    std::size_t number = 1;
    if (!statement.cursor.is(TokenType::RIGHT_PAREN)) {
        writeArgument(statement, name, number);
    }
    while (acceptToken(statement, TokenType::COMMA)) {
        statement.text += ", ";
        writeArgument(statement, name, ++number);
    }
    statement.text += ')';
    expectToken(statement, TokenType::RIGHT_PAREN);
}

}  // namespace torvel
