#include "tests/migrate/plant.h"

#include <algorithm>
#include <filesystem>

#include "src/migrate/outputs.h"

namespace torvel::migrate::test {

namespace {

std::string shown(const std::optional<ContentHash>& hash) {
    return hash ? hexadecimal(*hash) : "none";
}

std::string textOf(const Store& store, const std::optional<ContentHash>& hash) {
    return hash ? "\"" + store.text(*hash) + "\"" : "none";
}

std::optional<std::string> contentOf(const NativePath& path) {
    return std::filesystem::exists(path) ? std::optional(torvel::test::readFile(path))
                                         : std::nullopt;
}

/// Writes a file beside, then gives it the name.
PlacedOutput replace(const NativePath& path, const std::string& text,
                     const std::function<void()>& step) {
    const NativePath beside = path.string() + ".new";
    torvel::test::writeFile(beside, text);
    if (step) {
        step();
    }
    std::filesystem::rename(beside, path);
    if (step) {
        step();
    }
    return {true, "wrote " + path.filename().string(), true};
}

}  // namespace

Plant::Plant() {
    project.folder = canonicalPath(directory_.path());
    options.planOutput = simplePlacing();
    options.threads = 2;
    std::filesystem::create_directories(path("out"));
}

void Plant::write(const std::string& name, std::string_view text) const {
    torvel::test::writeFile(path(name), text);
}

std::string Plant::read(const std::string& name) const {
    return torvel::test::readFile(path(name));
}

bool Plant::has(const std::string& name) const {
    return std::filesystem::exists(path(name));
}

void Plant::remove(const std::string& name) const {
    std::filesystem::remove(path(name));
}

FoundProgram& Plant::add(const std::string& name, std::string_view text) {
    write(name, text);
    FoundProgram program;
    program.program = name;
    program.output = "out/" + name.substr(0, name.rfind('.')) + ".torvel";
    auto& programs = discovery.programs;
    const auto place = std::lower_bound(
        programs.begin(), programs.end(), name,
        [](const FoundProgram& left, const std::string& right) { return left.program < right; });
    return *programs.insert(place, program);
}

void Plant::takeOver(const Plant& other) {
    std::filesystem::copy(other.project.folder, project.folder,
                          std::filesystem::copy_options::recursive |
                              std::filesystem::copy_options::overwrite_existing);
    discovery = other.discovery;
}

RunSummary Plant::run(StoreUse use) {
    Store opened(store(), use);
    RunOptions told = options;
    std::mutex mutex;
    convertedNow.clear();
    if (options.planOutput) {
        told.planOutput = [&](const OutputTask& task) {
            {
                const std::lock_guard lock(mutex);
                convertedNow.push_back(task.program.program);
            }
            return options.planOutput(task);
        };
    }
    RunSummary summary = runConversion(project, discovery, opened, told);
    opened.endRun(summary.row);
    std::sort(convertedNow.begin(), convertedNow.end());
    return summary;
}

std::string Plant::dump() const {
    const Store opened(store(), StoreUse::read);
    std::string text;
    for (const Notice& notice : opened.notices()) {
        text += "notice " + notice.path + ": " + notice.text + "\n";
    }
    opened.forEachProgram([&](const StoredProgram& program) {
        text += "program " + program.program + " " + program.output + " " + program.machine + " " +
                std::to_string(static_cast<int>(program.status)) + " " + hexadecimal(program.key) +
                " " + std::to_string(program.lines) + " " + std::to_string(program.convertedLines) +
                "\n";
        for (const Input& input : opened.inputs(program)) {
            text += "  input " + input.path + " " + shown(input.hash) + "\n";
        }
        for (const StoredFile& file : opened.files(program)) {
            text += "  file " + file.path + " " + textOf(opened, file.text) + "\n";
        }
        for (const FindingRow& row : opened.findings(program)) {
            text += "  finding " + row.file + ":" + std::to_string(row.line) + " " + row.code +
                    ": " + row.text + "\n";
        }
        for (const MappedLine& line : opened.lineMap(program)) {
            text += "  line " + std::to_string(line.file) + ":" + std::to_string(line.line) + " " +
                    std::to_string(line.outputLineCount) + "\n";
        }
        text += "  generated " + textOf(opened, program.generated) + "\n";
    });
    opened.forEachOutput([&](const OutputRecord& record) {
        text += "output " + record.output + " of " + record.program + " base " +
                textOf(opened, record.base) + " pending " + textOf(opened, record.pending) +
                " placed " + shown(record.placed) + " conflict " + textOf(opened, record.conflict) +
                " " + shown(record.conflictFile) + " left " + shown(record.leftAlone) + " log " +
                shown(record.log) + " pending " + shown(record.pendingLog) + "\n";
    });
    return text + std::to_string(opened.textHashes().size()) + " texts\n";
}

std::string Plant::outputs() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path("out"))) {
        const std::string name = entry.path().filename().string();
        if (entry.is_regular_file() && !name.starts_with("migration.sqlite")) {
            names.push_back(entry.path().lexically_relative(project.folder).generic_string());
        }
    }
    std::sort(names.begin(), names.end());
    std::string text;
    for (const std::string& name : names) {
        text += name + ":\n" + read(name);
    }
    return text;
}

PlanOutput simplePlacing(std::function<void()> step) {
    return [step](const OutputTask& task) {
        const std::optional<std::string> there = contentOf(task.path);
        PlannedOutput plan;
        if (!there ? task.texts.base.has_value() : !task.texts.base && *there != task.generated) {
            plan.leftAlone = there ? hashOf(*there) : noFile;
            plan.message = "left " + task.program.output;
            return plan;
        }
        std::string text(task.generated);
        const bool isEdited = there && *there != task.generated && there != task.texts.base;
        if (isEdited && !there->starts_with(*task.texts.base)) {
            text = *there + "\n<<<>>>\n" + text;
            plan.placedConflict = hashOf(text);
            plan.place = [=, path = NativePath(task.path.string() + ".conflict")] {
                return replace(path, text, step);
            };
            return plan;
        }
        if (isEdited) {
            text += there->substr(task.texts.base->size());
        }
        plan.placed = hashOf(text);
        plan.pendingLog = logHash(task.log);
        plan.place = [=, path = task.path, log = std::string(task.log)] {
            NativePath logPath = path;
            replace(logPath.replace_extension(".log"), log, step);
            return there == text ? PlacedOutput{true, {}, true} : replace(path, text, step);
        };
        return plan;
    };
}

}  // namespace torvel::migrate::test
