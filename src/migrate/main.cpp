#include <cstdio>
#include <new>

#include "src/app/process.h"
#include "src/migrate/commands.h"

namespace {

torvel::migrate::TextSink writeTo(std::FILE* file) {
    return [file](std::string_view text) {
        std::fwrite(text.data(), 1, text.size(), file);
        std::fflush(file);
    };
}

}  // namespace

int main(int argc, char** argv) {
    using namespace torvel::migrate;
    try {
        torvel::prepareProcess();
        const Console console{writeTo(stdout), writeTo(stderr), standardOutputTerminal,
                              standardErrorTerminal, &catchInterrupts()};
        return runMigrate(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc),
                          console);
    } catch (const std::bad_alloc&) {
        std::fputs("torvel-migrate: There is not enough memory.\n", stderr);
        return 1;
    }
}
