#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "src/base/file-descriptor.h"
#include "src/base/file-system.h"

namespace torvel {

namespace {

FileIdentity identityOf(const struct stat& status) {
    return {static_cast<std::uint64_t>(status.st_dev) + 1,
            static_cast<std::uint64_t>(status.st_ino)};
}

}  // namespace

NativePath nativePath(std::string_view text) {
    return NativePath(text);
}

std::string narrowPath(const NativePath& path) {
    return path.native();
}

NativePath includedPath(const NativePath& directory, std::string_view text) {
    NativePath path = directory / NativePath(text);
    if (text.find('\\') != std::string_view::npos && fileKind(path) == FileKind::missing) {
        std::string withSlashes(text);
        std::replace(withSlashes.begin(), withSlashes.end(), '\\', '/');
        path = directory / NativePath(withSlashes);
    }
    return path;
}

std::string_view withoutDrive(std::string_view path) {
    return path;
}

std::size_t characterLength(char /*first*/) {
    return 1;
}

#ifdef __EMSCRIPTEN__
/// The file system in memory has no links, and takes the steps of a path by their text: "none/.." is there, and a file
/// with a separator behind it too.
constexpr bool isInMemory = true;
#else
constexpr bool isInMemory = false;
#endif

FileKind fileKind(const NativePath& path) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    switch (status.type()) {
        case std::filesystem::file_type::none:
        case std::filesystem::file_type::not_found: return FileKind::missing;
        case std::filesystem::file_type::regular:
            return isInMemory && !path.has_filename() ? FileKind::missing : FileKind::regular;
        case std::filesystem::file_type::directory: return FileKind::directory;
        default: return FileKind::other;
    }
}

NativePath unboundedPath(const NativePath& path) {
    return path;
}

NativePath pathAt(const NativePath& directory, std::string_view text) {
    return directory / nativePath(text);
}

NativePath relativePath(const NativePath& path, const NativePath& directory) {
    return path.lexically_relative(directory);
}

NativePath tidyPath(const NativePath& path) {
    return path.lexically_normal();
}

NativePath canonicalPath(const NativePath& path) {
    std::error_code error;
    const NativePath absolute = std::filesystem::absolute(path, error);
    if (error) {
        return path.lexically_normal();
    }
    if (isInMemory) {
        const NativePath normal = absolute.lexically_normal();
        const bool isFolder = !normal.has_filename() && fileKind(normal) == FileKind::directory;
        return isFolder ? normal.parent_path() : normal;
    }
    NativePath canonical = std::filesystem::weakly_canonical(absolute, error);
    return error ? absolute.lexically_normal() : canonical;
}

FoundFile findFile(const NativePath& path) {
    NativePath canonical = canonicalPath(path);
    const FileKind kind = fileKind(canonical);
    return {std::move(canonical), kind};
}

FileIdentity fileIdentity(const NativePath& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 ? identityOf(status) : FileIdentity();
}

bool InputFile::open(const NativePath& path) {
    // Not to wait for the other end where a pipe has taken the place of the file.
    descriptor_ = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    struct stat status {};
    if (descriptor_ < 0 || fstat(descriptor_, &status) != 0 || !S_ISREG(status.st_mode)) {
        return false;
    }
    size_ = static_cast<std::uint64_t>(status.st_size);
    identity_ = identityOf(status);
    return true;
}

bool OutputFile::open(const NativePath& path) {
    // A pipe that nobody reads is not waited for; one that is read takes its time.
    constexpr int create = O_WRONLY | O_CREAT | O_TRUNC;
    descriptor_ = ::open(path.c_str(), create | O_NONBLOCK | O_CLOEXEC | O_NOCTTY, 0666);
    return descriptor_ >= 0 && fcntl(descriptor_, F_SETFL, O_WRONLY) == 0;
}

std::ptrdiff_t readSome(int descriptor, char* data, std::size_t length) {
    ssize_t count = -1;
    do {
        count = ::read(descriptor, data, length);
    } while (count < 0 && errno == EINTR);
    return count;
}

std::ptrdiff_t writeSome(int descriptor, const char* data, std::size_t length) {
    ssize_t count = -1;
    do {
        count = ::write(descriptor, data, length);
    } while (count < 0 && errno == EINTR);
    return count;
}

void emptyFile(int descriptor) {
    [[maybe_unused]] const int ignored = ::ftruncate(descriptor, 0);
}

bool closeDescriptor(int descriptor) {
    return ::close(descriptor) == 0;
}

}  // namespace torvel
