#pragma once

#include <string>
#include <string_view>

#include "src/base/file-system.h"

namespace torvel::migrate {

/// Whether a new file has to be on the disk before it takes its place. Waiting takes milliseconds; who does not wait
/// may find a part of the file, or an empty one, after a power cut.
enum class Flush : bool { no, yes };

/// A file that takes the place of another one, or stands there first, when it is complete: it is written beside it
/// under a name of its own. Its destructor takes away what was not put in place.
class NewFile {
public:
    /// `path` has no symbolic link at its end.
    explicit NewFile(NativePath path);
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    ~NewFile();

    /// Makes the folders that lead to it and the file, with the permissions of the one that it is to replace. False if
    /// something of it cannot be done; error() tells what. `isFirst`: it replaces none.
    bool write(std::string_view bytes, Flush flush, bool isFirst = false);
    bool putInPlace();
    /// The system's words for what failed.
    const std::string& error() const { return error_; }

private:
    bool fail();

    NativePath path_;
    NativePath temporary_;
    bool isThere_ = false;
    std::string error_;
};

/// Makes an empty file, of which nothing can be half written. False: something is there, or it cannot be made.
bool createEmptyFile(const NativePath& path);

/// Whether the system can flush all files below a folder at once. Where it cannot, each file is flushed.
bool canFlushFolder();

/// Waits until all that was written on the file system of a folder is on the disk. A run calls it before it confirms
/// outputs, some thousand at a time.
void flushFolder(const NativePath& folder);

/// Whether `bytes` are what a power cut may have left of `whole`, which was not flushed: the end or blocks of it are
/// missing.
bool isTorn(std::string_view bytes, std::string_view whole);

/// The name, in the same folder, under which a file is written before it is put in place. It is always the same one,
/// so that nothing piles up when a run is killed; two runs at once are kept apart by the lock of the store.
NativePath temporaryPath(const NativePath& path);

/// The text as the platform's files have it: with CR LF where that is the custom.
std::string platformText(std::string_view text);

}  // namespace torvel::migrate
