#pragma once

#include "src/expr/parser-core.h"

namespace torvel {

/// Converts the line with `tokens`, at the position that the context names. `text` is emptied first.
/// False: the line cannot be converted, and a message that says why was logged; `effect` counts all the
/// same.
bool convertStatement(ConversionContext& context, const LineTokens& tokens, StatementText& text,
                      BlockEffect& effect);

/// How many tokens stand in front of a line's statement: a block delete, labels, an N-code. All of them: there is none.
std::size_t prologueLength(const ConversionContext& context, const LineTokens& tokens);

/// Whether the text of a line may begin with an N-code.
inline bool mayBeginWithCode(std::string_view text) {
    return !text.empty() && (text[0] == 'N' || text[0] == 'n');
}

/// Records an N-code that stands directly in front of a digit in `text`, what the line with `tokens` became.
void noteGluedCode(const ConversionContext& context, std::span<const Token> tokens,
                   std::string_view text);

/// Writes `prefix` and an expression to the statement's text.
void writeExpression(Statement& statement, std::string_view prefix = {});

}  // namespace torvel
