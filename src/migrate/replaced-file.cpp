#include "src/migrate/replaced-file.h"

#include <fstream>
#include <stdexcept>
#include <string>
#include <system_error>

namespace torvel::migrate {

namespace {

/// A file that goes unless it was given its final name.
class NewFile {
public:
    NewFile(const NativePath& target, bool isInPlace)
        : target_(target), path_(target), isCommitted_(isInPlace) {
        if (!isInPlace) {
            path_ += ".new";
        }
        stream_.open(path_, std::ios::binary | std::ios::trunc);
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    ~NewFile() {
        if (!isCommitted_) {
            stream_.close();
            std::error_code ignored;
            std::filesystem::remove(path_, ignored);
        }
    }

    bool isOpen() const { return stream_.is_open(); }
    void write(std::string_view piece) {
        stream_.write(piece.data(), static_cast<std::streamsize>(piece.size()));
    }
    bool close() {
        stream_.close();
        return !stream_.fail();
    }
    /// What went wrong, if anything did.
    std::error_code commit() {
        std::error_code error;
        if (isCommitted_) {
            return error;
        }
        std::filesystem::rename(path_, target_, error);
        isCommitted_ = !error;
        return error;
    }

private:
    NativePath target_;
    NativePath path_;
    std::ofstream stream_;
    bool isCommitted_;
};

}  // namespace

void replaceFile(const NativePath& path, const std::function<void(const TextSink&)>& write) {
    const std::string name = '\'' + narrowPath(path) + '\'';
    const FileKind kind = fileKind(path);
    if (kind == FileKind::directory) {
        throw std::runtime_error(name + " is a folder: give the name of a file.");
    }
    // What a link leads to is replaced, not the link; a device or pipe is written to as it is.
    NewFile file(kind == FileKind::missing ? path : canonicalPath(path), kind == FileKind::other);
    if (!file.isOpen()) {
        throw std::runtime_error(name +
                                 " could not be written: make sure that its folder is there and "
                                 "that you may write to it.");
    }
    write([&file](std::string_view piece) { file.write(piece); });
    if (!file.close()) {
        throw std::runtime_error(name + " could not be written: make sure that the disk has room.");
    }
    if (const std::error_code error = file.commit()) {
        throw std::runtime_error(name + " could not be replaced (" + error.message() +
                                 "): make sure that no other program has it open.");
    }
}

}  // namespace torvel::migrate
