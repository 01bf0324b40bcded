// migration.toml: what stands in it and what may stand there. Each key has a row; who adds a key adds one.

#include "src/migrate/project.h"

#include <algorithm>
#include <array>
#include <stdexcept>

// The library asserts that a table's name is closed, and then reports it where it is not.
#define TOML_ASSERT(expr) static_assert(true)
#include <toml++/toml.h>

#include "src/expr/reference-rows.h"
#include "src/migrate/finding-names.h"
#include "src/migrate/path-pattern.h"
#include "src/migrate/reference-entries.h"

namespace torvel::migrate {

namespace {

/// More than a person writes, and no burden to read.
constexpr std::uint64_t largestFile = std::uint64_t{1} << 24U;
/// A week of work, in minutes.
constexpr double mostMinutes = 10080;

/// Where a value stands, for messages.
struct Place {
    const std::string& file;
    std::uint32_t line = 0;
    /// The key with the tables around it.
    std::string key;

    Place inside(std::string_view name, const toml::source_region& where) const {
        return {file, where.begin.line,
                key.empty() ? std::string(name) : key + '.' + std::string(name)};
    }
    [[noreturn]] void fail(const std::string& sentence) const {
        throw std::runtime_error("'" + file + "', line " + std::to_string(line) + ": " + sentence);
    }
};

/// A value with its place.
struct Entry {
    const toml::node& value;
    Place place;

    [[noreturn]] void failType(std::string_view allowed) const {
        place.fail("'" + place.key + "' must be " + std::string(allowed) + ".");
    }
};

template <typename Target>
struct KeyRow {
    std::string_view key;
    void (*read)(const Entry& entry, Target& target);
};

/// Paths and patterns are UTF-8 in the file; elsewhere they are as the system's code page has them.
std::string narrow(std::string_view utf8) {
    return narrowPath(NativePath(std::u8string(utf8.begin(), utf8.end())));
}

std::string withSlashes(std::string text) {
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}

template <typename Target, std::size_t count>
void readTable(const Entry& entry, const std::array<KeyRow<Target>, count>& rows, Target& target) {
    const toml::table* const table = entry.value.as_table();
    if (table == nullptr) {
        entry.failType("a table");
    }
    for (const auto& [key, value] : *table) {
        const Place place = entry.place.inside(key.str(), key.source());
        const auto row = std::find_if(rows.begin(), rows.end(), [&key = key](const auto& known) {
            return known.key == key.str();
        });
        if (row == rows.end()) {
            std::string allowed;
            for (const auto& known : rows) {
                allowed += allowed.empty() ? "" : ", ";
                allowed += known.key;
            }
            place.fail("There is no key '" + place.key + "'. Allowed here: " + allowed + ".");
        }
        row->read({value, place}, target);
    }
}

std::string readText(const Entry& entry, std::string_view allowed) {
    const auto text = entry.value.value_exact<std::string>();
    if (!text || text->empty()) {
        entry.failType(allowed);
    }
    if (text->find('\0') != std::string::npos) {
        entry.place.fail("'" + entry.place.key + "' has a NUL character.");
    }
    return *text;
}

std::string readPath(const Entry& entry) {
    return withSlashes(narrow(readText(entry, "a path in quotes")));
}

/// Calls `read` with each element of a list.
template <typename Read>
void readList(const Entry& entry, std::string_view allowed, Read read) {
    const toml::array* const list = entry.value.as_array();
    if (list == nullptr) {
        entry.failType(allowed);
    }
    for (const toml::node& element : *list) {
        read(Entry{element, {entry.place.file, element.source().begin.line, entry.place.key}});
    }
}

std::vector<std::string> readPaths(const Entry& entry) {
    constexpr std::string_view allowed = "a list of paths in quotes, such as [\"programs\"]";
    std::vector<std::string> paths;
    readList(entry, allowed, [&](const Entry& element) {
        paths.push_back(withSlashes(narrow(readText(element, allowed))));
    });
    return paths;
}

std::vector<std::string> readPatterns(const Entry& entry) {
    constexpr std::string_view allowed = "a list of patterns in quotes, such as [\"**/*.pgm\"]";
    std::vector<std::string> patterns;
    readList(entry, allowed, [&](const Entry& element) {
        patterns.push_back(tidyPattern(narrow(readText(element, allowed))));
        if (const auto fault = faultOfPattern(patterns.back())) {
            element.place.fail("The pattern '" + patterns.back() + "' " + *fault + ".");
        }
    });
    return patterns;
}

bool readBoolean(const Entry& entry) {
    const auto value = entry.value.value_exact<bool>();
    if (!value) {
        entry.failType("true or false");
    }
    return *value;
}

MinuteRange readMinutes(const Entry& entry) {
    constexpr std::string_view allowed =
        "two numbers of minutes from 0 to 10080, the smaller one first, such as [10, 40]";
    std::vector<double> minutes;
    readList(entry, allowed, [&](const Entry& element) {
        // Also false for what is no number.
        const double value = element.value.is_number() ? *element.value.value<double>() : -1;
        if (!(value >= 0 && value <= mostMinutes)) {
            element.failType(allowed);
        }
        minutes.push_back(value);
    });
    if (minutes.size() != 2 || minutes[0] > minutes[1]) {
        entry.failType(allowed);
    }
    return {minutes[0], minutes[1]};
}

constexpr std::array<KeyRow<Effort>, 4> effortKeys{{
    {"rewrite", [](const Entry& entry, Effort& effort) { effort.rewrite = readMinutes(entry); }},
    {"complete", [](const Entry& entry, Effort& effort) { effort.complete = readMinutes(entry); }},
    {"look", [](const Entry& entry, Effort& effort) { effort.look = readMinutes(entry); }},
    {"fix_source",
     [](const Entry& entry, Effort& effort) { effort.fixSource = readMinutes(entry); }},
}};

constexpr std::array<KeyRow<MachineFolder>, 2> folderKeys{{
    {"path", [](const Entry& entry, MachineFolder& folder) { folder.path = readPath(entry); }},
    {"parameters",
     [](const Entry& entry, MachineFolder& folder) { folder.parameters = readPath(entry); }},
}};

void readFolders(const Entry& entry, Project& project) {
    readList(entry, "written as [[folder]]", [&](const Entry& element) {
        MachineFolder& folder = project.folders.emplace_back();
        readTable(element, folderKeys, folder);
        if (folder.path.empty()) {
            element.place.fail("A [[folder]] needs a 'path'.");
        }
    });
}

/// Numbers with the names that the site gives them.
template <std::map<std::uint32_t, std::string> ReferenceEntries::*names>
void readNames(const Entry& entry, ReferenceEntries& reference) {
    const toml::table* const table = entry.value.as_table();
    if (table == nullptr) {
        entry.failType("a table of numbers and names, such as { 11 = \"ServoLoopGainKp\" }");
    }
    for (const auto& [key, value] : *table) {
        const Entry row{value, entry.place.inside(key.str(), key.source())};
        const auto number = referenceNumber(key.str());
        if (!number) {
            row.place.fail(
                "'" + row.place.key +
                "' must end in a decimal number from 0 to 4294967295 without zeros in front.");
        }
        const std::string name = readText(row, "a name in quotes");
        if (!isTorvelName(name)) {
            row.place.fail("'" + name + "' cannot be the name of '" + row.place.key +
                           "': a name of Torvel begins with a letter and goes on with letters and "
                           "digits.");
        }
        (reference.*names)[*number] = name;
    }
}

void readConstants(const Entry& entry, ReferenceEntries& reference) {
    const toml::table* const table = entry.value.as_table();
    if (table == nullptr) {
        entry.failType("a table of names and texts, such as { CLAMP_CLOSED = \"1\" }");
    }
    for (const auto& [key, value] : *table) {
        const Entry row{value, entry.place.inside(key.str(), key.source())};
        const std::string name(key.str());
        if (const auto fault = faultOfConstantName(name)) {
            row.place.fail("'" + name + "' cannot be the name of a constant: " + *fault + ".");
        }
        const auto number = value.value_exact<std::int64_t>();
        std::string text =
            number ? std::to_string(*number) : readText(row, "a text in quotes, or a whole number");
        if (const auto fault = faultOfConstantText(text)) {
            row.place.fail("'" + row.place.key + "' cannot stand for this text: " + *fault + ".");
        }
        reference.constants[name] = std::move(text);
    }
}

constexpr std::array<KeyRow<ReferenceEntries>, 7> referenceKeys{{
    {"axis_parameters", readNames<&ReferenceEntries::axisParameters>},
    {"task_parameters", readNames<&ReferenceEntries::taskParameters>},
    {"system_parameters", readNames<&ReferenceEntries::systemParameters>},
    {"axis_items", readNames<&ReferenceEntries::axisItems>},
    {"task_items", readNames<&ReferenceEntries::taskItems>},
    {"system_items", readNames<&ReferenceEntries::systemItems>},
    {"constants", readConstants},
}};

void readFailOn(const Entry& entry, Project& project) {
    constexpr std::string_view allowed =
        "a list of rewrite, complete, look, fix_source, moves, stops, reads and any, each in "
        "quotes";
    readList(entry, allowed, [&](const Entry& element) {
        const std::string word = readText(element, allowed);
        if (failOnsOf(word).empty()) {
            element.failType(allowed);
        }
        project.failOn.push_back(word);
    });
}

constexpr std::array<KeyRow<Project>, 13> projectKeys{{
    {"sources", [](const Entry& entry, Project& project) { project.sources = readPaths(entry); }},
    {"programs",
     [](const Entry& entry, Project& project) { project.programs = readPatterns(entry); }},
    {"programs_always",
     [](const Entry& entry, Project& project) { project.programsAlways = readPatterns(entry); }},
    {"exclude",
     [](const Entry& entry, Project& project) { project.exclude = readPatterns(entry); }},
    {"output", [](const Entry& entry, Project& project) { project.output = readPath(entry); }},
    {"keep_extension",
     [](const Entry& entry, Project& project) { project.keepExtension = readBoolean(entry); }},
    {"parameters",
     [](const Entry& entry, Project& project) { project.parameters = readPath(entry); }},
    {"folder", readFolders},
    {"reference", [](const Entry& entry,
                     Project& project) { readTable(entry, referenceKeys, project.reference); }},
    {"effort",
     [](const Entry& entry, Project& project) { readTable(entry, effortKeys, project.effort); }},
    {"store", [](const Entry& entry, Project& project) { project.store = readPath(entry); }},
    {"baseline", [](const Entry& entry, Project& project) { project.baseline = readPath(entry); }},
    {"fail_on", readFailOn},
}};

std::string readBytes(const NativePath& path, const std::string& shown) {
    InputFile input;
    if (!input.open(path)) {
        throw std::runtime_error("The project file '" + shown +
                                 "' could not be opened. Is it there, and may it be read?");
    }
    const std::uint64_t size = input.size();
    if (size > largestFile) {
        throw std::runtime_error("The project file '" + shown + "' is larger than 16 MiB.");
    }
    std::string bytes(static_cast<std::size_t>(size), '\0');
    bool failed = false;
    bytes.resize(input.read(bytes.data(), bytes.size(), failed));
    if (failed) {
        throw std::runtime_error("The project file '" + shown + "' could not be read.");
    }
    return bytes;
}

toml::table parse(const std::string& bytes, const std::string& shown) {
    try {
        return toml::parse(bytes);
    } catch (const toml::parse_error& error) {
        const Place place{shown, error.source().begin.line, {}};
        place.fail("This is no TOML: " + std::string(error.description()) + ".");
    }
}

/// "x" for "./x/" too.
NativePath tidyFolder(const std::string& path) {
    const NativePath tidy = (nativePath(path) / "").lexically_normal();
    return tidy.parent_path();
}

void checkFolders(const Project& project, const std::string& shown) {
    for (auto folder = project.folders.begin(); folder != project.folders.end(); ++folder) {
        if (std::any_of(project.folders.begin(), folder, [&](const MachineFolder& other) {
                return tidyFolder(other.path) == tidyFolder(folder->path);
            })) {
            throw std::runtime_error("'" + shown + "': The [[folder]] '" + folder->path +
                                     "' is there twice.");
        }
    }
}

}  // namespace

void readProjectText(const std::string& text, const std::string& shown, Project& project) {
    const toml::table table = parse(text, shown);
    readTable({table, {shown, 1, {}}}, projectKeys, project);
    checkFolders(project, shown);
}

void readProjectPart(const NativePath& file, Project& project) {
    const std::string shown = narrowPath(file);
    readProjectText(readBytes(file, shown), shown, project);
}

Project readProject(const NativePath& file) {
    Project project;
    NativePath path = file;
    if (path.empty()) {
        path = nativePath(projectFileName);
        if (fileKind(path) == FileKind::missing) {
            project.folder = canonicalPath(nativePath("."));
            return project;
        }
    }
    readProjectPart(path, project);
    project.file = canonicalPath(path);
    project.folder = project.file.parent_path();
    return project;
}

NativePath projectPath(const Project& project, std::string_view path) {
    return canonicalPath(pathAt(project.folder, path));
}

}  // namespace torvel::migrate
