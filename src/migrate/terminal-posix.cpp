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
    winsize size{};
    if (isatty(descriptor) != 1) {
        return terminal;
    }
    if (ioctl(descriptor, TIOCGWINSZ, &size) == 0) {
        terminal.width = size.ws_col;
    }
    const char* const kind = std::getenv("TERM");
    terminal.canRedraw = kind != nullptr && std::string_view(kind) != "dumb";
    const char* const noColour = std::getenv("NO_COLOR");
    terminal.hasColour = terminal.canRedraw && (noColour == nullptr || *noColour == '\0');
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
