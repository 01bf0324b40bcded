#pragma once

#include "src/expr/parser-core.h"

namespace torvel {

/// Torvel text of a statement, under construction: one line, or several joined by line feeds.
using StatementText = std::string;

/// What a statement does to the nesting of blocks, and so to the indentation.
enum class BlockEffect : std::uint8_t {
    None = 0,
    Opens = 1,
    Closes = 2,
    /// Closes a branch and opens the next.
    Continues = 3,
};

/// A statement being converted: what its routine reads and what it writes. The cursor stands on the
/// leading token when the routine is called.
struct Statement {
    ConversionContext& context;
    TokenCursor cursor;
    StatementText& text;
    BlockEffect effect = BlockEffect::None;
};

/// Converts one statement. False: it cannot be converted, and a message that says why was logged.
using StatementConverter = bool (*)(Statement&);

/// Converts the line with `tokens`, at the position that the context names. `text` is emptied first.
/// False: the line cannot be converted; `effect` counts all the same.
bool convertStatement(ConversionContext& context, std::span<const Token> tokens,
                      StatementText& text, BlockEffect& effect);

// The verbs of statement routines: those of the parser core and of the expressions, on the statement's
// own context, cursor and text.

inline bool expect(Statement& statement, TokenType type) {
    return expectToken(statement.context, statement.cursor, type).has_value();
}
inline bool accept(Statement& statement, TokenType type) {
    return acceptToken(statement.cursor, type);
}
inline bool refuse(Statement& statement, Message message) {
    return logConversionMessage(statement.context, message);
}
/// Logs a message beside which the statement is converted.
inline void advise(Statement& statement, Message message) {
    logConversionMessage(statement.context, message);
}
/// Translates an expression behind `lead`.
bool writeExpression(Statement& statement, std::string_view lead = {});

}  // namespace torvel
