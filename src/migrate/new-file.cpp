#include "src/migrate/new-file.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "src/base/file-descriptor.h"
#include "src/migrate/content-hash.h"
#include "src/migrate/new-file-system.h"

namespace torvel::migrate {

bool isTorn(std::string_view bytes, std::string_view whole) {
    return bytes.size() <= whole.size() &&
           std::equal(bytes.begin(), bytes.end(), whole.begin(),
                      [](char left, char right) { return left == right || left == '\0'; });
}

NativePath temporaryPath(const NativePath& path) {
    // Short, whatever the file's name: a name has a bound.
    const ContentHash hash = hashOf(narrowPath(path.filename()));
    return path.parent_path() / (".torvel-migrate-" + hexadecimal(hash).substr(0, 16) + ".new");
}

NewFile::NewFile(NativePath path) : path_(std::move(path)), temporary_(temporaryPath(path_)) {}

bool NewFile::write(std::string_view bytes, Flush flush, bool isFirst) {
    int descriptor = createFile(temporary_);
    if (descriptor < 0) {
        std::error_code failure;
        std::filesystem::create_directories(unboundedPath(path_.parent_path()), failure);
        if (failure) {
            error_ = failure.message();
            return false;
        }
        descriptor = createFile(temporary_);
    }
    if (descriptor < 0) {
        return fail();
    }
    isThere_ = true;
    bool isWritten = isFirst || takePermissions(descriptor, path_);
    while (isWritten && !bytes.empty()) {
        const std::ptrdiff_t count = writeSome(descriptor, bytes.data(), bytes.size());
        isWritten = count > 0;
        bytes.remove_prefix(isWritten ? static_cast<std::size_t>(count) : 0);
    }
    isWritten = isWritten && (flush == Flush::no || flushFile(descriptor));
    if (!isWritten) {
        fail();
    }
    return (closeDescriptor(descriptor) || fail()) && isWritten;
}

bool NewFile::putInPlace() {
    if (!replaceFile(temporary_, path_)) {
        return fail();
    }
    isThere_ = false;
    return true;
}

bool NewFile::fail() {
    if (error_.empty()) {
        error_ = lastError();
    }
    return false;
}

NewFile::~NewFile() {
    if (isThere_) {
        std::error_code ignored;
        std::filesystem::remove(unboundedPath(temporary_), ignored);
    }
}

}  // namespace torvel::migrate
