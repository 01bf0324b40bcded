#pragma once

#include <memory>

#include "src/migrate/discovery.h"
#include "src/migrate/outputs.h"
#include "src/migrate/run.h"

namespace torvel::migrate {

/// The files that the programs of a project are converted from, which no output may replace.
SourceFiles sourceFilesOf(const Project& project, const Discovery& discovery);

/// Puts the outputs of a run in place with what a person wrote in them, and the logs beside them.
PlanOutput placingOutputs(SourceFiles sources);

}  // namespace torvel::migrate
