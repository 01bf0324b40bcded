#pragma once

#include <cstddef>
#include <functional>

namespace torvel::migrate {

/// The threads that were asked for; 0: as many as there are processors.
unsigned threadCount(unsigned asked);

/// Calls work(number, thread) with each number below `count`, in up to `threads` threads, the caller's own counted.
/// Returns when all is done, or throws what `work` threw first.
void inThreads(unsigned threads, std::size_t count,
               const std::function<void(std::size_t number, unsigned thread)>& work);

}  // namespace torvel::migrate
