#pragma once

#include <cstddef>
#include <optional>
#include <unordered_map>
#include <vector>

#include "src/migrate/machine-settings.h"
#include "src/migrate/run.h"

// What changed since the last run.

namespace torvel::migrate {

struct KnownProgram {
    StoredProgram stored;
    std::vector<std::uint32_t> inputs;
};

/// What the store knows of the programs, without their texts.
struct KnownProgramSet {
    std::unordered_map<std::string, KnownProgram> programs;
    /// The paths of all inputs, each once.
    std::vector<std::string> inputs;
};

KnownProgramSet knownPrograms(const Store& store);

/// Numbers of programs of `discovery` that have to be converted, in order: they are new, something that they depend on
/// changed, or their output was not put in place.
std::vector<std::size_t> changedPrograms(const Project& project, const Discovery& discovery,
                                         const KnownProgramSet& known,
                                         const SettingsOfMachines& settings,
                                         const RunOptions& options, unsigned threads);

/// The programs of the store that are not there any more.
std::vector<StoredProgram> vanishedPrograms(const Discovery& discovery,
                                            const KnownProgramSet& known);

}  // namespace torvel::migrate
