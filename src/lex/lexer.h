#pragma once

#include <string_view>

#include "src/base/program.h"
#include "src/lex/axis-names.h"

namespace torvel {

/// Cuts `code`, a piece of one logical line without comments, into tokens and appends them to
/// `list`. `position` is the line's: an unknown character or an unterminated string throws a
/// ParseException there. Empty code appends nothing.
void lexLine(Program& program, LineList& list, const AxisNames& axes, TextSpan code,
             const SourcePosition& position);

/// The length of the axis name that is the first token of `text`, which begins with a word; 0 if its
/// first token is another.
std::size_t axisNameLength(std::string_view text, const AxisNames& axes);

}  // namespace torvel
