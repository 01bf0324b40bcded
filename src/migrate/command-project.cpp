#include "src/migrate/command-project.h"

#include <algorithm>
#include <stdexcept>

#include "src/migrate/database.h"
#include "src/migrate/recorded-source.h"

namespace torvel::migrate {

namespace {

constexpr std::string_view storeName = "migration.sqlite";

/// One that is named is meant to be there, but for the command that writes it: without it a gate would let all pass.
void expectBaseline(const Options& options, const Project& project) {
    if (options.baseline && options.subcommand != Subcommand::accept &&
        fileKind(baselinePath(project)) == FileKind::missing) {
        throw std::runtime_error("There is no baseline '" + *options.baseline +
                                 "'. Name the one that there is, or have `torvel-migrate accept "
                                 "--baseline` write it.");
    }
}

/// Where no project file says it and nobody else does, the folder of the outputs is a guess.
void expectGuessedStore(const Options& options, const Project& project) {
    if (!project.file.empty() || options.store || options.output ||
        fileKind(storePath(project)) != FileKind::missing) {
        return;
    }
    const std::string use = options.subcommand == Subcommand::accept   ? "accept -o"
                            : options.subcommand == Subcommand::status ? "status"
                                                                       : "report";
    throw std::runtime_error(
        "There is no migration.toml here, and no store in a folder 'converted'. Name the output "
        "folder, as in `torvel-migrate " +
        use + " FOLDER`, or the project file with --project.");
}

std::shared_ptr<const Store> openedStore(const NativePath& path) {
    return std::make_shared<const Store>(path, StoreUse::read);
}

/// Whether paths, canonical, lead to one file, whatever the case that they are written in.
bool isSame(const NativePath& left, const NativePath& right) {
    const FileIdentity identity = fileIdentity(left);
    return left == right || (identity != FileIdentity() && identity == fileIdentity(right));
}

}  // namespace

NativePath workingDirectory() {
    return canonicalPath(nativePath("."));
}

Project projectOf(const Options& options) {
    Project project = readProject(options.project ? nativePath(*options.project) : NativePath());
    applyOptions(options, workingDirectory(), project);
    expectBaseline(options, project);
    return project;
}

NativePath storePath(const Project& project) {
    return project.store ? projectPath(project, *project.store)
                         : projectPath(project, project.output) / storeName;
}

NativePath baselinePath(const Project& project) {
    return projectPath(project, project.baseline.value_or(std::string(baselineFileName)));
}

std::vector<ReportedStore> storesOf(const Options& options, const Project& project) {
    if (options.outputs.empty()) {
        expectGuessedStore(options, project);
        const NativePath path = storePath(project);
        return {{openedStore(path), project.folder, nullptr, canonicalPath(path)}};
    }
    std::vector<ReportedStore> stores;
    for (const std::string& output : options.outputs) {
        NativePath path = canonicalPath(nativePath(output));
        if (fileKind(path) != FileKind::regular) {
            path /= storeName;
        }
        path = canonicalPath(path);
        if (std::any_of(stores.begin(), stores.end(),
                        [&path](const ReportedStore& other) { return isSame(other.path, path); })) {
            continue;
        }
        std::shared_ptr<const Store> store = openedStore(path);
        const NativePath folder = canonicalPath(pathAt(path.parent_path(), store->projectFolder()));
        stores.push_back({std::move(store), folder, nullptr, path});
    }
    return stores;
}

std::string pathFrom(const NativePath& folder, const NativePath& path) {
    const std::string key = keyOf(path, folder);
    return key.empty() ? "." : key;
}

}  // namespace torvel::migrate
