#pragma once

#include <mutex>
#include <unordered_map>

#include "src/base/file-source.h"

namespace torvel {

/// Folders with the links on the way to them resolved, each once. Used by several threads.
class KnownFolders {
public:
    /// What `source` finds, by one question to the system for a file of a folder that is known.
    FoundFile find(const NativePath& path, const FileSource& source);

private:
    NativePath canonicalFolder(const NativePath::string_type& folder, const FileSource& source);

    std::mutex mutex_;
    std::unordered_map<NativePath::string_type, NativePath> folders_;
};

/// A source that finds files by way of `folders`, which has to outlive it. Links to folders are taken to stay as
/// they are meanwhile.
FileSource withKnownFolders(const FileSource& source, KnownFolders& folders);

}  // namespace torvel
