#include "src/language/plant.h"

#include <algorithm>
#include <stdexcept>
#include <unordered_map>
#include <unordered_set>

#include "src/app/parameter-file.h"
#include "src/migrate/site-rows.h"

namespace torvel::language {

using migrate::FoundProgram;

namespace {

migrate::Project projectOf(const PlantSettings& settings) {
    migrate::Project project;
    if (settings.projectFile.empty()) {
        project.folder = canonicalPath(nativePath(settings.folder));
    } else {
        project = migrate::readProject(nativePath(settings.projectFile));
    }
    migrate::readProjectText(settings.settings, "the editor's settings", project);
    if (!settings.referenceFile.empty()) {
        migrate::readProjectPart(nativePath(settings.referenceFile), project);
    }
    return project;
}

/// All files that a program reaches.
void reachFrom(const migrate::IncludeGraph& graph, std::uint32_t program,
               std::vector<std::uint32_t>& reached) {
    std::unordered_set<std::uint32_t> seen{program};
    reached.push_back(program);
    for (std::size_t next = 0; next < reached.size(); ++next) {
        for (const migrate::IncludeEdge& edge : graph[reached[next]].includes) {
            if (edge.file && seen.insert(*edge.file).second) {
                reached.push_back(*edge.file);
            }
        }
    }
}

}  // namespace

Plant::Plant(const PlantSettings& settings) : project_(projectOf(settings)) {
    try {
        reference_ = migrate::referenceRowsOf(project_.reference);
        constants_ = migrate::siteConstantsOf(project_.reference);
    } catch (const std::invalid_argument& error) {
        throw std::runtime_error(error.what());
    }
    if (!project_.sources.empty()) {
        discovery_ = migrate::findPrograms(project_, 1);
        findParts();
    }
}

void Plant::findParts() {
    migrate::IncludeGraph files;
    for (const FoundProgram& program : discovery_.programs) {
        files.push_back({program.program, program.path, {}, {}});
    }
    const migrate::IncludeGraph graph =
        migrate::readIncludeGraph(std::move(files), project_.folder, 1);
    std::vector<std::vector<std::uint32_t>> programsOf(graph.size());
    for (std::uint32_t program = 0; program < discovery_.programs.size(); ++program) {
        std::vector<std::uint32_t> reached;
        reachFrom(graph, program, reached);
        for (const std::uint32_t file : reached) {
            if (file != program) {
                programsOf[file].push_back(program);
            }
        }
    }
    for (std::size_t file = 0; file < graph.size(); ++file) {
        if (!programsOf[file].empty()) {
            parts_.push_back({NativePath(graph[file].path).string(), std::move(programsOf[file])});
        }
    }
}

const Plant::Machine& Plant::machineOf(const std::string& parameters) {
    const auto [entry, isNew] = machines_.try_emplace(parameters);
    Machine& machine = entry->second;
    if (isNew && !parameters.empty()) {
        const NativePath path = project_.folder / nativePath(parameters);
        try {
            machine.axes = loadParameterFile(narrowPath(path), Limits());
        } catch (const std::runtime_error& error) {
            machine.fault =
                "The parameter file \"" + parameters + "\" cannot be used: " + error.what();
        }
    }
    return machine;
}

migrate::ConversionSettings Plant::settingsOf(const NativePath& path, const FileSource& files,
                                              std::string& fault) {
    const auto& programs = discovery_.programs;
    const auto program =
        std::find_if(programs.begin(), programs.end(),
                     [&](const FoundProgram& found) { return found.path == path.native(); });
    const Machine& machine = machineOf(program == programs.end() ? project_.parameters.value_or("")
                                                                 : program->parameters);
    fault = machine.fault;
    return {project_.folder, anyCaseSource(files, listings_, [](const migrate::OtherCase&) {}),
            machine.axes,    Limits(),
            reference_,      constants_};
}

}  // namespace torvel::language
