#ifdef __linux__
#include <sched.h>
#endif

#include <algorithm>
#include <thread>

#include "src/base/processors.h"

namespace torvel {

unsigned usableProcessors() {
#ifdef __linux__
    // Of a machine with more processors than fit into the set the call fails.
    cpu_set_t set;
    if (sched_getaffinity(0, sizeof set, &set) == 0) {
        return static_cast<unsigned>(std::max(CPU_COUNT(&set), 1));
    }
#endif
    return std::max(std::thread::hardware_concurrency(), 1U);
}

}  // namespace torvel
