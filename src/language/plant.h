#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "src/migrate/any-case-source.h"
#include "src/migrate/discovery.h"
#include "src/migrate/include-graph.h"
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
    /// Throws std::runtime_error with a complete message.
    explicit Plant(const PlantSettings& settings);

    const migrate::Project& project() const { return project_; }
    const migrate::Discovery& discovery() const { return discovery_; }
    const std::vector<Part>& parts() const { return parts_; }
    const SiteConstants* constants() const { return constants_.get(); }

    /// What the program at a canonical path is converted with. Without the fault of its parameter file, which is
    /// told in `fault`.
    migrate::ConversionSettings settingsOf(const NativePath& path, const FileSource& files,
                                           std::string& fault);

private:
    void findParts();

    struct Machine {
        AxisNames axes;
        std::string fault;
    };
    const Machine& machineOf(const std::string& parameters);

    migrate::Project project_;
    migrate::Discovery discovery_;
    std::vector<Part> parts_;
    migrate::FolderListings listings_;
    std::shared_ptr<const ReferenceRows> reference_;
    std::shared_ptr<const SiteConstants> constants_;
    std::map<std::string, Machine> machines_;
};

}  // namespace torvel::language
