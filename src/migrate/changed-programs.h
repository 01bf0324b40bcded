#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "src/migrate/machine-settings.h"
#include "src/migrate/run.h"

// What changed since the last run.

namespace torvel::migrate {

/// What is kept of a program that the store knows. There may be very many.
struct KnownProgram {
    /// What the store calls it; 0: it does not know it.
    std::int64_t number = 0;
    ContentHash key{};
    std::optional<ContentHash> machineHash;
    /// Its inputs in the list of all.
    std::uint32_t firstInput = 0;
    std::uint32_t inputCount = 0;
};

/// A program of the store that was not found.
struct OtherProgram {
    std::string program;
    std::int64_t number = 0;
};

/// What the store knows of the programs, without their texts.
struct KnownProgramSet {
    /// By the number of the program of the discovery.
    std::vector<KnownProgram> programs;
    /// In the order of their keys.
    std::vector<OtherProgram> others;
    /// What is known of outputs with which something may have to be done, by the number of the program of the discovery,
    /// in order.
    std::vector<std::pair<std::uint32_t, OutputRecord>> openOutputs;
    /// Of the outputs of the others, those that may have been put in place meanwhile.
    std::vector<OutputRecord> otherOutputs;
    /// The inputs of all programs: programs of the discovery by their numbers, and behind them `files`.
    std::vector<std::uint32_t> inputs;
    /// Each once. Keys.
    std::vector<std::string> files;
};

/// `discovery` and the store have their programs in the same order. With `restoresDeleted` something may have to be
/// done with every output that was put in place.
KnownProgramSet knownPrograms(const Store& store, const Discovery& discovery, bool restoresDeleted);

/// A program that has to be converted.
struct ChangedProgram {
    /// In the discovery.
    std::size_t number = 0;
    /// Its machine, or what that gives it, was another one before.
    bool hasOtherMachine = false;
};

/// Programs of `discovery` that have to be converted, in order: they are new, something that they depend on changed, or
/// their output was not put in place.
std::vector<ChangedProgram> changedPrograms(const Project& project, const Discovery& discovery,
                                            const KnownProgramSet& known,
                                            const SettingsOfMachines& settings,
                                            const RunOptions& options, unsigned threads);

/// The numbers of the programs of the store that are not there any more.
std::vector<std::int64_t> vanishedPrograms(const Discovery& discovery,
                                           const KnownProgramSet& known);

}  // namespace torvel::migrate
