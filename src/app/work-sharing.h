#pragma once

#include <algorithm>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "src/base/processors.h"

namespace torvel {

/// How the conversion of a program's lines is shared out. The result is the same whatever it says.
struct WorkSharing {
    /// Threads beside the caller's own; none: as many as make all processors busy.
    std::optional<unsigned> helpers;

    unsigned helperCount() const { return helpers ? *helpers : usableProcessors() - 1; }
};

/// The parts of some work in order. Helpers make some of them while the caller finds further work or uses others, and
/// the caller makes some himself when the one that he waits for is not ready.
template <typename Task, typename Part>
class PartsInOrder {
public:
    /// `make` makes the part of a task; it may be called by several threads at once.
    PartsInOrder(const WorkSharing& sharing, std::function<Part(const Task&)> make)
        : helpers_(sharing.helperCount()), make_(std::move(make)) {}

    PartsInOrder(const PartsInOrder&) = delete;
    PartsInOrder& operator=(const PartsInOrder&) = delete;

    /// Waits for the parts that are being made.
    ~PartsInOrder() {
        {
            const std::lock_guard lock(mutex_);
            isStopped_ = true;
        }
        changed_.notify_all();
        for (std::thread& thread : threads_) {
            thread.join();
        }
    }

    /// One more task. `isLast`: there will be none behind it, so it is no reason to employ a helper.
    void add(Task task, bool isLast) {
        {
            const std::lock_guard lock(mutex_);
            slots_.emplace_back(std::move(task));
            ++added_;
            if (!isLast && idle_ == 0) {
                employHelper();
            }
        }
        changed_.notify_all();
    }

    /// How many tasks there were so far. For who adds them.
    std::size_t added() const { return added_; }

    /// The next part; nothing behind that of the last task. Throws what `make` threw.
    std::optional<Part> next() {
        std::unique_lock lock(mutex_);
        if (slots_.empty()) {
            return std::nullopt;
        }
        while (!slots_.front().isMade) {
            if (mayBegin()) {
                makeNext(lock);
            } else {
                changed_.wait(lock);
            }
        }
        Slot slot = std::move(slots_.front());
        slots_.pop_front();
        --begun_;
        lock.unlock();
        changed_.notify_all();
        if (slot.fault) {
            std::rethrow_exception(slot.fault);
        }
        return std::move(slot.part);
    }

private:
    struct Slot {
        explicit Slot(Task&& given) : task(std::move(given)) {}

        Task task;
        bool isMade = false;
        std::optional<Part> part;
        std::exception_ptr fault;
    };

    /// Whether a task is left, and the parts that wait for the caller do not take too much memory: half of what there
    /// is, or what keeps all busy.
    bool mayBegin() const {
        return begun_ < slots_.size() && begun_ <= std::max(4 * std::size_t{helpers_}, added_ / 2);
    }

    /// Makes the next part, without the lock.
    void makeNext(std::unique_lock<std::mutex>& lock) {
        Slot& slot = slots_[begun_++];  // which stays where it is
        lock.unlock();
        std::optional<Part> part;
        std::exception_ptr fault;
        try {
            part.emplace(make_(slot.task));
        } catch (...) {
            fault = std::current_exception();
        }
        lock.lock();
        slot.part = std::move(part);
        slot.fault = fault;
        slot.isMade = true;
    }

    void help() {
        std::unique_lock lock(mutex_);
        while (true) {
            ++idle_;
            changed_.wait(lock, [&] { return isStopped_ || mayBegin(); });
            --idle_;
            if (isStopped_) {
                return;
            }
            makeNext(lock);
            changed_.notify_all();
        }
    }

    void employHelper() {
        if (threads_.size() >= helpers_) {
            return;
        }
        try {
            threads_.emplace_back([this] { help(); });
        } catch (const std::system_error&) {
            helpers_ = static_cast<unsigned>(threads_.size());  // the system has no more threads
        }
    }

    unsigned helpers_;
    std::function<Part(const Task&)> make_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<std::thread> threads_;
    /// The tasks whose parts were not used yet. The first `begun_` of them are being made or made.
    std::deque<Slot> slots_;
    std::size_t begun_ = 0;
    std::size_t added_ = 0;
    /// Helpers that wait.
    std::size_t idle_ = 0;
    bool isStopped_ = false;
};

}  // namespace torvel
