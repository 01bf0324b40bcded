#pragma once

#include "src/lex/axis-names.h"
#include "src/lex/program.h"

namespace torvel {

/// Cuts `code`, a piece of one logical line without comments, into tokens and appends them to
/// `list`. `position` is the line's: an unknown character or an unterminated string throws a
/// ParseException there. Empty code appends nothing.
void lexLine(Program& program, LineList& list, const AxisNames& axes, TextSpan code,
             const SourcePosition& position);

}  // namespace torvel
