#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

#include "src/migrate/discovery.h"
#include "src/migrate/project.h"

namespace torvel::migrate {

/// A file of the sources that may be a program. There may be very many, so each has little.
struct WalkedFile {
    std::string key;
    /// Its key as the folders were walked through, if that is another one: it is behind a link.
    std::string otherPlace;
    /// Which of the bases of the walk is the part of its place that its output does not repeat.
    std::uint32_t base = 0;
    /// A program whether another file includes it or not.
    bool isAlways = false;
    /// It is of what the command line names, or the command line names nothing.
    bool isNamed = true;
    /// Found because the command line names it.
    bool isExtra = false;
    bool isBehindLink = false;

    const std::string& place() const { return otherPlace.empty() ? key : otherPlace; }
};

struct SourceWalk {
    /// Each file once, in the order of the keys.
    std::vector<WalkedFile> files;
    std::vector<std::string> bases;
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
