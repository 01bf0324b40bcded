#include "src/expr/expressions.h"
#include "src/expr/variables.h"
#include "src/stmt/routines.h"

namespace torvel {

namespace {

constexpr TokenType declarable[] = {TokenType::VARIABLE, TokenType::PROGRAM_VARIABLE_DEFINE};

/// [ "[" size "]" ] [ = value ]
void writeSizeAndValue(Statement& statement) {
    if (statement.cursor.is(TokenType::LEFT_BRACKET)) {
        statement.text += '[';
        translateBracketed(statement, statement.text);
        statement.text += ']';
    }
    if (acceptToken(statement, TokenType::ASSIGN)) {
        writeExpression(statement, " = ");
    }
}

/// The names of a declaration, each on a line of its own between "var " and `suffix`. Commas between
/// them may be left out; an "AS type" behind the last is dropped.
void convertNames(Statement& statement, bool withSizes, std::string_view suffix) {
    TokenCursor& cursor = statement.cursor;
    cursor.advance();
    std::string_view prefix = "var ";
    do {
        acceptToken(statement, TokenType::COMMA);
        statement.text += prefix;
        prefix = "\nvar ";
        // A preserved define declares the variable that it stands for.
        const bool isDefine = cursor.is(TokenType::PROGRAM_VARIABLE_DEFINE);
        const std::string_view value = isDefine ? cursor.value() : std::string_view();
        if (isDefine) {
            noteValueUse(statement);
        }
        const Token* const place = cursor.place();
        const std::string_view name = expectToken(statement, declarable);
        if (statement.context.record != nullptr && !statement.isRefused && !isDefine) [[unlikely]] {
            recordPlace(statement, NamePlace::Kind::variable, NamePlace::Role::definition, place);
        }
        statement.text += isDefine ? value : name;
        if (withSizes) {
            writeSizeAndValue(statement);
        }
        statement.text += suffix;
    } while (isOneOf(cursor.type(), declarable) ||
             (cursor.is(TokenType::COMMA) && isOneOf(cursor.following(), declarable)));
    if (cursor.is(TokenType::AS) && cursor.following() == TokenType::IDENTIFIER) {
        const Token* const first = cursor.place();
        cursor.advance();
        cursor.advance();
        noteCheck(statement, Check::OperandDropped, first);
    }
}

}  // namespace

/// DVAR [,] name ["[" size "]"] [= value] {[,] name ...} [AS type]
/// var name[size] = value
void convertDvar(Statement& statement) {
    convertNames(statement, true, {});
}

/// DVARS [,] name {[,] name} [AS type]
/// var name as string
void convertDvars(Statement& statement) {
    convertNames(statement, false, " as string");
}

}  // namespace torvel
