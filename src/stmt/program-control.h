#pragma once

#include "src/stmt/statement.h"

namespace torvel {

/// PROGRAM [task [,]] word ...
bool convertProgramControl(Statement& statement);

}  // namespace torvel
