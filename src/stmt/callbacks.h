#pragma once

#include "src/expr/parser-core.h"

namespace torvel {

/// CALLBACK code [,] ...: a service of the host, as a value or a statement.
bool translateCallback(ConversionContext& context, TokenCursor& cursor, ExpressionText& out);

}  // namespace torvel
