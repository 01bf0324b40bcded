#pragma once

#include <functional>

#include "src/migrate/discovery.h"
#include "src/migrate/outputs.h"
#include "src/migrate/run.h"

namespace torvel::migrate {

/// The files that the programs of a project are converted from, which no output may replace.
SourceFiles sourceFilesOf(const Project& project, const Discovery& discovery);

/// Puts the outputs of a run in place with what a person wrote in them, and the logs beside them. `sources` is asked
/// once, for the first output in whose place a file is.
PlanOutput placingOutputs(std::function<SourceFiles()> sources);

}  // namespace torvel::migrate
