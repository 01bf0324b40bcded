#pragma once

#include <atomic>

namespace torvel::migrate {

/// What a standard stream is. By default no terminal.
struct Terminal {
    /// A terminal on which a line can be drawn again. One that is called "dumb", or not at all, gets whole lines.
    bool canRedraw = false;
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
