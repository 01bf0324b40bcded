#pragma once

#include "src/expr/parser-core.h"

namespace torvel {

/// Whether a token begins a term of a string expression.
bool isStringTerm(TokenType type);

/// Whether what begins at the cursor is a string rather than a number: a string term, parentheses
/// around it or not.
bool beginsString(TokenCursor cursor);

/// Translates a string expression: terms joined by "+".
void translateStringExpression(Statement& statement, ExpressionText& out);

/// Translates a string that is one argument: a literal or a preserved string define alone, or else a
/// string expression.
void translateStringOperand(Statement& statement, ExpressionText& out);

}  // namespace torvel
