#include "src/migrate/machine-settings.h"

#include <stdexcept>
#include <string_view>

#include "src/app/parameter-file.h"
#include "src/migrate/file-hashes.h"
#include "src/migrate/recorded-source.h"

namespace torvel::migrate {

namespace {

/// Counted up when the same converter gives results of another form.
constexpr std::string_view resultForm = "1";

std::string_view bytesOf(const ContentHash& hash) {
    return {reinterpret_cast<const char*>(hash.data()), hash.size()};
}

void add(KeyBuilder& key, std::string_view name, const std::optional<ContentHash>& hash) {
    key.add(name, hash ? bytesOf(*hash) : std::string_view());
}

void addRows(KeyBuilder& key, std::string_view name,
             const std::map<std::uint32_t, std::string>& rows) {
    for (const auto& [number, text] : rows) {
        key.add(name, std::to_string(number));
        key.add("is", text);
    }
}

void addReference(KeyBuilder& key, const ReferenceEntries& reference) {
    addRows(key, "axis parameter", reference.axisParameters);
    addRows(key, "task parameter", reference.taskParameters);
    addRows(key, "system parameter", reference.systemParameters);
    addRows(key, "axis item", reference.axisItems);
    addRows(key, "task item", reference.taskItems);
    addRows(key, "system item", reference.systemItems);
    for (const auto& [name, text] : reference.constants) {
        key.add("constant", name);
        key.add("is", text);
    }
}

MachineSettings settingsOf(const Project& project, const std::string& parameters,
                           const RunOptions& options) {
    MachineSettings settings{{project.folder, options.source, AxisNames(), options.limits,
                              options.reference, options.constants},
                             {},
                             {},
                             {}};
    KeyBuilder key;
    key.add("version", TORVEL_VERSION);
    key.add("form", resultForm);
    addReference(key, project.reference);
    KeyBuilder given;
    addReference(given, project.reference);
    if (!parameters.empty()) {
        const NativePath path = pathOf(parameters, project.folder);
        // Hashed first: if the file changes in between, the next run sees that.
        key.add("parameters", parameters);
        const std::optional<ContentHash> bytes = hashOfFile(path);
        add(key, "bytes", bytes);
        given.add("parameters", parameters);
        add(given, "bytes", bytes);
        try {
            settings.conversion.axes = loadParameterFile(narrowPath(path), options.limits);
        } catch (const std::runtime_error& error) {
            settings.fault =
                "The parameter file \"" + parameters + "\" cannot be used: " + error.what();
        }
    }
    settings.key = key.key();
    settings.given = given.key();
    return settings;
}

void expectParameterFile(const Project& project, const std::string& parameters,
                         const Limits& limits) {
    const NativePath path = projectPath(project, parameters);
    constexpr std::string_view advice =
        " Nothing was converted. Name the machine's parameter file with -p, or as \"parameters\" "
        "in "
        "migration.toml.";
    if (fileKind(path) == FileKind::missing) {
        throw std::runtime_error("The parameter file '" + parameters + "' is not there." +
                                 std::string(advice));
    }
    try {
        loadParameterFile(narrowPath(path), limits);
    } catch (const std::runtime_error& error) {
        throw std::runtime_error("The parameter file '" + parameters +
                                 "' cannot be used: " + error.what() + std::string(advice));
    }
}

}  // namespace

void expectParameterFiles(const Project& project, const Limits& limits) {
    if (project.parameters) {
        expectParameterFile(project, *project.parameters, limits);
    }
    for (const MachineFolder& folder : project.folders) {
        if (folder.parameters) {
            expectParameterFile(project, *folder.parameters, limits);
        }
    }
}

SettingsOfMachines settingsOfMachines(const Project& project, const Discovery& discovery,
                                      const RunOptions& options) {
    SettingsOfMachines all;
    for (const FoundProgram& program : discovery.programs) {
        if (!all.contains(program.parameters)) {
            all.emplace(program.parameters, settingsOf(project, program.parameters, options));
        }
    }
    return all;
}

ContentHash machineHashOf(const FoundProgram& program, const MachineSettings& settings) {
    KeyBuilder key;
    key.add("machine", program.machine);
    key.add("given", bytesOf(settings.given));
    return key.key();
}

KeyOfProgram::KeyOfProgram(const FoundProgram& program, const MachineSettings& settings) {
    key_.add("settings", bytesOf(settings.key));
    key_.add("program", program.program);
    key_.add("output", program.output);
    key_.add("machine", program.machine);
    key_.add("reach", bytesOf(program.reach));
    for (const std::string& other : program.collidesWith) {
        key_.add("collides", other);
    }
    if (!program.outputOwner.empty()) {
        key_.add("owner", program.outputOwner);
    }
}

void KeyOfProgram::addInput(std::string_view path, const std::optional<ContentHash>& hash) {
    key_.add(hash ? "input" : "missing", path);
    add(key_, "hash", hash);
}

ContentHash keyOfProgram(const FoundProgram& program, const MachineSettings& settings,
                         const std::vector<Input>& inputs) {
    KeyOfProgram key(program, settings);
    for (const Input& input : inputs) {
        key.addInput(input.path, input.hash);
    }
    return key.key();
}

}  // namespace torvel::migrate
