#include "src/migrate/output-owners.h"

#include <algorithm>
#include <numeric>

#include "src/migrate/recorded-source.h"

namespace torvel::migrate {

bool isOnDisk(const NativePath& path) {
    std::error_code error;
    return std::filesystem::status(unboundedPath(path), error).type() !=
           std::filesystem::file_type::not_found;
}

bool isOfOtherProgram(const OutputRecord& record, const FoundProgram& found, const Project& project,
                      const Discovery& discovery) {
    if (record.program.empty() || record.program == found.program) {
        return false;
    }
    const NativePath owner = pathOf(record.program, project.folder);
    // A name in other capital letters may lead to the same file.
    return isUnseen(discovery, record.program) ||
           (isOnDisk(owner) &&
            fileIdentity(owner) != fileIdentity(pathOf(found.program, project.folder)));
}

void findOutputOwners(const Project& project, const Store& store, Discovery& discovery) {
    std::vector<FoundProgram>& programs = discovery.programs;
    std::vector<std::uint32_t> byOutput(programs.size());
    std::iota(byOutput.begin(), byOutput.end(), 0U);
    // Of programs with the same output the first one counts.
    std::stable_sort(byOutput.begin(), byOutput.end(),
                     [&](std::uint32_t left, std::uint32_t right) {
                         return programs[left].output < programs[right].output;
                     });
    auto next = byOutput.begin();
    // The store tells its outputs in order too.
    store.forEachOutput([&](const OutputRecord& record) {
        next = std::find_if(next, byOutput.end(), [&](std::uint32_t program) {
            return programs[program].output >= record.output;
        });
        if (next == byOutput.end() || programs[*next].output != record.output) {
            return;
        }
        FoundProgram& program = programs[*next];
        if (isOfOtherProgram(record, program, project, discovery) &&
            isOnDisk(pathOf(record.output, project.folder))) {
            program.outputOwner = record.program;
        }
    });
}

}  // namespace torvel::migrate
