#pragma once

#include "src/stmt/statement.h"

namespace torvel {

// The motion statements that are no rows of motion.def. Their forms stand above the routines.

bool convertFreerun(Statement& statement);
bool convertWait(Statement& statement);
bool convertPvt(Statement& statement);
bool convertCircularMove(Statement& statement);

}  // namespace torvel
