#include "src/migrate/in-threads.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

#include "src/base/processors.h"

namespace torvel::migrate {

unsigned threadCount(unsigned asked) {
    return asked != 0 ? asked : usableProcessors();
}

namespace {

/// Less work is not worth a thread.
constexpr std::size_t leastPerThread = 8;

}  // namespace

void inThreads(unsigned threads, std::size_t count,
               const std::function<void(std::size_t number, unsigned thread)>& work) {
    std::atomic<std::size_t> next{0};
    std::mutex mutex;
    std::exception_ptr failure;
    const auto run = [&](unsigned thread) {
        try {
            for (std::size_t number = next++; number < count; number = next++) {
                work(number, thread);
            }
        } catch (...) {
            next = count;
            const std::lock_guard<std::mutex> lock(mutex);
            failure = failure ? failure : std::current_exception();
        }
    };
    std::vector<std::thread> helpers;
    const std::size_t wanted = std::min<std::size_t>(threads, count / leastPerThread + 1);
    try {
        while (helpers.size() + 1 < wanted) {
            helpers.emplace_back(run, static_cast<unsigned>(helpers.size() + 1));
        }
    } catch (const std::system_error&) {
        // The system has no more threads: it goes without.
    }
    run(0);
    for (std::thread& helper : helpers) {
        helper.join();
    }
    if (failure) {
        std::rethrow_exception(failure);
    }
}

}  // namespace torvel::migrate
