#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "src/base/file-system.h"

namespace torvel::migrate {

enum class EntryKind : std::uint8_t { file, folder, link, other };

struct FolderEntry {
    NativePath::string_type name;
    EntryKind kind{};

    bool operator<(const FolderEntry& other) const { return name < other.name; }
};

struct FolderList {
    /// In the order of their names, whatever the order of the file system.
    std::vector<FolderEntry> entries;
    /// Why it could not be listed, or not to its end; empty: it could.
    std::string failure;
};

/// What stands in a folder. Links are told as links.
FolderList listFolder(const NativePath& folder);

}  // namespace torvel::migrate
