#pragma once

#include "src/stmt/statement.h"

namespace torvel {

bool convertDvar(Statement& statement);
bool convertDvars(Statement& statement);

}  // namespace torvel
