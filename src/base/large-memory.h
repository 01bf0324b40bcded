#pragma once

#include <cstddef>

namespace torvel {

/// Lets the system back a block of some megabytes, got from realloc, with large pages where it can. The
/// lists of a program are filled from end to end, and a fault for each small page takes about as long
/// as filling it.
void preferLargePages(void* block, std::size_t bytes);

}  // namespace torvel
