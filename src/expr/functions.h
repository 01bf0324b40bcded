#pragma once

#include "src/expr/parser-core.h"
#include "src/expr/precedence.h"

namespace torvel {

/// Translates a call of the built-in function that the current token names; any other token is
/// unexpected.
Precedence translateFunction(Statement& statement, ExpressionText& out);

}  // namespace torvel
