#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "src/base/file-descriptor.h"
#include "src/migrate/lock-file.h"

namespace torvel::migrate {

namespace {

/// Whether the path still leads to the open file: its owner takes it away when he ends.
bool isStillAt(const NativePath& path, int descriptor) {
    struct stat open {};
    struct stat there {};
    return fstat(descriptor, &open) == 0 && stat(path.c_str(), &there) == 0 &&
           open.st_dev == there.st_dev && open.st_ino == there.st_ino;
}

}  // namespace

LockOutcome LockFile::take(const NativePath& path) {
    while (true) {
        const int descriptor =
            ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0666);
        if (descriptor < 0) {
            return LockOutcome::failed;
        }
        // A file system without locks leaves it to the database's own.
        if (flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
            closeDescriptor(descriptor);
            return LockOutcome::heldByAnother;
        }
        if (isStillAt(path, descriptor)) {
            path_ = path;
            file_ = descriptor;
            return LockOutcome::taken;
        }
        closeDescriptor(descriptor);
    }
}

void LockFile::write(std::string_view text) {
    const int descriptor = static_cast<int>(file_);
    emptyFile(descriptor);
    writeSome(descriptor, text.data(), text.size());
}

LockFile::~LockFile() {
    if (file_ >= 0) {
        ::unlink(path_.c_str());
        closeDescriptor(static_cast<int>(file_));
    }
}

std::string lockFileText(const NativePath& path) {
    InputFile file;
    if (!file.open(path)) {
        return {};
    }
    std::string text(1000, '\0');
    bool hasFailed = false;
    text.resize(file.read(text.data(), text.size(), hasFailed));
    return text;
}

std::string processName() {
    std::array<char, 256> host{};
    gethostname(host.data(), host.size() - 1);
    return "process " + std::to_string(getpid()) + " on " + host.data();
}

}  // namespace torvel::migrate
