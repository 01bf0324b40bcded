#pragma once

#include <memory>
#include <string>

#include "src/base/file-system.h"

namespace torvel::migrate {

/// Keeps other commands away from a store while it is written: the file beside it with ".lock" behind its name, which
/// the system holds for this process and lets go when the process ends, however it does. What stands in it is for
/// people: which process has it, where and since when.
class StoreLock {
public:
    /// Throws StoreInUse, with what is known of the other command, or StoreError: it cannot be made.
    explicit StoreLock(const NativePath& store);
    ~StoreLock();
    StoreLock(const StoreLock&) = delete;
    StoreLock& operator=(const StoreLock&) = delete;

private:
    class Held;
    std::unique_ptr<Held> held_;
};

/// What a command that is told of the lock may say: "process 12 on milling-pc since 2026-03-02 08:15:00 UTC"; empty if
/// nobody says so.
std::string lockHolder(const NativePath& store);

}  // namespace torvel::migrate
