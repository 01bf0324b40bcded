#pragma once

#include "src/migrate/commands.h"
#include "src/migrate/options.h"

namespace torvel::migrate {

// The commands that only read stores. Each gives the exit status, and throws std::runtime_error with a complete message.

/// torvel-migrate status
int statusCommand(const Options& options, const Console& console);

/// torvel-migrate report
int reportCommand(const Options& options, const Console& console);

/// torvel-migrate explain
int explainCommand(const Options& options, const Console& console);

/// torvel-migrate accept
int acceptCommand(const Options& options, const Console& console);

}  // namespace torvel::migrate
