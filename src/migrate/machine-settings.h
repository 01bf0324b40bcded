#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "src/migrate/discovery.h"
#include "src/migrate/program-conversion.h"
#include "src/migrate/run.h"

namespace torvel::migrate {

/// What the programs of a machine are converted with.
struct MachineSettings {
    ConversionSettings conversion;
    /// Why they cannot be: its parameter file cannot be read. Empty: they can.
    std::string fault;
    /// Made of all of it, and of the version of the converter.
    ContentHash key{};
    /// Made of what the project says: the parameter file and the site's rows.
    ContentHash given{};
};

/// The settings by the key of the parameter file; an empty one: without such a file.
using SettingsOfMachines = std::map<std::string, MachineSettings>;

SettingsOfMachines settingsOfMachines(const Project& project, const Discovery& discovery,
                                      const RunOptions& options);

/// Throws std::runtime_error with a complete message if one of the parameter files that the project names cannot be used.
void expectParameterFiles(const Project& project, const Limits& limits);

/// A hash of what a program's machine gives it: another one when that is another machine, or has another parameter
/// file, or when the site's rows have changed.
ContentHash machineHashOf(const FoundProgram& program, const MachineSettings& settings);

/// Makes the hash of everything that the result of a program depends on.
class KeyOfProgram {
public:
    KeyOfProgram(const FoundProgram& program, const MachineSettings& settings);
    /// Its inputs in their order.
    void addInput(std::string_view path, const std::optional<ContentHash>& hash);
    ContentHash key() const { return key_.key(); }

private:
    KeyBuilder key_;
};

ContentHash keyOfProgram(const FoundProgram& program, const MachineSettings& settings,
                         const std::vector<Input>& inputs);

}  // namespace torvel::migrate
