#pragma once

#include "src/stmt/statement.h"

namespace torvel {

/// A `#macro`, whose body is converted here.
void convertMacroDefinition(Statement& statement, const Macro& macro);

/// NAME(arguments): a line that calls a macro.
void convertMacroCall(Statement& statement);

}  // namespace torvel
