#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

#include "src/base/file-system.h"

namespace torvel {

/// What came of reading a file.
struct FileReading {
    bool isOpened = false;
    /// The system reported an error while the file was read.
    bool hasFailed = false;
    /// Bytes that were read: fewer than were announced if the file has become shorter.
    std::size_t length = 0;
    FileIdentity identity;
};

/// Gives room for a file's bytes, whose number it is told. May throw to end the reading.
using MakeRoom = std::function<char*(std::uint64_t size)>;

/// Where the files of a program come from: the file system, or whatever a caller holds. Everything that the
/// preprocessor asks of files goes through it, so it also learns what was looked for and not found.
struct FileSource {
    /// The path of an `#include` written as `text` in a file of `directory`.
    std::function<NativePath(const NativePath& directory, std::string_view text)> includedPath;
    /// What a path leads to.
    std::function<FoundFile(const NativePath& path)> find;
    /// Reads the regular file at a canonical path.
    std::function<FileReading(const NativePath& path, const MakeRoom& makeRoom)> read;
};

/// The files of the system.
FileSource fileSystemSource();

}  // namespace torvel
