#pragma once

#include "src/expr/parser-core.h"

namespace torvel {

/// Translates a call of the built-in function that the current token names; any other token is
/// unexpected.
bool translateFunction(ConversionContext& context, TokenCursor& cursor, ExpressionText& out);

}  // namespace torvel
