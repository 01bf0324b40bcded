#include "src/migrate/any-case-source.h"

#include <algorithm>
#include <utility>

#include "src/migrate/folder-list.h"

namespace torvel::migrate {

namespace {

using Name = FolderListings::Name;

/// In lower case, as far as ASCII goes.
Name folded(Name name) {
    for (auto& c : name) {
        c = c >= 'A' && c <= 'Z' ? static_cast<Name::value_type>(c + ('a' - 'A')) : c;
    }
    return name;
}

/// A path of an `#include` as an absolute one, with the separators of both systems.
NativePath absolutePath(const NativePath& directory, std::string_view text) {
    std::string withSlashes(text);
    std::replace(withSlashes.begin(), withSlashes.end(), '\\', '/');
    return directory / nativePath(withSlashes);
}

/// What a path leads to whatever its case: of each folder on the way every name that fits.
std::vector<NativePath> pathsLike(const NativePath& path, FolderListings& listings) {
    std::vector<NativePath> found{path.root_path()};
    for (const NativePath& step : path.relative_path()) {
        if (step.empty() || step == ".") {
            continue;
        }
        std::vector<NativePath> next;
        for (const NativePath& folder : found) {
            if (step == "..") {
                next.push_back(folder / step);
                continue;
            }
            const std::vector<Name> names = listings.namesLike(folder, step.native());
            for (const Name& name : names) {
                next.push_back(folder / name);
            }
            // A folder that may be entered and not listed.
            if (names.empty() && fileKind(folder / step) == FileKind::directory) {
                next.push_back(folder / step);
            }
        }
        found = std::move(next);
    }
    return found;
}

}  // namespace

std::vector<Name> FolderListings::namesLike(const NativePath& folder, const Name& name) {
    const std::shared_ptr<const Listing> listing = listingOf(folder);
    const auto names = listing->find(folded(name));
    return names == listing->end() ? std::vector<Name>() : names->second;
}

std::shared_ptr<const FolderListings::Listing> FolderListings::listingOf(const NativePath& folder) {
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        const auto known = byFolder_.find(folder.native());
        if (known != byFolder_.end()) {
            return known->second;
        }
    }
    const auto listing = std::make_shared<Listing>();
    for (const FolderEntry& entry : listFolder(folder).entries) {
        (*listing)[folded(entry.name)].push_back(entry.name);
    }
    const std::lock_guard<std::mutex> lock(mutex_);
    return byFolder_.emplace(folder.native(), listing).first->second;
}

FileSource anyCaseSource(const FileSource& source, FolderListings& listings,
                         const OtherCaseTaker& tell) {
    FileSource anyCase = source;
    anyCase.includedPath = [source, &listings, tell](const NativePath& directory,
                                                     std::string_view text) {
        NativePath path = source.includedPath(directory, text);
        FoundFile found = source.find(path);
        if (found.kind != FileKind::missing) {
            return path;
        }
        OtherCase otherCase{std::move(found.path), {}};
        for (const NativePath& like : pathsLike(absolutePath(directory, text), listings)) {
            FoundFile file = source.find(like);
            if (file.kind == FileKind::regular) {
                otherCase.files.push_back(std::move(file.path));
            }
        }
        auto& files = otherCase.files;
        std::sort(files.begin(), files.end());
        files.erase(std::unique(files.begin(), files.end()), files.end());
        if (!files.empty()) {
            tell(otherCase);
        }
        return files.size() == 1 ? files.front() : path;
    };
    return anyCase;
}

}  // namespace torvel::migrate
