#include "src/base/known-folders.h"

#include <system_error>

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
    NativePath canonical = source.canonicalPath(folder);
    if (source.kind(canonical) == FileKind::directory) {
        const std::lock_guard lock(mutex_);
        folders_.emplace(folder, canonical);
    }
    return canonical;
}

NativePath KnownFolders::canonicalPath(const NativePath& path, const FileSource& source) {
    const NativePath::string_type& text = path.native();
    const std::size_t slash = text.rfind(NativePath::value_type{'/'});
    // Names have one spelling only where nothing but "/" separates.
    if (NativePath::preferred_separator != '/' || !path.is_absolute() || slash == 0) {
        return source.canonicalPath(path);
    }
    const NativePath name = text.substr(slash + 1);
    if (name.empty() || name == "." || name == "..") {
        return source.canonicalPath(path);
    }
    NativePath inFolder = canonicalFolder(text.substr(0, slash), source) / name;
    std::error_code error;
    const auto status = std::filesystem::symlink_status(inFolder, error);
    return status.type() == std::filesystem::file_type::regular ? inFolder
                                                                : source.canonicalPath(path);
}

FileSource withKnownFolders(const FileSource& source, KnownFolders& folders) {
    FileSource known = source;
    known.canonicalPath = [source, &folders](const NativePath& path) {
        return folders.canonicalPath(path, source);
    };
    return known;
}

}  // namespace torvel
