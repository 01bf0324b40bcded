#pragma once

#include <string>
#include <vector>

#include "src/migrate/any-case-source.h"
#include "src/migrate/discovery.h"
#include "src/migrate/include-graph.h"
#include "src/migrate/machine-settings.h"
#include "src/migrate/program-conversion.h"
#include "src/migrate/project.h"

namespace torvel::language {

/// What an editor's settings and the place of its files say of a project.
struct PlantSettings {
    /// Empty: there is none.
    std::string projectFile;
    /// Where it begins without a project file.
    std::string folder;
    /// Keys of a project file over those of the file.
    std::string settings;
    /// A file of such keys, which has the site's rows; empty: there is none.
    std::string referenceFile;
};

/// A part of programs, and the programs that it belongs to.
struct Part {
    std::string path;
    std::vector<std::uint32_t> programs;
};

/// A project as it was found, and what its programs are converted with.
class Plant {
public:
    /// `files` are those that programs are made of. Throws std::runtime_error with a complete message.
    Plant(const PlantSettings& settings, const FileSource& files);

    const migrate::Project& project() const { return project_; }
    const migrate::Discovery& discovery() const { return discovery_; }
    const std::vector<Part>& parts() const { return parts_; }
    const SiteConstants* constants() const { return options_.constants.get(); }

    /// Converts the program at a canonical path, which may be one that was not found.
    migrate::ProgramResult convert(const NativePath& path, migrate::ConvertedNames& names);
    /// The axes of that program's machine.
    const AxisNames& axesOf(const NativePath& path) const;

private:
    void findParts();

    migrate::FoundProgram programAt(const NativePath& path) const;

    migrate::Project project_;
    migrate::Discovery discovery_;
    std::vector<Part> parts_;
    migrate::FolderListings listings_;
    migrate::RunOptions options_;
    migrate::SettingsOfMachines settings_;
};

}  // namespace torvel::language
