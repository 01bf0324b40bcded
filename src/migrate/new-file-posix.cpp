#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>

#include "src/migrate/new-file-system.h"
#include "src/migrate/new-file.h"

namespace torvel::migrate {

namespace {

int openNew(const NativePath& path) {
    return ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
}

}  // namespace

std::string platformText(std::string_view text) {
    return std::string(text);
}

int createFile(const NativePath& path) {
    const int descriptor = openNew(path);
    if (descriptor >= 0 || errno != EEXIST) {
        return descriptor;
    }
    ::unlink(path.c_str());
    return openNew(path);
}

bool createEmptyFile(const NativePath& path) {
    const int descriptor = openNew(path);
    return descriptor >= 0 && ::close(descriptor) == 0;
}

bool takePermissions(int descriptor, const NativePath& old) {
    struct stat status {};
    return stat(old.c_str(), &status) != 0 || fchmod(descriptor, status.st_mode & 0777U) == 0;
}

bool flushFile(int descriptor) {
    return ::fsync(descriptor) == 0;
}

bool canFlushFolder() {
    return true;
}

void flushFolder(const NativePath& folder) {
#ifdef __linux__
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor >= 0) {
        ::syncfs(descriptor);
        ::close(descriptor);
    }
#else
    static_cast<void>(folder);
    ::sync();
#endif
}

bool replaceFile(const NativePath& from, const NativePath& to) {
    return std::rename(from.c_str(), to.c_str()) == 0;
}

std::string lastError() {
    return std::generic_category().message(errno);
}

}  // namespace torvel::migrate
