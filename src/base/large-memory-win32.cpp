#include "src/base/large-memory.h"

namespace torvel {

// Large pages need a privilege there that users do not have.
void preferLargePages(void* /*block*/, std::size_t /*bytes*/) {}

}  // namespace torvel
