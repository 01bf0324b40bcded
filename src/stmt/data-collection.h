#pragma once

#include "src/stmt/statement.h"

namespace torvel {

// DATACOLLECT by the word behind it; the cursor stands behind that word. `lead` is not used.

bool convertCollectionStart(Statement& statement, std::string_view lead);
bool convertCollectionItem(Statement& statement, std::string_view lead);

}  // namespace torvel
