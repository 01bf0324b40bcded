#pragma once

#include <atomic>
#include <optional>
#include <string>
#include <vector>

#include "src/migrate/discovery.h"
#include "src/migrate/project.h"

namespace torvel::migrate {

/// A file of the sources that may be a program.
struct WalkedFile {
    /// Canonical. Text, since a NativePath takes ten times the room and there may be very many.
    NativePath::string_type path;
    std::string key;
    /// Its key as the folders were walked through; another one than `key` behind a link.
    std::string place;
    /// The part of `place` that its output does not repeat.
    std::string base;
    /// A program whether another file includes it or not.
    bool isAlways = false;
    /// It is of what the command line names, or the command line names nothing.
    bool isNamed = true;
};

struct SourceWalk {
    /// Each file once, in the order of the keys.
    std::vector<WalkedFile> files;
    std::vector<Notice> notices;
    /// Folders that could not be listed, and sources without such a file. Keys.
    std::vector<std::string> unlisted;
    std::vector<std::string> emptySources;
    /// Patterns of programs_always that no file matches.
    std::vector<std::string> unmatched;
};

/// Walks through the sources of a project. Throws std::runtime_error with a complete message if a source is not there
/// or cannot be listed, Interrupted.
SourceWalk walkSources(const Project& project, const std::atomic<bool>* isInterrupted = nullptr);

/// A path of the project as a key, links not followed.
std::string placeOf(const Project& project, std::string_view path);

/// Whether a key is that of a folder, or of something in it. The same of paths, canonical.
bool isInside(std::string_view key, std::string_view folder);
bool isPathInside(const NativePath& path, const NativePath& folder);

}  // namespace torvel::migrate
