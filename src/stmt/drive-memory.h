#pragma once

#include "src/stmt/statement.h"

namespace torvel {

bool convertDriveMemoryWrite(Statement& statement);

/// DSPMEM axis type [,] address, as a value.
bool translateDriveMemoryRead(ConversionContext& context, TokenCursor& cursor, ExpressionText& out);

}  // namespace torvel
