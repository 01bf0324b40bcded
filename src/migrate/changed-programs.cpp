#include "src/migrate/changed-programs.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <unordered_map>

#include "src/migrate/file-hashes.h"
#include "src/migrate/in-threads.h"
#include "src/migrate/interruption.h"
#include "src/migrate/output-records.h"
#include "src/migrate/recorded-source.h"

namespace torvel::migrate {

namespace {

/// The number of the program of the discovery with a key, from `first` on; none: there is none.
std::optional<std::uint32_t> programWith(std::string_view key, const Discovery& discovery) {
    const auto& programs = discovery.programs;
    const auto place = std::lower_bound(programs.begin(), programs.end(), key,
                                        [](const FoundProgram& program, std::string_view other) {
                                            return program.program < other;
                                        });
    return place != programs.end() && place->program == key
               ? std::optional(static_cast<std::uint32_t>(place - programs.begin()))
               : std::nullopt;
}

/// Fills in the programs and the outputs. `byNumber` gets the numbers of the programs in the store and in the discovery.
class ProgramReader {
public:
    ProgramReader(const Discovery& discovery, bool restoresDeleted, KnownProgramSet& known)
        : found_(discovery.programs), restoresDeleted_(restoresDeleted), known_(known) {
        known_.programs.resize(found_.size());
    }

    void take(const StoredProgram& stored) {
        while (next_ < found_.size() && found_[next_].program < stored.program) {
            ++next_;
        }
        const bool isFound = next_ < found_.size() && found_[next_].program == stored.program;
        const std::optional<OutputRecord>& record = stored.outputRecord;
        const bool isPending = record && (record->pending || record->pendingLog);
        if (!isFound) {
            known_.others.push_back({stored.program, stored.number});
            if (isPending) {
                known_.otherOutputs.push_back(*record);
            }
            return;
        }
        KnownProgram& program = known_.programs[next_];
        program.number = stored.number;
        program.key = stored.key;
        program.machineHash = stored.machineHash;
        if (isPending || (record && (record->conflict || record->leftAlone ||
                                     (restoresDeleted_ && record->base)))) {
            known_.openOutputs.emplace_back(static_cast<std::uint32_t>(next_), *record);
        }
    }

private:
    const std::vector<FoundProgram>& found_;
    bool restoresDeleted_;
    KnownProgramSet& known_;
    std::size_t next_ = 0;
};

/// Fills in the inputs, which are told in the order of the numbers in the store.
class InputReader {
public:
    InputReader(const Discovery& discovery, KnownProgramSet& known)
        : discovery_(discovery), known_(known) {
        for (std::uint32_t i = 0; i < known.programs.size(); ++i) {
            if (known.programs[i].number != 0) {
                byNumber_.emplace_back(known.programs[i].number, i);
            }
        }
        std::sort(byNumber_.begin(), byNumber_.end());
    }

    void take(std::int64_t number, const Input& input) {
        while (next_ < byNumber_.size() && byNumber_[next_].first < number) {
            ++next_;
        }
        if (next_ == byNumber_.size() || byNumber_[next_].first != number) {
            return;
        }
        const std::uint32_t owner = byNumber_[next_].second;
        KnownProgram& program = known_.programs[owner];
        if (program.inputCount++ == 0) {
            program.firstInput = static_cast<std::uint32_t>(known_.inputs.size());
        }
        known_.inputs.push_back(numberOf(input.path, owner));
    }

private:
    std::uint32_t numberOf(const std::string& path, std::uint32_t owner) {
        if (discovery_.programs[owner].program == path) {
            return owner;  // nearly every program is its first input
        }
        const auto known = numbers_.find(path);
        if (known != numbers_.end()) {
            return known->second;
        }
        const std::optional<std::uint32_t> program = programWith(path, discovery_);
        const std::uint32_t number =
            program ? *program
                    : static_cast<std::uint32_t>(known_.programs.size() + known_.files.size());
        if (!program) {
            known_.files.push_back(path);
        }
        numbers_.emplace(path, number);
        return number;
    }

    const Discovery& discovery_;
    KnownProgramSet& known_;
    std::vector<std::pair<std::int64_t, std::uint32_t>> byNumber_;
    std::size_t next_ = 0;
    /// Of files that were met beside the program itself.
    std::unordered_map<std::string, std::uint32_t> numbers_;
};

/// Hashes of files as they are now, by their numbers.
using HashesNow = std::vector<std::optional<ContentHash>>;

HashesNow hashesNow(const Project& project, const Discovery& discovery,
                    const KnownProgramSet& known, const RunOptions& options, unsigned threads) {
    const std::size_t programs = known.programs.size();
    HashesNow hashes(programs + known.files.size());
    inThreads(threads, hashes.size(), [&](std::size_t i, unsigned) {
        endIfInterrupted(options.isCancelled);
        if (i < programs) {
            const FoundProgram& found = discovery.programs[i];
            hashes[i] = found.content;
            if (!found.content && known.programs[i].number != 0) {
                hashes[i] = hashOfFile(pathOf(found.program, project.folder), options.source);
            }
            return;
        }
        const std::string& file = known.files[i - programs];
        const auto read = discovery.otherFiles.find(file);
        hashes[i] = read != discovery.otherFiles.end()
                        ? read->second
                        : hashOfFile(pathOf(file, project.folder), options.source);
    });
    return hashes;
}

/// Whether the output is not what the program was converted to, and something may be done about it.
bool isOutputOpen(const Project& project, const OutputRecord& record, bool restoresDeleted) {
    if (record.pending || record.pendingLog || record.conflict ||
        (restoresDeleted && isDeleted(record, pathOf(record.output, project.folder)))) {
        return true;
    }
    if (!record.leftAlone) {
        return false;
    }
    const NativePath path = pathOf(record.output, project.folder);
    return hashOfFile(path).value_or(noFile) != *record.leftAlone;
}

bool hasChanged(std::size_t number, const Discovery& discovery, const KnownProgramSet& known,
                const HashesNow& hashes, const MachineSettings& settings) {
    const KnownProgram& program = known.programs[number];
    if (program.number == 0) {
        return true;
    }
    KeyOfProgram key(discovery.programs[number], settings);
    for (std::uint32_t i = 0; i < program.inputCount; ++i) {
        const std::uint32_t input = known.inputs[program.firstInput + i];
        key.addInput(input < known.programs.size() ? discovery.programs[input].program
                                                   : known.files[input - known.programs.size()],
                     hashes[input]);
    }
    return program.key != key.key();
}

}  // namespace

KnownProgramSet knownPrograms(const Store& store, const Discovery& discovery,
                              bool restoresDeleted) {
    KnownProgramSet known;
    ProgramReader programs(discovery, restoresDeleted, known);
    store.forEachProgram([&](const StoredProgram& stored) { programs.take(stored); });
    InputReader inputs(discovery, known);
    store.forEachInput(
        [&](std::int64_t program, const Input& input) { inputs.take(program, input); });
    return known;
}

std::vector<ChangedProgram> changedPrograms(const Project& project, const Discovery& discovery,
                                            const KnownProgramSet& known,
                                            const SettingsOfMachines& settings,
                                            const RunOptions& options, unsigned threads) {
    const HashesNow hashes = hashesNow(project, discovery, known, options, threads);
    // Bytes, which several threads can write next to each other.
    std::vector<char> isChanged(discovery.programs.size());
    inThreads(threads, isChanged.size(), [&](std::size_t i, unsigned) {
        endIfInterrupted(options.isCancelled);
        const MachineSettings& machine = settings.at(discovery.programs[i].parameters);
        isChanged[i] = hasChanged(i, discovery, known, hashes, machine) ? 1 : 0;
    });
    inThreads(threads, known.openOutputs.size(), [&](std::size_t i, unsigned) {
        endIfInterrupted(options.isCancelled);
        const auto& [program, record] = known.openOutputs[i];
        if (isOutputOpen(project, record, options.restoresDeleted)) {
            isChanged[program] = 1;
        }
    });
    std::vector<ChangedProgram> changed;
    for (std::size_t i = 0; i < isChanged.size(); ++i) {
        if (isChanged[i] != 0) {
            const FoundProgram& found = discovery.programs[i];
            const std::optional<ContentHash>& before = known.programs[i].machineHash;
            changed.push_back(
                {i, before && *before != machineHashOf(found, settings.at(found.parameters))});
        }
    }
    return changed;
}

std::vector<std::int64_t> vanishedPrograms(const Discovery& discovery,
                                           const KnownProgramSet& known) {
    std::vector<std::int64_t> vanished;
    for (const OtherProgram& program : known.others) {
        if (!isUnseen(discovery, program.program)) {
            vanished.push_back(program.number);
        }
    }
    return vanished;
}

}  // namespace torvel::migrate
