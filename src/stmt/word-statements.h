#pragma once

#include "src/stmt/statement.h"

namespace torvel {

/// keyword [operand] word ...: a statement whose word tells what it does. The words are the rows of
/// statements.def.
void convertByWord(Statement& statement);

}  // namespace torvel
