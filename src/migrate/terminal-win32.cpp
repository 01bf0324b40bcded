#include <windows.h>

#include <cstdlib>

#include "src/migrate/terminal.h"

namespace torvel::migrate {

namespace {

std::atomic<bool> isInterrupted{false};

BOOL WINAPI interrupt(DWORD /*event*/) {
    // The second time nothing is left to be caught: Windows ends the process.
    return isInterrupted.exchange(true) ? FALSE : TRUE;
}

Terminal terminalOf(DWORD number) {
    Terminal terminal;
    const HANDLE handle = GetStdHandle(number);
    DWORD mode = 0;
    if (GetConsoleMode(handle, &mode) == 0) {
        return terminal;
    }
    CONSOLE_SCREEN_BUFFER_INFO information;
    if (GetConsoleScreenBufferInfo(handle, &information) != 0) {
        terminal.width =
            static_cast<unsigned>(information.srWindow.Right - information.srWindow.Left + 1);
    }
    terminal.canRedraw = SetConsoleMode(handle, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
    const char* const noColour = std::getenv("NO_COLOR");
    terminal.hasColour = terminal.canRedraw && (noColour == nullptr || *noColour == '\0');
    return terminal;
}

}  // namespace

Terminal standardErrorTerminal() {
    return terminalOf(STD_ERROR_HANDLE);
}

Terminal standardOutputTerminal() {
    return terminalOf(STD_OUTPUT_HANDLE);
}

const std::atomic<bool>& catchInterrupts() {
    SetConsoleCtrlHandler(interrupt, TRUE);
    return isInterrupted;
}

}  // namespace torvel::migrate
