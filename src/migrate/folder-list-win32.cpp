#include <windows.h>

#include <algorithm>
#include <memory>
#include <string_view>
#include <system_error>

#include "src/migrate/folder-list.h"

// The library's iterator over a folder takes no path of more than 260 characters, in whatever form it is written.

namespace torvel::migrate {

namespace {

struct SearchEnd {
    using pointer = HANDLE;
    void operator()(HANDLE search) const { FindClose(search); }
};
using Search = std::unique_ptr<void, SearchEnd>;

EntryKind kindOf(const WIN32_FIND_DATAW& entry) {
    const bool isLink = (entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
                        (entry.dwReserved0 == IO_REPARSE_TAG_SYMLINK ||
                         entry.dwReserved0 == IO_REPARSE_TAG_MOUNT_POINT);
    if (isLink) {
        return EntryKind::link;
    }
    return (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? EntryKind::folder
                                                                    : EntryKind::file;
}

std::string messageOf(DWORD error) {
    return std::system_category().message(static_cast<int>(error));
}

}  // namespace

FolderList listFolder(const NativePath& folder) {
    FolderList list;
    WIN32_FIND_DATAW entry;
    const HANDLE first = FindFirstFileW(unboundedPath(folder / L"*").c_str(), &entry);
    if (first == INVALID_HANDLE_VALUE) {
        list.failure = messageOf(GetLastError());
        return list;
    }
    const Search search(first);
    do {
        const std::wstring_view name = entry.cFileName;
        if (name != L"." && name != L"..") {
            list.entries.push_back({std::wstring(name), kindOf(entry)});
        }
    } while (FindNextFileW(first, &entry) != 0);
    if (GetLastError() != ERROR_NO_MORE_FILES) {
        list.failure = messageOf(GetLastError());
    }
    std::sort(list.entries.begin(), list.entries.end());
    return list;
}

}  // namespace torvel::migrate
