#pragma once

#include <string>
#include <string_view>

#include "src/base/file-system.h"

// What StoreLock needs of the platform.

namespace torvel::migrate {

enum class LockOutcome : std::uint8_t { taken, heldByAnother, failed };

/// A file that one process at a time can have; it goes when its owner goes. If the process is killed the file may stay,
/// but nobody has it.
class LockFile {
public:
    LockFile() = default;
    ~LockFile();
    LockFile(const LockFile&) = delete;
    LockFile& operator=(const LockFile&) = delete;

    LockOutcome take(const NativePath& path);
    /// What others can read in it.
    void write(std::string_view text);

private:
    NativePath path_;
    /// A file descriptor, or a handle.
    std::intptr_t file_ = -1;
};

/// The text of a lock file, which another process may have open; empty if there is none.
std::string lockFileText(const NativePath& path);

/// "process 12 on milling-pc".
std::string processName();

}  // namespace torvel::migrate
