#pragma once

#include "src/expr/parser-core.h"

namespace torvel {

/// Translates what stands behind the "=" of an assignment: a command that returns a value, or an expression.
void translateAssignmentValue(Statement& statement, ExpressionText& out);

}  // namespace torvel
