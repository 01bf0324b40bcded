#pragma once

#include "src/expr/parser-core.h"
#include "src/expr/precedence.h"

namespace torvel {

/// Whether a token begins a numeric variable, an I/O point, a parameter or a status word.
bool isNumericVariable(TokenType type);

/// Whether the current token is a whole reference to a variable, which is written as it stands: one of the program's
/// own without an index.
inline bool isBareVariable(const TokenCursor& cursor) {
    const TokenType following = cursor.following();
    return cursor.is(TokenType::VARIABLE) && following != TokenType::LEFT_BRACKET &&
           following != TokenType::DOT;
}

/// Translates a variable to be assigned to, with its index and selector. True: Torvel assigns by a call, and the
/// text is the call up to its value, which the caller adds with a ")".
bool translateAssignmentTarget(Statement& statement, ExpressionText& out);

/// Translates a variable that is read, with its index and selector.
void translateVariableRead(Statement& statement, ExpressionText& out);

/// What stands in the brackets of an element: digits at the end of the variable's name and an expression in
/// brackets, their sum if both are there. No index leaves `out` as it is.
void translateIndex(Statement& statement, std::string_view digits, ExpressionText& out);

/// "[" expression "]", the expression alone being appended.
Precedence translateBracketed(Statement& statement, ExpressionText& out);

/// The same as the right side of a sum.
ExpressionText translateBracketedAddend(Statement& statement);

/// A table of names by legacy number.
enum class ItemTable : std::uint8_t {
    none,
    axisParameter,
    taskParameter,
    systemParameter,
    axisStatus,
    taskStatus,
    systemStatus,
};

/// What a site's rows of a table are.
ReferenceKind referenceKindOf(ItemTable table);

/// Appends the Torvel name of an item; refuses one that there is not or that was removed. The tokens of its number
/// are those from `first` up to the cursor.
void translateItem(Statement& statement, ItemTable table, std::int32_t number, const Token* first,
                   ExpressionText& out);

}  // namespace torvel
