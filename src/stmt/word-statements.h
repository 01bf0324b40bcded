#pragma once

#include "src/stmt/statement.h"

namespace torvel {

/// keyword [operand] word ...: a statement whose word tells what it does. `leadPattern` is that of the
/// operand in front of the word; the words are the rows of statements.def.
bool convertByWord(Statement& statement, std::string_view leadPattern);

}  // namespace torvel
