#pragma once

#include "src/stmt/statement.h"

namespace torvel {

// GALVO and IFOV by the word behind them; the cursor stands behind that word. `lead` is not used.

bool convertIfovSyncAxes(Statement& statement, std::string_view lead);
bool convertIfovAxisPair(Statement& statement, std::string_view lead);
bool convertLaserOverride(Statement& statement, std::string_view lead);
bool convertGalvoRotation(Statement& statement, std::string_view lead);
bool convertGalvoWobble(Statement& statement, std::string_view lead);
bool convertGalvoProjection(Statement& statement, std::string_view lead);

}  // namespace torvel
