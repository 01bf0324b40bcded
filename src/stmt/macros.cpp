#include "src/stmt/macros.h"

#include "src/expr/axis-lists.h"
#include "src/expr/expressions.h"
#include "src/expr/strings.h"
#include "src/lex/lexer.h"

namespace torvel {

/// Every line of the body is converted, later ones too after one has failed, so that all messages
/// come. One that failed leaves the macro as it was written.
void convertMacroDefinition(Statement& statement, const Macro& macro) {
    const Program& program = statement.context.program;
    std::string body;
    bool isConverted = true;
    GrowingArray<Token> room;
    for (std::size_t line = 0; line < macro.lines.lines.size(); ++line) {
        StatementText text;
        BlockEffect effect{};
        isConverted =
            convertStatement(statement.context,
                             tokensOf(program, macro.lines, line, statement.context.axes, room),
                             text, effect) &&
            isConverted;
        body += line == 0 ? "" : "\n";
        body += text;
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
    statement.text += statement.cursor.text();
    statement.text += '(';
    statement.cursor.advance();
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
