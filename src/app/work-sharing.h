#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <future>
#include <optional>
#include <system_error>
#include <thread>

namespace torvel {

/// How the conversion of a program's lines is shared out. The result is the same whatever it says.
struct WorkSharing {
    /// Lines that are converted in one go. A program that has no more is converted without threads.
    std::size_t linesPerPart = 8192;
    /// Threads beside the caller's own; none: as many as make all processors busy.
    std::optional<unsigned> helpers;

    unsigned helperCount() const {
        return helpers.value_or(std::max(std::thread::hardware_concurrency(), 1U) - 1);
    }
};

/// The parts of some work in order. Helpers make some of them while the caller uses others, and the caller
/// makes some himself when the one that he waits for is not ready.
template <typename Part>
class PartsInOrder {
public:
    /// `make` makes the part of a number; it may be called by several threads at once.
    PartsInOrder(std::size_t partCount, const WorkSharing& sharing,
                 std::function<Part(std::size_t)> make)
        : partCount_(partCount),
          helpers_(partCount > 1 ? sharing.helperCount() : 0),
          make_(std::move(make)) {}

    /// The next part; nothing behind the last. Throws what `make` threw.
    std::optional<Part> next() {
        employHelpers();
        while (!isFrontReady() && mayBeginAnother()) {
            begin(std::launch::deferred);
            begun_.back().wait();
        }
        if (begun_.empty()) {
            return std::nullopt;
        }
        Part part = begun_.front().get();
        begun_.pop_front();
        return part;
    }

private:
    using BegunPart = std::future<Part>;

    static bool isReady(const BegunPart& part) {
        return part.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
    }
    bool isFrontReady() const { return !begun_.empty() && isReady(begun_.front()); }

    /// Whether a part is left, and those that wait for the caller do not take too much memory.
    bool mayBeginAnother() const {
        return nextPart_ < partCount_ && begun_.size() <= 4 * std::size_t{helpers_};
    }

    void begin(std::launch policy) {
        begun_.push_back(std::async(policy, make_, nextPart_));
        ++nextPart_;
    }

    void employHelpers() {
        auto busy = static_cast<std::size_t>(
            std::count_if(begun_.begin(), begun_.end(), std::not_fn(isReady)));
        for (; busy < helpers_ && mayBeginAnother(); ++busy) {
            try {
                begin(std::launch::async);
            } catch (const std::system_error&) {
                helpers_ = 0;  // the system has no more threads: it goes without
            }
        }
    }

    std::size_t partCount_;
    unsigned helpers_;
    std::function<Part(std::size_t)> make_;
    std::size_t nextPart_ = 0;
    std::deque<BegunPart> begun_;
};

}  // namespace torvel
