#pragma once

#include "src/migrate/commands.h"
#include "src/migrate/options.h"

namespace torvel::migrate {

/// torvel-migrate convert. Gives the exit status; throws std::runtime_error with a complete message.
int convertCommand(const Options& options, const Console& console);

}  // namespace torvel::migrate
