#pragma once

#include "src/base/file-system.h"
#include "src/migrate/gate.h"
#include "src/migrate/options.h"
#include "src/migrate/report.h"

namespace torvel::migrate {

/// What the options of "accept" name, looked for in a report whose keys begin at `folder`: programs as "convert" takes
/// them, a folder meaning all that are in it. Reads the report once. Throws std::runtime_error with a complete message
/// if there is no such program, or no finding with such a code.
AcceptFilter acceptFilterOf(const Options& options, const NativePath& folder, const Report& report);

}  // namespace torvel::migrate
