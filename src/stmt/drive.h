#pragma once

#include "src/stmt/statement.h"

namespace torvel {

// Axis, drive and I/O statements that are no rows of drive.def. Where an axis stands in front of a
// word, the routine is handed it as `lead` and the cursor stands behind the word.

bool convertSetparm(Statement& statement);
bool convertBrake(Statement& statement);
bool convertAutofocus(Statement& statement);
bool convertJoystick(Statement& statement);
bool convertGearOn(Statement& statement, std::string_view lead);
bool convertGearMaster(Statement& statement, std::string_view lead);
bool convertArrayRead(Statement& statement, std::string_view lead);
bool convertPositionOffset(Statement& statement, std::string_view lead);

}  // namespace torvel
