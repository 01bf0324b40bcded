#include <fcntl.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstddef>
#include <new>

#include "src/app/process.h"

namespace torvel {

namespace {

/// More than the deepest expression and the deepest parameter file take.
constexpr std::size_t stackSize = std::size_t{1} << 20U;
/// The lowest bound on the stack that leaves so much of it.
constexpr rlim_t stackBound = 2 * stackSize;

[[gnu::noinline]] void touchStack() {
    [[maybe_unused]] volatile char bottom[stackSize];
    bottom[0] = 0;
}

/// Has the stack grow as far as the run can need it. Later there may be no memory for that, and a stack
/// that cannot grow ends the process without a word.
void reserveStack() {
    rlimit bound{};
    if (getrlimit(RLIMIT_STACK, &bound) == 0 && bound.rlim_cur < stackBound) {
        bound.rlim_cur = std::min(stackBound, bound.rlim_max);
        if (bound.rlim_cur < stackBound || setrlimit(RLIMIT_STACK, &bound) != 0) {
            throw std::bad_alloc();
        }
    }
    void* const room =
        mmap(nullptr, stackSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (room == MAP_FAILED) {
        throw std::bad_alloc();
    }
    munmap(room, stackSize);
    touchStack();
}

}  // namespace

void prepareProcess() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    // The lowest free descriptor is given out first.
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
        if (fcntl(stream, F_GETFD) < 0) {
            open("/dev/null", O_RDWR);
        }
    }
    reserveStack();
}

}  // namespace torvel
