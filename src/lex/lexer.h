#pragma once

#include <span>
#include <string>
#include <string_view>

#include "src/base/program.h"
#include "src/lex/axis-names.h"

namespace torvel {

/// Lexes `code`, a piece of one logical line without comments, and appends its tokens. `position` is the
/// line's: an unknown character or an unterminated string throws a ParseException there. Empty code appends
/// nothing.
void lexLine(const TextStore& text, const AxisNames& axes, TextSpan code,
             const SourcePosition& position, GrowingArray<Token>& tokens);

/// Whether lexLine() might throw for `code`, a text of a TextStore whose quotes pair. It is read
/// in blocks of sixteen bytes.
bool mayBeRefused(std::string_view code);

/// The tokens of a line, in `room`: those that it has already, or else lexed.
LineTokens tokensOf(const Program& program, const LineList& list, std::size_t line,
                    const AxisNames& axes, GrowingArray<Token>& room);

/// Appends a token's text: its source, but "0x" in front of every hexadecimal literal's digits, and an
/// upper-case F behind an axis feedrate specifier.
void appendTokenText(TokenType type, std::string_view source, TextBuffer& out);

/// The length of the axis name that is the first token of `text`, which begins with a word; 0 if its
/// first token is another.
std::size_t axisNameLength(std::string_view text, const AxisNames& axes);

}  // namespace torvel
