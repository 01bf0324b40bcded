#include "src/migrate/changed-programs.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>

#include "src/migrate/file-hashes.h"
#include "src/migrate/in-threads.h"
#include "src/migrate/interruption.h"
#include "src/migrate/output-records.h"

namespace torvel::migrate {

namespace {

/// Hashes of files as they are now, by their numbers.
using HashesNow = std::vector<std::optional<ContentHash>>;

HashesNow hashesNow(const Project& project, const Discovery& discovery,
                    const KnownProgramSet& known, const RunOptions& options, unsigned threads) {
    HashesNow hashes(known.inputs.size());
    inThreads(threads, hashes.size(), [&](std::size_t i, unsigned) {
        endIfInterrupted(options.isCancelled);
        if (const auto read = discovery.hashes.find(known.inputs[i]);
            read != discovery.hashes.end()) {
            hashes[i] = read->second;
            return;
        }
        hashes[i] = hashOfFile(project.folder / nativePath(known.inputs[i]), options.source);
    });
    return hashes;
}

/// Whether the output is not what the program was converted to, and something may be done about it.
bool isOutputOpen(const Project& project, const OutputRecord& record, bool restoresDeleted) {
    if (record.pending || record.pendingLog || record.conflict ||
        (restoresDeleted && isDeleted(record, project.folder / nativePath(record.output)))) {
        return true;
    }
    if (!record.leftAlone) {
        return false;
    }
    const NativePath path = project.folder / nativePath(record.output);
    return hashOfFile(path).value_or(noFile) != *record.leftAlone;
}

bool hasChanged(const Project& project, const FoundProgram& found, const KnownProgramSet& known,
                const HashesNow& hashes, const MachineSettings& settings, bool restoresDeleted) {
    const auto entry = known.programs.find(found.program);
    if (entry == known.programs.end()) {
        return true;
    }
    const StoredProgram& stored = entry->second.stored;
    std::vector<Input> inputs;
    for (const std::uint32_t number : entry->second.inputs) {
        inputs.push_back({known.inputs[number], hashes[number]});
    }
    return stored.key != keyOfProgram(found, settings, inputs) ||
           (stored.outputRecord && isOutputOpen(project, *stored.outputRecord, restoresDeleted));
}

}  // namespace

KnownProgramSet knownPrograms(const Store& store) {
    KnownProgramSet known;
    std::unordered_map<std::int64_t, KnownProgram*> byNumber;
    store.forEachProgram([&](const StoredProgram& stored) {
        KnownProgram& program = known.programs[stored.program];
        program.stored = stored;
        byNumber.emplace(stored.number, &program);
    });
    std::unordered_map<std::string, std::uint32_t> numbers;
    store.forEachInput([&](std::int64_t program, const Input& input) {
        const auto [entry, isNew] =
            numbers.try_emplace(input.path, static_cast<std::uint32_t>(numbers.size()));
        if (isNew) {
            known.inputs.push_back(input.path);
        }
        if (const auto owner = byNumber.find(program); owner != byNumber.end()) {
            owner->second->inputs.push_back(entry->second);
        }
    });
    return known;
}

std::vector<std::size_t> changedPrograms(const Project& project, const Discovery& discovery,
                                         const KnownProgramSet& known,
                                         const SettingsOfMachines& settings,
                                         const RunOptions& options, unsigned threads) {
    const HashesNow hashes = hashesNow(project, discovery, known, options, threads);
    // Bytes, which several threads can write next to each other.
    std::vector<char> isChanged(discovery.programs.size());
    inThreads(threads, isChanged.size(), [&](std::size_t i, unsigned) {
        endIfInterrupted(options.isCancelled);
        const FoundProgram& found = discovery.programs[i];
        isChanged[i] = hasChanged(project, found, known, hashes, settings.at(found.parameters),
                                  options.restoresDeleted)
                           ? 1
                           : 0;
    });
    std::vector<std::size_t> changed;
    for (std::size_t i = 0; i < isChanged.size(); ++i) {
        if (isChanged[i] != 0) {
            changed.push_back(i);
        }
    }
    return changed;
}

std::vector<StoredProgram> vanishedPrograms(const Discovery& discovery,
                                            const KnownProgramSet& known) {
    std::unordered_set<std::string_view> found;
    for (const FoundProgram& program : discovery.programs) {
        found.insert(program.program);
    }
    std::vector<StoredProgram> vanished;
    for (const auto& [name, program] : known.programs) {
        if (!found.contains(name) && !isUnseen(discovery, name)) {
            vanished.push_back(program.stored);
        }
    }
    std::sort(vanished.begin(), vanished.end(),
              [](const StoredProgram& left, const StoredProgram& right) {
                  return left.program < right.program;
              });
    return vanished;
}

}  // namespace torvel::migrate
