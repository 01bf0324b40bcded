#include "src/stmt/declarations.h"

#include "src/expr/expressions.h"
#include "src/expr/variables.h"

namespace torvel {

namespace {

constexpr TokenType declarable[] = {TokenType::VARIABLE, TokenType::PROGRAM_VARIABLE_DEFINE};

/// [ "[" size "]" ] [ = value ]
bool writeSizeAndValue(Statement& statement) {
    if (statement.cursor.is(TokenType::LEFT_BRACKET)) {
        statement.text += '[';
        if (!translateBracketed(statement.context, statement.cursor, statement.text)) {
            return false;
        }
        statement.text += ']';
    }
    return !accept(statement, TokenType::ASSIGN) || writeExpression(statement, " = ");
}

/// The names of a declaration, each on a line of its own between "var " and `suffix`. Commas between
/// them may be left out; an "AS type" behind the last is dropped.
bool convertNames(Statement& statement, bool withSizes, std::string_view suffix) {
    TokenCursor& cursor = statement.cursor;
    cursor.advance();
    bool isFirst = true;
    do {
        accept(statement, TokenType::COMMA);
        statement.text += isFirst ? "var " : "\nvar ";
        isFirst = false;
        // A preserved define declares the variable that it stands for.
        const bool isDefine = cursor.is(TokenType::PROGRAM_VARIABLE_DEFINE);
        const std::string_view value = isDefine ? cursor.value() : std::string_view();
        const auto name = expectToken(statement.context, cursor, declarable);
        if (!name) {
            return false;
        }
        statement.text += isDefine ? value : *name;
        if (withSizes && !writeSizeAndValue(statement)) {
            return false;
        }
        statement.text += suffix;
    } while (isOneOf(cursor.type(), declarable) ||
             (cursor.is(TokenType::COMMA) && isOneOf(cursor.following(), declarable)));
    if (cursor.is(TokenType::AS) && cursor.following() == TokenType::IDENTIFIER) {
        cursor.advance();
        cursor.advance();
    }
    return true;
}

}  // namespace

/// DVAR [,] name ["[" size "]"] [= value] {[,] name ...} [AS type]
/// var name[size] = value
bool convertDvar(Statement& statement) {
    return convertNames(statement, true, {});
}

/// DVARS [,] name {[,] name} [AS type]
/// var name as string
bool convertDvars(Statement& statement) {
    return convertNames(statement, false, " as string");
}

}  // namespace torvel
