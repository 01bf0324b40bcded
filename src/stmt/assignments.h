#pragma once

#include "src/stmt/statement.h"

namespace torvel {

bool convertAssignment(Statement& statement);
bool convertStringAssignment(Statement& statement);

}  // namespace torvel
