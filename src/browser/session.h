#pragma once

#include <optional>
#include <string>

#include "src/migrate/any-case-source.h"
#include "src/migrate/discovery.h"
#include "src/migrate/machine-settings.h"
#include "src/migrate/program-result.h"
#include "src/migrate/project.h"
#include "src/migrate/run.h"

// What the exported functions work on: a project whose files are those of the instance's file system, in memory.

namespace torvel::browser {

struct Session {
    migrate::Project project;
    migrate::Discovery discovery;
    migrate::FolderListings listings;
    migrate::RunOptions options;
    migrate::SettingsOfMachines settings;
    /// What was converted last.
    migrate::ProgramResult result;
    std::string machine;
};

/// Throws std::runtime_error if no project was opened.
Session& session();

/// Whatever was opened before is forgotten.
Session& newSession();

/// The program that was found under the number. Throws std::runtime_error if there is none.
const migrate::FoundProgram& foundProgram(std::uint64_t number);

/// Converts a program that was found.
migrate::ProgramResult converted(const migrate::FoundProgram& found);

}  // namespace torvel::browser
