#pragma once

#include "src/expr/parser-core.h"

namespace torvel {

/// Translates a value that may stand on the right of an assignment: a command that returns one, or an
/// expression.
bool translateAssignmentValue(ConversionContext& context, TokenCursor& cursor, ExpressionText& out);

}  // namespace torvel
