#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <span>
#include <type_traits>
#include <utility>

#include "src/base/cold.h"
#include "src/base/large-memory.h"

namespace torvel {

/// A vector of plain rows for the lists that hold a whole program. Memory grows with realloc, which moves
/// large blocks by changing the page table where the system can, so a list of any length is neither copied
/// nor held twice while it grows.
template <typename Row>
class GrowingArray {
    static_assert(std::is_trivially_copyable_v<Row> && std::is_trivially_destructible_v<Row>);

public:
    GrowingArray() = default;
    GrowingArray(GrowingArray&& other) noexcept { swap(other); }
    GrowingArray& operator=(GrowingArray&& other) noexcept {
        swap(other);
        return *this;
    }
    GrowingArray(const GrowingArray&) = delete;
    GrowingArray& operator=(const GrowingArray&) = delete;
    ~GrowingArray() { std::free(rows_); }

    void swap(GrowingArray& other) noexcept {
        std::swap(rows_, other.rows_);
        std::swap(size_, other.size_);
        std::swap(capacity_, other.capacity_);
    }

    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    const Row* data() const { return rows_; }
    Row* data() { return rows_; }
    const Row* begin() const { return rows_; }
    const Row* end() const { return rows_ + size_; }
    const Row& operator[](std::size_t index) const { return rows_[index]; }
    Row& back() { return rows_[size_ - 1]; }

    void clear() { truncate(0); }
    /// Keeps the first `size` rows; there must be so many.
    void truncate(std::size_t size) { size_ = size; }

    /// Makes room for so many rows. What is never touched costs no memory. Throws std::bad_alloc.
    void reserve(std::size_t rows) {
        if (rows > capacity_) {
            grow(rows);
        }
    }

    /// Throws std::bad_alloc.
    void push_back(const Row& row) {
        if (size_ == capacity_) {
            grow();
        }
        rows_[size_++] = row;
    }

    /// The same for rows of another list.
    void append(std::span<const Row> rows) {
        reserve(size_ + rows.size() > capacity_ ? std::max(size_ + size_ / 2, size_ + rows.size())
                                                : 0);
        std::copy(rows.begin(), rows.end(), rows_ + size_);
        size_ += rows.size();
    }

    /// For who appends many rows: where the next one belongs, and behind the last that there is room for. Where there
    /// is none, room is made. The rows count when they are told by endAt().
    struct Room {
        Row* next;
        const Row* limit;
    };
    Room makeRoom() {
        if (size_ == capacity_) {
            grow();
        }
        return {rows_ + size_, rows_ + capacity_};
    }
    void endAt(const Row* end) { size_ = static_cast<std::size_t>(end - rows_); }

private:
    /// Half as much again: what is never touched costs no memory.
    TORVEL_COLD void grow(std::size_t least = 0) {
        const std::size_t rows = std::max(size_ + size_ / 2 + 64, least);
        if (rows > UINT32_MAX) {
            throw std::bad_alloc();  // rows are counted with 32 bits
        }
        std::size_t bytes = rows * sizeof(Row);
        if (bytes >= largeBlock) {
            // With the allocator's words a whole number of pages.
            bytes = (bytes + largeBlock - 1) / largeBlock * largeBlock - 32;
        }
        void* block = std::realloc(rows_, bytes);
        if (block == nullptr) {
            throw std::bad_alloc();
        }
        rows_ = static_cast<Row*>(block);
        capacity_ = bytes / sizeof(Row);
        if (bytes >= largeBlock - 32) {
            preferLargePages(block, bytes);
        }
    }

    static constexpr std::size_t largeBlock = std::size_t{2} << 20U;

    Row* rows_ = nullptr;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

}  // namespace torvel
