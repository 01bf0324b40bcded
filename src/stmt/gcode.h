#pragma once

#include "src/stmt/statement.h"

namespace torvel {

/// A line of G-code words, address letters and axis words, converted word by word.
bool translateGcodeStatement(Statement& statement);

}  // namespace torvel
