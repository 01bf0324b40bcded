#include "src/language/plant.h"

#include <algorithm>
#include <stdexcept>
#include <unordered_map>
#include <unordered_set>

#include "src/migrate/found-program.h"
#include "src/migrate/recorded-source.h"
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

Plant::Plant(const PlantSettings& settings, const FileSource& files)
    : project_(projectOf(settings)) {
    try {
        options_.reference = migrate::referenceRowsOf(project_.reference);
        options_.constants = migrate::siteConstantsOf(project_.reference);
    } catch (const std::invalid_argument& error) {
        throw std::runtime_error(error.what());
    }
    options_.source = anyCaseSource(files, listings_, [](const migrate::OtherCase&) {});
    if (!project_.sources.empty()) {
        discovery_ = migrate::findPrograms(project_, 1);
        findParts();
    }
    // Beside those of its programs, that of any other file.
    migrate::Discovery all;
    all.programs = discovery_.programs;
    all.programs.push_back(programAt(project_.folder));
    settings_ = settingsOfMachines(project_, all, options_);
}

void Plant::findParts() {
    migrate::IncludeGraph files;
    for (const FoundProgram& program : discovery_.programs) {
        files.push_back({program.program, {}, {}});
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
            parts_.push_back({migrate::pathOf(graph[file].key, project_.folder).string(),
                              std::move(programsOf[file])});
        }
    }
}

FoundProgram Plant::programAt(const NativePath& path) const {
    const auto& programs = discovery_.programs;
    const std::string key = migrate::keyOf(path, project_.folder);
    const auto found =
        std::find_if(programs.begin(), programs.end(),
                     [&](const FoundProgram& program) { return program.program == key; });
    if (found != programs.end()) {
        return *found;
    }
    FoundProgram program;
    program.program = key;
    program.parameters = project_.parameters.value_or("");
    return program;
}

migrate::ProgramResult Plant::convert(const NativePath& path, migrate::ConvertedNames& names) {
    const FoundProgram program = programAt(path);
    return resultOf(program, settings_.at(program.parameters), &names);
}

const AxisNames& Plant::axesOf(const NativePath& path) const {
    return settings_.at(programAt(path).parameters).conversion.axes;
}

}  // namespace torvel::language
