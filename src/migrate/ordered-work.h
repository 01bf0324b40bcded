#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace torvel::migrate {

/// Work on many pieces in three steps: any of some threads makes a piece, the caller's thread takes the pieces in their
/// order, and any of the threads finishes a piece that was taken. What a step has made is handed to the next one.
/// Only so many pieces are under way that they take bounded memory.
template <typename Piece>
class OrderedWork {
public:
    struct Steps {
        /// Several threads at once.
        std::function<std::unique_ptr<Piece>(std::size_t number)> make;
        std::function<void(Piece& piece)> finish;
        /// Bytes that a piece takes until it is finished.
        std::function<std::size_t(const Piece& piece)> size;
    };

    OrderedWork(std::size_t count, unsigned threads, Steps steps)
        : count_(count), mostPieces_(8 * std::size_t{threads}), steps_(std::move(steps)) {
        for (unsigned i = 0; i < threads && i < count; ++i) {
            try {
                threads_.emplace_back([this] { workOff(); });
            } catch (const std::system_error&) {
                if (i == 0) {
                    throw;
                }
                break;  // the system has no more threads: those that there are do it
            }
        }
    }
    ~OrderedWork() {
        stop();
        for (std::thread& thread : threads_) {
            thread.join();
        }
    }
    OrderedWork(const OrderedWork&) = delete;
    OrderedWork& operator=(const OrderedWork&) = delete;

    /// The next piece in order, which the caller has to hand back; null behind the last. Throws what a step threw.
    std::unique_ptr<Piece> next() {
        std::unique_lock lock(mutex_);
        forCaller_.wait(lock,
                        [this] { return failure_ || taken_ == count_ || made_.contains(taken_); });
        throwFailure();
        if (taken_ == count_) {
            return nullptr;
        }
        auto node = made_.extract(taken_++);
        std::unique_ptr<Piece> piece = std::move(node.mapped());
        return piece;
    }

    /// Has a piece finished that was taken.
    void finish(std::unique_ptr<Piece> piece) {
        {
            const std::lock_guard lock(mutex_);
            toFinish_.push_back(std::move(piece));
            if (idle_ == 0) {
                return;  // who is at work looks for more before it waits
            }
        }
        forThreads_.notify_one();
    }

    /// Pieces that nobody has begun are left.
    void beginNoMore() {
        const std::lock_guard lock(mutex_);
        count_ = begun_;
        forThreads_.notify_all();
    }

    /// Waits until all pieces that were handed back are finished. Throws what a step threw.
    void waitForAll() {
        std::unique_lock lock(mutex_);
        forCaller_.wait(lock, [this] { return failure_ || finished_ == count_; });
        throwFailure();
    }

private:
    void throwFailure() const {
        if (failure_) {
            std::rethrow_exception(failure_);
        }
    }
    bool mayBegin() const {
        return begun_ < count_ &&
               (begun_ == finished_ || (begun_ - finished_ < mostPieces_ && bytes_ < mostBytes));
    }
    bool isOver() const {
        return isStopped_ || failure_ || (finished_ == count_ && begun_ == count_);
    }

    void workOff() {
        std::unique_lock lock(mutex_);
        while (true) {
            ++idle_;
            forThreads_.wait(lock, [this] { return isOver() || !toFinish_.empty() || mayBegin(); });
            --idle_;
            if (isOver()) {
                return;
            }
            try {
                if (!toFinish_.empty()) {
                    finishOne(lock);
                } else {
                    makeOne(lock);
                }
            } catch (...) {
                if (!lock.owns_lock()) {
                    lock.lock();
                }
                failure_ = std::current_exception();
            }
            wakeOthers();
        }
    }
    /// After a step: those who can go on now.
    void wakeOthers() {
        if (idle_ > 0 && (isOver() || !toFinish_.empty() || mayBegin())) {
            forThreads_.notify_all();
        }
        if (failure_ || finished_ == count_ || made_.contains(taken_)) {
            forCaller_.notify_one();
        }
    }
    void makeOne(std::unique_lock<std::mutex>& lock) {
        const std::size_t number = begun_++;
        lock.unlock();
        std::unique_ptr<Piece> piece = steps_.make(number);
        lock.lock();
        bytes_ += steps_.size(*piece);
        made_.emplace(number, std::move(piece));
    }
    void finishOne(std::unique_lock<std::mutex>& lock) {
        const std::unique_ptr<Piece> piece = std::move(toFinish_.front());
        toFinish_.pop_front();
        lock.unlock();
        const std::size_t bytes = steps_.size(*piece);
        steps_.finish(*piece);
        lock.lock();
        bytes_ -= bytes;
        ++finished_;
    }
    void stop() {
        const std::lock_guard lock(mutex_);
        isStopped_ = true;
        forThreads_.notify_all();
    }

    static constexpr std::size_t mostBytes = std::size_t{48} << 20U;

    std::mutex mutex_;
    std::condition_variable forThreads_;
    std::condition_variable forCaller_;
    std::size_t count_;
    std::size_t mostPieces_;
    Steps steps_;
    std::size_t begun_ = 0;
    std::size_t taken_ = 0;
    std::size_t finished_ = 0;
    std::size_t bytes_ = 0;
    /// Threads that wait.
    unsigned idle_ = 0;
    bool isStopped_ = false;
    std::exception_ptr failure_;
    std::map<std::size_t, std::unique_ptr<Piece>> made_;
    std::deque<std::unique_ptr<Piece>> toFinish_;
    std::vector<std::thread> threads_;
};

}  // namespace torvel::migrate
