#pragma once

#include "src/expr/parser-core.h"
#include "src/expr/precedence.h"

namespace torvel {

/// Translates a numeric expression of any precedence. Stops at the first token that cannot continue
/// it. Sums of plain numbers become one number. Tells how loosely the text binds.
Precedence translateExpression(Statement& statement, ExpressionText& out);

/// Translates one operand with the signs in front of it.
Precedence translateUnary(Statement& statement, ExpressionText& out);

/// Translates one operand: a literal, a variable, an expression in parentheses, or a function call.
Precedence translatePrimary(Statement& statement, ExpressionText& out);

/// Translates a literal, the name of a preserved number, ".5", TRUE or FALSE.
void translateNumericLiteral(Statement& statement, ExpressionText& out);

/// Whether the text that the cursor has just left is wholly a number. A define's name is none, not
/// even one that is spelled "inf" or "nan".
bool isNumberText(const TokenCursor& cursor, std::string_view text);

}  // namespace torvel
