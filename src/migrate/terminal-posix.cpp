#include <sys/ioctl.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <string_view>

#include "src/migrate/terminal.h"

namespace torvel::migrate {

namespace {

std::atomic<bool> isInterrupted{false};
static_assert(std::atomic<bool>::is_always_lock_free);

void interrupt(int number) {
    isInterrupted = true;
    std::signal(number, SIG_DFL);
}

Terminal terminalOf(int descriptor) {
    Terminal terminal;
    terminal.isTerminal = isatty(descriptor) == 1;
    winsize size{};
    if (terminal.isTerminal && ioctl(descriptor, TIOCGWINSZ, &size) == 0) {
        terminal.width = size.ws_col;
    }
    const char* const noColour = std::getenv("NO_COLOR");
    const char* const kind = std::getenv("TERM");
    terminal.hasColour = terminal.isTerminal && (noColour == nullptr || *noColour == '\0') &&
                         kind != nullptr && std::string_view(kind) != "dumb";
    return terminal;
}

}  // namespace

Terminal standardErrorTerminal() {
    return terminalOf(STDERR_FILENO);
}

Terminal standardOutputTerminal() {
    return terminalOf(STDOUT_FILENO);
}

const std::atomic<bool>& catchInterrupts() {
    std::signal(SIGINT, interrupt);
    std::signal(SIGTERM, interrupt);
    return isInterrupted;
}

}  // namespace torvel::migrate
