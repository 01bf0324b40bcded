#include <fcntl.h>
#include <unistd.h>

#include <csignal>

#include "src/app/process.h"

namespace torvel {

void prepareProcess() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    // The lowest free descriptor is given out first.
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
        if (fcntl(stream, F_GETFD) < 0) {
            open("/dev/null", O_RDWR);
        }
    }
}

}  // namespace torvel
