#include "src/migrate/output-owners.h"

#include <unordered_map>

namespace torvel::migrate {

bool isOnDisk(const NativePath& path) {
    std::error_code error;
    return std::filesystem::status(unboundedPath(path), error).type() !=
           std::filesystem::file_type::not_found;
}

bool isOfOtherProgram(const OutputRecord& record, const FoundProgram& found, const Project& project,
                      const Discovery& discovery) {
    if (record.program == found.program) {
        return false;
    }
    const NativePath owner = project.folder / nativePath(record.program);
    // A name in other capital letters may lead to the same file.
    return isUnseen(discovery, record.program) ||
           (isOnDisk(owner) && fileIdentity(owner) != fileIdentity(found.path));
}

void findOutputOwners(const Project& project, const Store& store, Discovery& discovery) {
    std::unordered_map<std::string, FoundProgram*> byOutput;
    for (FoundProgram& program : discovery.programs) {
        byOutput.emplace(program.output, &program);
    }
    store.forEachOutput([&](const OutputRecord& record) {
        const auto entry = byOutput.find(record.output);
        if (entry != byOutput.end() &&
            isOfOtherProgram(record, *entry->second, project, discovery) &&
            isOnDisk(project.folder / nativePath(record.output))) {
            entry->second->outputOwner = record.program;
        }
    });
}

}  // namespace torvel::migrate
