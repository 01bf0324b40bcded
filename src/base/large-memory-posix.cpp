#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>

#include "src/base/large-memory.h"

namespace torvel {

// The whole mapping is marked, with the allocator's own words in front of the block: a mapping of two
// kinds could not be moved in one go when the block grows.
void preferLargePages([[maybe_unused]] void* block, [[maybe_unused]] std::size_t bytes) {
#if defined(MADV_HUGEPAGE) && !defined(__EMSCRIPTEN__)
    const auto pageSize = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const auto address = reinterpret_cast<std::uintptr_t>(block);
    const std::uintptr_t before = address % pageSize;
    const std::uintptr_t length = (before + bytes + pageSize - 1) / pageSize * pageSize;
    madvise(static_cast<char*>(block) - before, length, MADV_HUGEPAGE);
#endif
}

}  // namespace torvel
