#include "src/stmt/macros.h"

#include "src/expr/axis-lists.h"
#include "src/expr/expressions.h"
#include "src/expr/strings.h"
#include "src/lex/lexer.h"

namespace torvel {

namespace {

/// The macro's name: what stands between "#macro " and "(".
std::string_view nameOf(std::string_view head) {
    constexpr std::size_t lead = std::string_view("#macro ").size();
    return head.substr(lead, head.find('(') - lead);
}

/// Notes the macro behind the facts of its body, which those of a body that is not kept are not.
void noteMacro(Statement& statement, const Macro& macro, bool isKept, const RecordMark& mark) {
    CheckRecord& record = *statement.context.record;
    if (!isKept) {
        takeOff(record, mark);
    }
    for (std::size_t fact = mark.facts; fact < record.facts.size(); ++fact) {
        record.facts[fact].isInBody = true;
    }
    const std::string_view head = statement.context.program.text.view(macro.head);
    noteFact(statement, isKept ? Fact::Kind::macro : Fact::Kind::lostMacro, nameOf(head),
             statement.cursor.place());
    record.facts.back().value = head;
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
    for (std::size_t line = 0; line < macro.lines.lines.size(); ++line) {
        StatementText text;
        BlockEffect effect{};
        if (record != nullptr) {
            record->lineText = macro.lines.lines[line].text;
        }
        const std::span<const Token> tokens =
            tokensOf(program, macro.lines, line, statement.context.axes, room);
        isConverted = convertStatement(statement.context, tokens, text, effect) && isConverted;
        if (record != nullptr) {
            noteEffect(statement, effect, text);
            noteGluedCode(statement.context, tokens, text);
        }
        body += line == 0 ? "" : "\n";
        body += text;
    }
    if (record != nullptr) {
        noteMacro(statement, macro, isConverted, mark);
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
void writeArgument(Statement& statement) {
    const TokenType type = statement.cursor.type();
    if (isAxis(type) || type == TokenType::AT) {
        translateSingleAxis(statement, statement.text);
    } else if (beginsString(statement.cursor)) {
        translateStringExpression(statement, statement.text);
    } else {
        writeExpression(statement);
    }
}

}  // namespace

void convertMacroCall(Statement& statement) {
    const Token* const name = statement.cursor.place();
    statement.text += statement.cursor.text();
    statement.text += '(';
    statement.cursor.advance();
    noteFact(statement, Fact::Kind::macroCall, statement.context.program.textOf(*name), name);
    expectToken(statement, TokenType::LEFT_PAREN);
    if (!statement.cursor.is(TokenType::RIGHT_PAREN)) {
        writeArgument(statement);
    }
    while (acceptToken(statement, TokenType::COMMA)) {
        statement.text += ", ";
        writeArgument(statement);
    }
    statement.text += ')';
    expectToken(statement, TokenType::RIGHT_PAREN);
}

}  // namespace torvel
