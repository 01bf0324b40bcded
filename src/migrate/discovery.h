#pragma once

#include <string>
#include <vector>

#include "src/migrate/program-result.h"
#include "src/migrate/project.h"

namespace torvel::migrate {

/// A program to be converted.
struct FoundProgram {
    /// Its key, and where it is.
    std::string program;
    NativePath path;
    /// The key of its output.
    std::string output;
    /// The parameter file of its machine; empty: none. A key.
    std::string parameters;
    /// The folder of its machine; empty: the project's.
    std::string machine;
    /// Other programs with the same output, also by case: it is not converted.
    std::vector<std::string> collidesWith;
};

/// What a person is told about the files that were found, one sentence each.
struct Notice {
    /// Key of the file or folder that it is about; empty: the project.
    std::string path;
    std::string text;
};

struct Discovery {
    /// In the order of their keys, whatever the order of the file system.
    std::vector<FoundProgram> programs;
    /// Files that only others include, in order.
    std::vector<std::string> parts;
    std::vector<Notice> notices;
};

/// Finds the programs of a project. Throws std::runtime_error with a complete message if a source folder is not
/// there or cannot be read.
Discovery findPrograms(const Project& project);

}  // namespace torvel::migrate
