#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>

#include "src/migrate/terminal.h"

namespace torvel::migrate {

using Seconds = std::chrono::duration<double>;

/// How far a run is.
struct RunProgress {
    std::uint64_t done = 0;
    std::uint64_t total = 0;
    Seconds elapsed{};
};

/// "12 of 40 programs, 30 a second, about 1 s left", with a bar in front that makes the line `width` columns wide at
/// most. A width of 0 leaves the bar out; a narrow one leaves out what does not fit, the count last.
std::string progressLine(const RunProgress& progress, unsigned width);

/// Tells how far a run is: on a terminal one line that is drawn again, some times a second; elsewhere a whole line
/// now and then.
class ProgressTeller {
public:
    using Write = std::function<void(const std::string&)>;
    using AskTerminal = std::function<Terminal()>;

    ProgressTeller(AskTerminal askTerminal, Write write)
        : askTerminal_(std::move(askTerminal)), write_(std::move(write)) {}

    void tell(const RunProgress& progress);
    /// Takes the line away, so that something else can be written.
    void clear();

private:
    AskTerminal askTerminal_;
    Write write_;
    Seconds next_{};
    bool isDrawn_ = false;
};

}  // namespace torvel::migrate
