#include "src/migrate/folder-list.h"

#include <algorithm>
#include <system_error>

namespace torvel::migrate {

namespace {

namespace fs = std::filesystem;

/// The kind as the folder's own entry tells it: no file is asked for.
EntryKind kindOf(const fs::directory_entry& entry) {
    std::error_code error;
    if (entry.is_symlink(error)) {
        return EntryKind::link;
    }
    if (entry.is_regular_file(error)) {
        return EntryKind::file;
    }
    return entry.is_directory(error) ? EntryKind::folder : EntryKind::other;
}

}  // namespace

FolderList listFolder(const NativePath& folder) {
    FolderList list;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        list.entries.push_back({entry->path().filename().native(), kindOf(*entry)});
    }
    if (error) {
        list.failure = error.message();
    }
    std::sort(list.entries.begin(), list.entries.end());
    return list;
}

}  // namespace torvel::migrate
