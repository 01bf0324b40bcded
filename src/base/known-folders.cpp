#include "src/base/known-folders.h"

#include <system_error>
#include <utility>

namespace torvel {

NativePath KnownFolders::canonicalFolder(const NativePath::string_type& folder,
                                         const FileSource& source) {
    {
        const std::lock_guard lock(mutex_);
        const auto known = folders_.find(folder);
        if (known != folders_.end()) {
            return known->second;
        }
    }
    FoundFile found = source.find(folder);
    if (found.kind == FileKind::directory) {
        const std::lock_guard lock(mutex_);
        folders_.emplace(folder, found.path);
    }
    return std::move(found.path);
}

FoundFile KnownFolders::find(const NativePath& path, const FileSource& source) {
    const NativePath::string_type& text = path.native();
    const std::size_t slash = text.rfind(NativePath::value_type{'/'});
    // Names have one spelling only where nothing but "/" separates.
    if (NativePath::preferred_separator != '/' || !path.is_absolute() || slash == 0) {
        return source.find(path);
    }
    const NativePath name = text.substr(slash + 1);
    if (name.empty() || name == "." || name == "..") {
        return source.find(path);
    }
    NativePath inFolder = canonicalFolder(text.substr(0, slash), source) / name;
    std::error_code error;
    const auto status = std::filesystem::symlink_status(inFolder, error);
    if (status.type() != std::filesystem::file_type::regular) {
        return source.find(path);
    }
    return {std::move(inFolder), FileKind::regular};
}

FileSource withKnownFolders(const FileSource& source, KnownFolders& folders) {
    FileSource known = source;
    known.find = [source, &folders](const NativePath& path) { return folders.find(path, source); };
    return known;
}

}  // namespace torvel
