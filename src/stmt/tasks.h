#pragma once

#include "src/stmt/statement.h"

namespace torvel {

// Task control, faults, compensation, zones and normalcy beyond the rows of tasks.def. Where a word
// chose the routine, the cursor stands behind it and `lead` is the operand in front of it.

bool convertCriticalStart(Statement& statement, std::string_view lead);
bool convertMfo(Statement& statement);
bool convertMso(Statement& statement);
bool convertTaskError(Statement& statement);
bool convertTaskWarning(Statement& statement);
bool convertThermocompConfig(Statement& statement, std::string_view lead);
bool convertThermocompUpdate(Statement& statement, std::string_view lead);
bool convertSafezoneType(Statement& statement, std::string_view lead);
bool convertNormalcyOn(Statement& statement, std::string_view lead);
bool convertNormalcyAxes(Statement& statement, std::string_view lead);

}  // namespace torvel
