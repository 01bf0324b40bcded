#pragma once

#include "src/expr/parser-core.h"

namespace torvel {

/// Converts the line with `tokens`, at the position that the context names. `text` is emptied first.
/// False: the line cannot be converted, and a message that says why was logged; `effect` counts all the
/// same.
bool convertStatement(ConversionContext& context, std::span<const Token> tokens,
                      StatementText& text, BlockEffect& effect);

/// Writes `prefix` and an expression to the statement's text.
void writeExpression(Statement& statement, std::string_view prefix = {});

}  // namespace torvel
