#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "src/base/file-system.h"

// What a plant's conversion is told: migration.toml, and the command line over it. Paths in it are written with "/"
// or "\", relative to the project's folder or absolute; here they have "/".

namespace torvel::migrate {

/// A folder of programs for a machine of its own.
struct MachineFolder {
    std::string path;
    std::optional<std::string> parameters;
};

/// Minutes of work for one finding, a range.
struct MinuteRange {
    double least = 0;
    double most = 0;
};

/// The factors of the estimate, by what is to be done.
struct Effort {
    MinuteRange rewrite{10, 40};
    MinuteRange complete{5, 15};
    MinuteRange look{2, 10};
    MinuteRange fixSource{10, 60};
};

/// Rows that the site gives over the built-in tables, as written in [reference]; not yet checked.
struct ReferenceEntries {
    std::map<std::uint32_t, std::string> axisParameters;
    std::map<std::uint32_t, std::string> taskParameters;
    std::map<std::uint32_t, std::string> systemParameters;
    std::map<std::uint32_t, std::string> axisItems;
    std::map<std::uint32_t, std::string> taskItems;
    std::map<std::uint32_t, std::string> systemItems;
    /// Predefined constants: name and the Brannic text that it stands for.
    std::map<std::string, std::string> constants;
};

struct Project {
    /// Canonical; where keys begin.
    NativePath folder;
    /// The file that it was read from; empty: there was none.
    NativePath file;
    std::vector<std::string> sources;
    /// Files and folders named on the command line. Inside the sources they choose among their programs; a file is
    /// a program even if another one includes it.
    std::vector<std::string> named;
    /// Patterns of what is a program when no other file includes it.
    std::vector<std::string> programs{"**/*.pgm", "**/*.prg"};
    /// Patterns of programs even if another file includes them.
    std::vector<std::string> programsAlways;
    /// Patterns of files and folders that are left out; includes lead to them all the same.
    std::vector<std::string> exclude;
    std::string output = "converted";
    /// The output of part.pgm is part.pgm.torvel, not part.torvel.
    bool keepExtension = false;
    std::optional<std::string> parameters;
    std::vector<MachineFolder> folders;
    ReferenceEntries reference;
    Effort effort;
    /// Where the store is; none: migration.sqlite in the output folder.
    std::optional<std::string> store;
    /// The baseline; none: migration-baseline.json in the project's folder.
    std::optional<std::string> baseline;
    /// Findings that fail a run: words that `failOnsOf` knows; empty: only what is not in a
    /// baseline that is there.
    std::vector<std::string> failOn;
};

/// What the files of a project are called if nobody says otherwise.
inline constexpr std::string_view projectFileName = "migration.toml";
inline constexpr std::string_view baselineFileName = "migration-baseline.json";

/// The project of the file. An empty path: migration.toml of the working directory, or if there is none a project
/// without a file, whose folder is the working directory. Throws std::runtime_error with a complete message at what
/// is not allowed.
Project readProject(const NativePath& file);

/// Reads `text`, a project's text or a part of it, over what `project` says already. `shown` is what messages call it.
/// Throws as readProject() does.
void readProjectText(const std::string& text, const std::string& shown, Project& project);

/// The same of a file.
void readProjectPart(const NativePath& file, Project& project);

/// The place of a path of the project: canonical.
NativePath projectPath(const Project& project, std::string_view path);

}  // namespace torvel::migrate
