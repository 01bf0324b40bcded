#pragma once

#include "src/stmt/statement.h"

namespace torvel {

// Blocks, jumps, subroutines. Their forms stand above the routines.

bool convertIf(Statement& statement);
bool convertElse(Statement& statement);
bool convertElseif(Statement& statement);
bool convertFor(Statement& statement);
bool convertNext(Statement& statement);
bool convertWhile(Statement& statement);
bool convertDo(Statement& statement);
bool convertLoop(Statement& statement);
bool convertRepeat(Statement& statement);
bool convertDfs(Statement& statement);
bool convertBlockEnd(Statement& statement);
bool convertEnd(Statement& statement);
bool convertGoto(Statement& statement);
bool convertCall(Statement& statement);
bool convertExit(Statement& statement);
bool convertReturn(Statement& statement);

}  // namespace torvel
