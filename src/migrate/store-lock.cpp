#include "src/migrate/store-lock.h"

#include <fmt/chrono.h>

#include <algorithm>
#include <chrono>

#include "src/base/characters.h"
#include "src/migrate/database.h"
#include "src/migrate/lock-file.h"

namespace torvel::migrate {

namespace {

NativePath lockPath(const NativePath& store) {
    return withEnding(store, ".lock");
}

std::string now() {
    const std::time_t time = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    return fmt::format("{:%Y-%m-%d %H:%M:%S} UTC", fmt::gmtime(time));
}

}  // namespace

class StoreLock::Held {
public:
    LockFile file;
};

std::string lockHolder(const NativePath& store) {
    std::string text = lockFileText(lockPath(store));
    text.resize(std::min(text.find('\n'), text.size()));
    // The file may hold anything, and goes to a terminal.
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c < ' ' || c == '\x7f'; }, '?');
    return text;
}

StoreLock::StoreLock(const NativePath& store) : held_(std::make_unique<Held>()) {
    const std::string name = "The store \"" + narrowPath(store) + "\" ";
    switch (held_->file.take(lockPath(store))) {
        case LockOutcome::taken: break;
        case LockOutcome::heldByAnother: {
            const std::string holder = lockHolder(store);
            throw StoreInUse(name + "is in use by " +
                             (holder.empty() ? "another command" : "another command: " + holder) +
                             ". Wait until that has ended.");
        }
        case LockOutcome::failed:
            throw StoreError(
                name +
                "cannot be written: its folder is not there or is read-only. Change that, or "
                "name another place with --store.");
    }
    held_->file.write(processName() + " since " + now() + "\n");
}

StoreLock::~StoreLock() = default;

}  // namespace torvel::migrate
