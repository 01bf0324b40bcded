#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>

#include <system_error>

#include "src/migrate/new-file-system.h"
#include "src/migrate/new-file.h"

namespace torvel::migrate {

namespace {

/// A virus scanner or an editor has the file open for a moment.
constexpr DWORD patience = 4000;
constexpr DWORD pause = 50;

bool mayPass(DWORD error) {
    return error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED ||
           error == ERROR_LOCK_VIOLATION;
}

int openNew(const NativePath& path) {
    constexpr int create = _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY | _O_NOINHERIT;
    return _wopen(path.c_str(), create, _S_IREAD | _S_IWRITE);
}

}  // namespace

std::string platformText(std::string_view text) {
    std::string result;
    result.reserve(text.size() + text.size() / 16);
    for (const char c : text) {
        result += c == '\n' ? "\r\n" : std::string_view(&c, 1);
    }
    return result;
}

int createFile(const NativePath& path) {
    const NativePath place = unboundedPath(path);
    DeleteFileW(place.c_str());
    return openNew(place);
}

bool createEmptyFile(const NativePath& path) {
    const int descriptor = openNew(unboundedPath(path));
    return descriptor >= 0 && _close(descriptor) == 0;
}

bool takePermissions(int /*descriptor*/, const NativePath& /*old*/) {
    // The folder gives them.
    return true;
}

bool flushFile(int descriptor) {
    return _commit(descriptor) == 0;
}

bool canFlushFolder() {
    return false;
}

void flushFolder(const NativePath& /*folder*/) {}

bool replaceFile(const NativePath& from, const NativePath& to) {
    const NativePath source = unboundedPath(from);
    const NativePath target = unboundedPath(to);
    for (DWORD waited = 0;; waited += pause) {
        if (MoveFileExW(source.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING) != 0) {
            return true;
        }
        const DWORD error = GetLastError();
        if (!mayPass(error) || waited >= patience) {
            SetLastError(error);
            return false;
        }
        Sleep(pause);
    }
}

std::string lastError() {
    std::string text = std::system_category().message(static_cast<int>(GetLastError()));
    while (text.ends_with('\n') || text.ends_with('\r') || text.ends_with('.')) {
        text.pop_back();
    }
    return text;
}

}  // namespace torvel::migrate
