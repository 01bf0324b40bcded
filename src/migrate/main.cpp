#include <cerrno>
#include <cstdio>
#include <new>
#include <stdexcept>
#include <system_error>

#include "src/app/process.h"
#include "src/migrate/commands.h"

namespace {

bool write(std::FILE* file, std::string_view text) {
    return std::fwrite(text.data(), 1, text.size(), file) == text.size() && std::fflush(file) == 0;
}

void writeOutput(std::string_view text) {
    if (!write(stdout, text)) {
        throw std::runtime_error("The standard output could not be written (" +
                                 std::generic_category().message(errno) +
                                 "): make sure that what it leads to has room.");
    }
}

void writeError(std::string_view text) {
    write(stderr, text);  // there is nobody left to tell
}

}  // namespace

int main(int argc, char** argv) {
    using namespace torvel::migrate;
    try {
        torvel::prepareProcess();
        const Console console{writeOutput, writeError, standardOutputTerminal,
                              standardErrorTerminal, [] { return &catchInterrupts(); }};
        return runMigrate(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc),
                          console);
    } catch (const std::bad_alloc&) {
        std::fputs("torvel-migrate: There is not enough memory.\n", stderr);
        return 1;
    }
}
