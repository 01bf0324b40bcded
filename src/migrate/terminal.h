#pragma once

#include <atomic>

namespace torvel::migrate {

/// What standard error is: progress goes there.
struct Terminal {
    bool isTerminal = false;
    /// Columns; 0: not known.
    unsigned width = 0;
    bool hasColour = false;
};

/// Asked each time that something is drawn, so that a window may change its size. No colour with NO_COLOR in the
/// environment.
Terminal standardErrorTerminal();
Terminal standardOutputTerminal();

/// From now on Ctrl-C, and a request to end, set the flag that is given back. The second one ends the process.
const std::atomic<bool>& catchInterrupts();

}  // namespace torvel::migrate
