// The walk goes through folders first and then through what links lead to, so that a file has the same place
// whatever the order of the file system.

#include "src/migrate/source-walk.h"

#include <algorithm>
#include <array>
#include <deque>
#include <iterator>
#include <stdexcept>
#include <tuple>
#include <unordered_set>

#include "src/base/characters.h"
#include "src/migrate/folder-list.h"
#include "src/migrate/interruption.h"
#include "src/migrate/path-pattern.h"
#include "src/migrate/recorded-source.h"

namespace torvel::migrate {

namespace {

constexpr std::string_view noRegularFile = "It is left out, because it is no regular file.";

/// A source of the project, or what the command line names outside of them.
struct Root {
    NativePath path;
    /// The place of the folder, of a file the one that it is in.
    std::string place;
    std::string base;
    /// The number of the base.
    std::uint32_t number = 0;
    bool isFile = false;
    bool isNamed = false;
};

/// A folder or a link that is still to be visited.
struct Pending {
    NativePath path;
    std::string key;
    std::string place;
    const Root* root = nullptr;
};

struct Walk {
    const Project& project;
    NativePath output;
    std::vector<WalkedFile> files;
    std::unordered_set<NativePath::string_type> visited;
    std::deque<Pending> folders;
    std::deque<Pending> links;
    bool isBehindLink = false;
    std::vector<Notice> notices;
    std::vector<std::string> unlisted;
    std::vector<std::string> unmatched;
    const std::atomic<bool>* isInterrupted = nullptr;
};

std::string joined(const std::string& folder, const std::string& name) {
    return folder.empty() || folder == "." ? name
                                           : folder + (folder.ends_with('/') ? "" : "/") + name;
}

/// The key of the folder around a key.
std::string folderOf(const std::string& key) {
    const std::size_t slash = key.rfind('/');
    return slash == std::string::npos ? "." : key.substr(0, std::max<std::size_t>(slash, 1));
}

/// What is inside of `folder` of a key that is inside.
std::string_view behind(std::string_view key, std::string_view folder) {
    if (folder == ".") {
        return key;
    }
    key.remove_prefix(std::min(folder.size(), key.size()));
    return key.starts_with('/') ? key.substr(1) : key;
}

/// Patterns count from the project's folder and from the source.
bool matches(const std::vector<std::string>& patterns, const std::string& place, const Root& root) {
    return matchesAny(patterns, place) || (root.place != "." && isInside(place, root.place) &&
                                           matchesAny(patterns, behind(place, root.place)));
}

/// What the converter and this program write is never a program.
bool isOutputName(std::string_view name) {
    constexpr std::array<std::string_view, 4> endings{".torvel", ".log", ".conflict", ".sqlite"};
    std::string small(name);
    std::transform(small.begin(), small.end(), small.begin(), lowerCase);
    return std::any_of(endings.begin(), endings.end(),
                       [&](std::string_view ending) { return small.ends_with(ending); });
}

bool mayBeProgram(const Walk& walk, const Pending& entry) {
    return !isOutputName(entry.key) && !matches(walk.project.exclude, entry.place, *entry.root) &&
           (matches(walk.project.programs, entry.place, *entry.root) ||
            matches(walk.project.programsAlways, entry.place, *entry.root));
}

void addFile(Walk& walk, const Pending& entry, bool isAlways) {
    WalkedFile file;
    file.key = entry.key;
    if (entry.place != entry.key) {
        file.otherPlace = entry.place;
    }
    file.base = entry.root->number;
    file.isAlways = isAlways;
    file.isExtra = entry.root->isNamed;
    file.isBehindLink = walk.isBehindLink;
    walk.files.push_back(std::move(file));
}

/// Whether the file is always a program; what names it matches something.
bool takeAlways(Walk& walk, const Pending& entry) {
    std::erase_if(walk.unmatched, [&](const std::string& pattern) {
        return matches({pattern}, entry.place, *entry.root);
    });
    return matches(walk.project.programsAlways, entry.place, *entry.root);
}

void considerFile(Walk& walk, const Pending& entry) {
    if (mayBeProgram(walk, entry)) {
        addFile(walk, entry, takeAlways(walk, entry));
    }
}

void considerEntry(Walk& walk, const Pending& folder, const FolderEntry& entry) {
    const NativePath name(entry.name);
    const std::string text = narrowPath(name);
    Pending inside{folder.path / name, joined(folder.key, text), joined(folder.place, text),
                   folder.root};
    // A key writes it as "/": the file could not be told from one in a folder.
    if (entry.name.find(NativePath::value_type{'\\'}) != NativePath::string_type::npos) {
        if (entry.kind == EntryKind::folder || mayBeProgram(walk, inside)) {
            walk.notices.push_back({inside.key,
                                    "It is left out, because its name has a back slash. Rename it, "
                                    "if it is to be converted."});
        }
        return;
    }
    switch (entry.kind) {
        case EntryKind::file: considerFile(walk, inside); break;
        case EntryKind::folder: walk.folders.push_back(std::move(inside)); break;
        case EntryKind::link: walk.links.push_back(std::move(inside)); break;
        case EntryKind::other:
            if (mayBeProgram(walk, inside)) {
                walk.notices.push_back({inside.key, std::string(noRegularFile)});
            }
            break;
    }
}

bool isExcludedFolder(const Walk& walk, const Pending& folder) {
    return folder.path == walk.output || matches(walk.project.exclude, folder.place, *folder.root);
}

void walkFolder(Walk& walk, const Pending& folder, bool isRoot) {
    endIfInterrupted(walk.isInterrupted);
    if (!walk.visited.insert(folder.path.native()).second) {
        return;
    }
    const FolderList list = listFolder(folder.path);
    if (!list.failure.empty()) {
        if (isRoot && list.entries.empty()) {
            throw std::runtime_error("The source '" + folder.place +
                                     "' could not be listed: " + list.failure + ".");
        }
        walk.unlisted.push_back(folder.key);
        walk.notices.push_back({folder.key, "The folder could not be listed (" + list.failure +
                                                "): programs in it are not converted."});
    }
    for (const FolderEntry& entry : list.entries) {
        considerEntry(walk, folder, entry);
    }
}

void walkFolders(Walk& walk) {
    while (!walk.folders.empty()) {
        const Pending folder = std::move(walk.folders.front());
        walk.folders.pop_front();
        if (!isExcludedFolder(walk, folder)) {
            walkFolder(walk, folder, false);
        }
    }
}

/// A link counts as what it leads to; a link to a folder around itself would not end.
void followLink(Walk& walk, Pending link) {
    const NativePath target = canonicalPath(link.path);
    switch (fileKind(target)) {
        case FileKind::regular:
            link.path = target;
            link.key = keyOf(target, walk.project.folder);
            considerFile(walk, link);
            break;
        case FileKind::directory:
            if (isExcludedFolder(walk, link) || isPathInside(target, walk.output)) {
                break;
            }
            if (isPathInside(canonicalPath(link.path.parent_path()), target)) {
                walk.notices.push_back({link.place,
                                        "It is a link to a folder around it, and was not followed.",
                                        true});
                break;
            }
            link.path = target;
            link.key = keyOf(target, walk.project.folder);
            walkFolder(walk, link, false);
            walkFolders(walk);
            break;
        case FileKind::missing:
            if (mayBeProgram(walk, link)) {
                walk.notices.push_back({link.place, "It is a link that leads nowhere."});
            }
            break;
        case FileKind::other:
            if (mayBeProgram(walk, link)) {
                walk.notices.push_back({link.place, std::string(noRegularFile)});
            }
            break;
    }
}

void walkRoot(Walk& walk, const Root& root) {
    const std::string key = keyOf(root.path, walk.project.folder);
    if (root.isFile) {
        const std::string place = joined(root.place, narrowPath(root.path.filename()));
        addFile(walk, {root.path, key, place, &root}, true);
        return;
    }
    walkFolder(walk, {root.path, key, root.place, &root}, true);
    walkFolders(walk);
}

/// The folder around all the roots; empty: there is none that keys tell.
std::string commonFolder(const std::vector<Root>& roots) {
    std::string common = roots.front().place;
    for (const Root& root : roots) {
        while (!isInside(root.place, common)) {
            const bool isDrive = isAbsoluteKey(common) && common.find('/') == std::string::npos;
            if (common == "." || common == ".." || common.ends_with("/..") || common == "/" ||
                isDrive) {
                return {};
            }
            common = folderOf(common);
        }
    }
    return common;
}

std::vector<Root> rootsOf(const Project& project, const std::vector<std::string>& paths,
                          bool isNamed) {
    std::vector<Root> roots;
    for (const std::string& path : paths) {
        Root root;
        root.path = projectPath(project, path);
        root.place = placeOf(project, path);
        root.isNamed = isNamed;
        switch (fileKind(root.path)) {
            case FileKind::directory: break;
            case FileKind::regular:
                root.isFile = true;
                root.place = folderOf(root.place);
                break;
            case FileKind::missing:
                throw std::runtime_error("The source '" + path + "' is not there.");
            case FileKind::other:
                throw std::runtime_error("The source '" + path +
                                         "' is neither a folder nor a file.");
        }
        roots.push_back(std::move(root));
    }
    return roots;
}

void setBases(std::vector<Root>& roots) {
    if (!roots.empty()) {
        const std::string base = commonFolder(roots);
        for (Root& root : roots) {
            root.base = base.empty() ? root.place : base;
        }
    }
}

/// The sources, and what is named outside of them. Files that are named are always programs.
std::vector<Root> allRoots(const Project& project, std::vector<std::string>& bases) {
    std::vector<Root> roots = rootsOf(project, project.sources, false);
    setBases(roots);
    std::vector<Root> inside;
    std::vector<Root> outside;
    for (Root& root : rootsOf(project, project.named, true)) {
        const auto around = std::find_if(roots.begin(), roots.end(), [&](const Root& source) {
            return !source.isFile &&
                   (isPathInside(root.path, source.path) || isInside(root.place, source.place));
        });
        if (around == roots.end()) {
            outside.push_back(std::move(root));
        } else if (root.isFile) {
            root.base = around->base;
            inside.push_back(std::move(root));
        }
    }
    setBases(outside);
    for (std::vector<Root>* const others : {&inside, &outside}) {
        std::move(others->begin(), others->end(), std::back_inserter(roots));
    }
    for (Root& root : roots) {
        root.number = static_cast<std::uint32_t>(bases.size());
        bases.push_back(root.base);
    }
    return roots;
}

/// Of a file that was found in several ways the one in the sources and without links counts; a file that is named is
/// always a program.
void keepEachOnce(std::vector<WalkedFile>& files) {
    std::sort(files.begin(), files.end(), [](const WalkedFile& left, const WalkedFile& right) {
        return std::tie(left.key, left.isExtra, left.isBehindLink, left.place()) <
               std::tie(right.key, right.isExtra, right.isBehindLink, right.place());
    });
    std::size_t kept = 0;
    for (WalkedFile& file : files) {
        if (kept > 0 && files[kept - 1].key == file.key) {
            files[kept - 1].isAlways = files[kept - 1].isAlways || file.isAlways;
        } else if (&files[kept++] != &file) {
            files[kept - 1] = std::move(file);
        }
    }
    files.resize(kept);
}

/// Whether the key or a folder around it is one of `keys`.
bool isInsideAny(std::string_view key, const std::unordered_set<std::string>& keys) {
    if (isInside(key, ".") && keys.contains(".")) {
        return true;
    }
    for (std::size_t end = key.find('/'); end != std::string_view::npos;
         end = key.find('/', end + 1)) {
        if (keys.contains(std::string(key.substr(0, std::max<std::size_t>(end, 1))))) {
            return true;
        }
    }
    return keys.contains(std::string(key));
}

/// Sources that are folders without any of the files.
std::vector<std::string> emptySources(const Project& project,
                                      const std::vector<WalkedFile>& files) {
    std::vector<std::string> keys;
    for (const std::string& source : project.sources) {
        const std::string key = keyOf(projectPath(project, source), project.folder);
        const std::string place = placeOf(project, source);
        const auto holds = [&](const WalkedFile& file) {
            return isInside(file.key, key) || isInside(file.place(), place);
        };
        if (std::none_of(files.begin(), files.end(), holds)) {
            keys.push_back(key);
        }
    }
    return keys;
}

void chooseNamed(const Project& project, std::vector<WalkedFile>& files) {
    if (project.named.empty()) {
        return;
    }
    std::unordered_set<std::string> keys;
    for (const std::string& path : project.named) {
        keys.insert(keyOf(projectPath(project, path), project.folder));
        keys.insert(placeOf(project, path));
    }
    for (WalkedFile& file : files) {
        file.isNamed = isInsideAny(file.key, keys) || isInsideAny(file.place(), keys);
    }
}

}  // namespace

std::string placeOf(const Project& project, std::string_view path) {
    std::string place = keyOf(tidyPath(pathAt(project.folder, path)), project.folder);
    if (place.size() > 1 && place.ends_with('/')) {
        place.pop_back();
    }
    return place;
}

bool isInside(std::string_view key, std::string_view folder) {
    if (folder == ".") {
        return key != ".." && !key.starts_with("../") && !isAbsoluteKey(key);
    }
    return key.starts_with(folder) &&
           (key.size() == folder.size() || key[folder.size()] == '/' || folder.ends_with('/'));
}

bool isPathInside(const NativePath& path, const NativePath& folder) {
    return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first ==
           folder.end();
}

SourceWalk walkSources(const Project& project, const std::atomic<bool>* isInterrupted) {
    if (project.sources.empty() && project.named.empty()) {
        throw std::runtime_error(
            "No sources are named. Give the folder of the programs, or 'sources' in "
            "migration.toml.");
    }
    std::vector<std::string> bases;
    const std::vector<Root> roots = allRoots(project, bases);
    Walk walk{project, projectPath(project, project.output),
              {},      {},
              {},      {},
              false,   {},
              {},      project.programsAlways};
    walk.isInterrupted = isInterrupted;
    for (const Root& root : roots) {
        walkRoot(walk, root);
    }
    walk.isBehindLink = true;
    while (!walk.links.empty()) {
        const Pending link = std::move(walk.links.front());
        walk.links.pop_front();
        followLink(walk, link);
    }
    keepEachOnce(walk.files);
    SourceWalk result{std::move(walk.files),
                      std::move(bases),
                      std::move(walk.notices),
                      std::move(walk.unlisted),
                      {},
                      std::move(walk.unmatched)};
    result.emptySources = emptySources(project, result.files);
    chooseNamed(project, result.files);
    return result;
}

}  // namespace torvel::migrate
