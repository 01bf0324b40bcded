#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "src/base/text-buffer.h"

// What the program needs of the operating system's files. Paths are byte strings in the system's code
// page where users see or write them, and the system's own form (NativePath) for opening.
// file-system.cpp holds what is the same everywhere; file-system-posix.cpp what is not.

namespace torvel {

using NativePath = std::filesystem::path;

enum class FileKind : std::uint8_t { missing, regular, directory, other };

/// Tells whether two paths lead to one file. A default one equals no file's.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t file = 0;

    bool operator==(const FileIdentity&) const = default;
};

/// The native form of a path that a user or a program wrote.
NativePath nativePath(std::string_view text);

/// The narrow form of a path, with the platform's own separators.
std::string narrowPath(const NativePath& path);

// Drives, and shares as Windows has them, are roots: there is no way from one to another. Not every library takes the
// name of a share for a root, so these are for paths that may be anywhere.

/// `text`, a path that a user or a program wrote, as one that is absolute or starts at `directory`, which is absolute.
NativePath pathAt(const NativePath& directory, std::string_view text);

/// The way to `path` from `directory`, both absolute; empty: it has another root.
NativePath relativePath(const NativePath& path, const NativePath& directory);

/// A path without "." and "..", links not followed, with the platform's own separators.
NativePath tidyPath(const NativePath& path);

/// What stands at `path`, links followed. A path that cannot be examined is missing.
FileKind fileKind(const NativePath& path);

/// The file's identity; a default one if there is no file.
FileIdentity fileIdentity(const NativePath& path);

/// `path` in the form that the system takes whatever its length, for who calls the system or the standard library.
NativePath unboundedPath(const NativePath& path);

/// `path` made absolute against the working directory, with links, "." and ".." resolved as far as the
/// path exists.
NativePath canonicalPath(const NativePath& path);

/// What a path leads to.
struct FoundFile {
    /// The canonical path: one for all the paths that lead there.
    NativePath path;
    FileKind kind = FileKind::missing;
};

/// Both at once, with fewer questions to the system.
FoundFile findFile(const NativePath& path);

/// `text`, a path from an `#include`, as a path that is absolute or starts at `directory`. Where
/// only "/" separates, a path written with back slashes that does not exist as it stands is taken
/// with slashes in their place.
NativePath includedPath(const NativePath& directory, std::string_view text);

/// `path` as diagnostics show it: relative to `directory` where there is such a path, with forward
/// slashes. Both are canonical.
std::string displayPath(const NativePath& path, const NativePath& directory);

/// The file beside `path` that has `ending` behind the same name.
NativePath withEnding(const NativePath& path, std::string_view ending);

/// `path` without a drive in front ("C:"), on platforms that have drives.
std::string_view withoutDrive(std::string_view path);

/// How many bytes the character takes that begins with `first`, in a code page where bytes of a longer
/// one can be separators.
std::size_t characterLength(char first);

/// The last component of a path: what follows the last "\" or "/", or the drive.
std::string_view lastComponent(std::string_view path);

/// The stem of a file name: without its last extension, a leading "." starting none, and without the
/// suffix of an alternate stream (":" and what follows).
std::string_view fileStem(std::string_view name);

/// A file open for reading.
class InputFile {
public:
    /// False if the file cannot be opened, or is no regular file.
    bool open(const NativePath& path);
    /// The file's length in bytes when it was opened.
    std::uint64_t size() const { return size_; }
    const FileIdentity& identity() const { return identity_; }
    /// Reads up to `length` bytes; returns how many there were (fewer if the file has become
    /// shorter). `failed` is set when the system reports an error.
    std::size_t read(char* data, std::size_t length, bool& failed);

    InputFile() = default;
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;
    ~InputFile();

private:
    int descriptor_ = -1;
    std::uint64_t size_ = 0;
    FileIdentity identity_;
};

/// A file open for writing, with a buffer. Line feeds become the platform's line ends. A file that is
/// not written to its end and closed is left empty.
class OutputFile {
public:
    /// Creates or empties the file. False if that cannot be done, or for a pipe without a reader.
    bool open(const NativePath& path);
    void write(std::string_view text) { buffer() += text; }
    /// The text that is not written yet, for appending to it.
    TextBuffer& buffer() {
        if (buffer_.size() >= bufferSize) {
            flush();
        }
        return buffer_;
    }
    /// Writes what is buffered and closes. False if any write failed.
    bool close();

    OutputFile() = default;
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    ~OutputFile();

private:
    static constexpr std::size_t bufferSize = std::size_t{1} << 16U;
    void flush();
    /// Empties the file and closes it.
    void discard();

    int descriptor_ = -1;
    bool failed_ = false;
    TextBuffer buffer_;
};

}  // namespace torvel
