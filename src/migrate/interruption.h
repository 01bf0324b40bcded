#pragma once

#include <atomic>

namespace torvel::migrate {

/// Thrown where a command ends because its user wants it to.
struct Interrupted {};

/// Null: nobody can interrupt.
inline void endIfInterrupted(const std::atomic<bool>* isInterrupted) {
    if (isInterrupted != nullptr && *isInterrupted) {
        throw Interrupted();
    }
}

}  // namespace torvel::migrate
