#include <windows.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <thread>

#include "src/base/processors.h"

namespace torvel {

unsigned usableProcessors() {
    DWORD_PTR ofProcess = 0;
    DWORD_PTR ofSystem = 0;
    if (GetProcessAffinityMask(GetCurrentProcess(), &ofProcess, &ofSystem) != 0 && ofProcess != 0) {
        return static_cast<unsigned>(std::popcount(std::uint64_t{ofProcess}));
    }
    // A process in several groups of processors is bound to none.
    return std::max(std::thread::hardware_concurrency(), 1U);
}

}  // namespace torvel
