#pragma once

#include <atomic>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "src/migrate/program-result.h"
#include "src/migrate/project.h"

namespace torvel::migrate {

/// A program to be converted.
struct FoundProgram {
    /// Its key.
    std::string program;
    /// The key of its output.
    std::string output;
    /// The parameter file of its machine; empty: none. A key.
    std::string parameters;
    /// The folder of its machine; empty: the project's.
    std::string machine;
    /// Other programs with the same output, also by case, and sources that its output would replace: it is not
    /// converted.
    std::vector<std::string> collidesWith;
    /// Another program that the output in its place was made from, and that is still there (output-owners.h): it is
    /// not converted. Empty: none.
    std::string outputOwner;
    /// Another one when any file that its includes lead to is another, or leads elsewhere. Files that cannot be read
    /// count as missing.
    ContentHash reach{};
    /// That of its bytes, if it was read.
    std::optional<ContentHash> content;
};

/// What a person is told about the files that were found, one sentence each.
struct Notice {
    /// Key of the file or folder that it is about; empty: the project.
    std::string path;
    std::string text;
    /// Nothing is missing or in the way: it is no reason for a run to fail.
    bool isHint = false;
};

/// An include that leads to no file.
struct MissingInclude {
    /// Key of the file that has it, and its line.
    std::string file;
    std::uint32_t line = 0;
    /// As it is written, and the key of where it would be.
    std::string written;
    std::string target;
};

struct Discovery {
    /// In the order of their keys, whatever the order of the file system.
    std::vector<FoundProgram> programs;
    /// Files that only others include, in order.
    std::vector<std::string> parts;
    std::vector<Notice> notices;
    /// In the order of the files.
    std::vector<MissingInclude> missing;
    /// Folders that could not be listed, and sources without any file that may be a program, which may be because a
    /// disk is missing. Of programs in them nothing is known. Keys.
    std::vector<std::string> unlisted;
    std::vector<std::string> emptySources;
    /// Of each other file that could be read: the hash of its bytes.
    std::unordered_map<std::string, ContentHash> otherFiles;
};

/// Whether a program may be there though it was not found.
bool isUnseen(const Discovery& discovery, std::string_view program);

/// Finds the programs of a project, with this many threads (0: as many as the machine runs at once). Throws
/// std::runtime_error with a complete message if a source is not there or cannot be listed, Interrupted.
Discovery findPrograms(const Project& project, unsigned threads = 0,
                       const std::atomic<bool>* isInterrupted = nullptr);

}  // namespace torvel::migrate
