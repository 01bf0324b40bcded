#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <memory>
#include <utility>

namespace torvel {

/// A list whose elements stay where they are while further ones are appended. One thread appends; another may use an
/// element that it was told of when that was complete. All else is for the one that appends.
template <typename Element, std::size_t firstChunk = 8>
class StandingList {
    static_assert(std::has_single_bit(firstChunk));

public:
    StandingList() = default;
    StandingList(const StandingList&) = delete;
    StandingList& operator=(const StandingList&) = delete;
    ~StandingList() { clear(); }

    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    const Element& operator[](std::size_t number) const { return *address(number); }
    Element& back() { return *address(size_ - 1); }
    const Element& back() const { return *address(size_ - 1); }

    /// Throws std::bad_alloc.
    template <typename... Arguments>
    Element& append(Arguments&&... arguments) {
        const Chunk chunk = chunkOf(size_);
        if (chunks_[chunk.number] == nullptr) {
            chunks_[chunk.number] = std::allocator<Element>().allocate(lengthOf(chunk.number));
        }
        Element* const element =
            std::construct_at(address(size_), std::forward<Arguments>(arguments)...);
        ++size_;
        return *element;
    }

    void clear() {
        for (; size_ > 0; --size_) {
            std::destroy_at(address(size_ - 1));
        }
        for (std::size_t number = 0; number < chunks_.size() && chunks_[number] != nullptr;
             ++number) {
            std::allocator<Element>().deallocate(chunks_[number], lengthOf(number));
            chunks_[number] = nullptr;
        }
    }

private:
    /// Each chunk behind the first is as long as all in front of it.
    struct Chunk {
        std::size_t number;
        std::size_t begin;
    };
    static constexpr std::size_t lengthOf(std::size_t chunk) {
        return chunk == 0 ? firstChunk : firstChunk << (chunk - 1);
    }
    static constexpr Chunk chunkOf(std::size_t number) {
        if (number < firstChunk) {
            return {0, 0};
        }
        return {static_cast<std::size_t>(std::bit_width(number / firstChunk)),
                std::bit_floor(number)};
    }
    Element* address(std::size_t number) const {
        const Chunk chunk = chunkOf(number);
        return &chunks_[chunk.number][number - chunk.begin];
    }

    std::array<Element*, 32> chunks_{};
    std::size_t size_ = 0;
};

}  // namespace torvel
