#pragma once

#include <memory>
#include <string>
#include <vector>

#include "src/migrate/options.h"
#include "src/migrate/project.h"
#include "src/migrate/store-report.h"

// The project, its store and its baseline, as the options of a command name them.

namespace torvel::migrate {

/// The working directory, canonical.
NativePath workingDirectory();

/// The project with what the options say. Throws std::runtime_error.
Project projectOf(const Options& options);

NativePath storePath(const Project& project);
NativePath baselinePath(const Project& project);

/// The stores that a command reads, each once: of the output folders that the options name, or of the project. Throws
/// std::runtime_error.
std::vector<ReportedStore> storesOf(const Options& options, const Project& project);

/// The path of a file from the folder of another one, with "/" everywhere.
std::string pathFrom(const NativePath& folder, const NativePath& path);

}  // namespace torvel::migrate
