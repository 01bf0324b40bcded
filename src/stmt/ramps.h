#pragma once

#include "src/stmt/statement.h"

namespace torvel {

// RAMP by the word behind it; the cursor stands behind that word. `lead` is not used.

bool convertRampMode(Statement& statement, std::string_view lead);
bool convertRampRate(Statement& statement, std::string_view lead);
bool convertRampTime(Statement& statement, std::string_view lead);
bool convertRampType(Statement& statement, std::string_view lead);

}  // namespace torvel
