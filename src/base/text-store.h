#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace torvel {

/// A range of the run's text, as a TextStore numbers it.
struct TextSpan {
    std::uint32_t offset = 0;
    std::uint32_t length = 0;

    bool empty() const { return length == 0; }
    bool isWithin(TextSpan outer) const {
        return offset >= outer.offset && offset + length <= outer.offset + outer.length;
    }
    /// The bytes of the span from `start` on, `count` of them.
    TextSpan subspan(std::size_t start, std::size_t count) const {
        return {offset + static_cast<std::uint32_t>(start), static_cast<std::uint32_t>(count)};
    }
};

/// Thrown when a run needs more than 4 GiB of text.
struct TextStoreFull : std::length_error {
    TextStoreFull() : std::length_error("text store full") {}
};

/// All text of one run: the source files as they were read and what is made on the way. Text stays
/// where it is until the run ends, so views of it may be kept. One thread makes text; others may look at what was
/// complete when they were told of it, and at the bytes that can be read behind it.
///
/// A 32-bit offset names a place in it. Offsets run through pages of 64 KiB; a text that crosses
/// pages stands in one piece of memory, so an offset turns into an address with one look-up.
class TextStore {
public:
    /// NUL bytes that stand behind each text.
    static constexpr std::size_t nulBytes = 32;

    /// Room for `length` bytes that the caller fills, and NUL bytes behind them.
    /// Throws TextStoreFull when the offsets are used up.
    TextSpan allocate(std::size_t length);

    /// A copy of `text`.
    TextSpan add(std::string_view text);

    /// Writable text of a span that allocate() returned.
    char* data(TextSpan span) { return address(span.offset); }

    std::string_view view(TextSpan span) const { return {address(span.offset), span.length}; }

private:
    static constexpr unsigned pageBits = 16;
    static constexpr std::size_t pageSize = std::size_t{1} << pageBits;
    static constexpr std::size_t mostPages = std::size_t{1} << (32 - pageBits);

    char* address(std::uint32_t offset) const {
        return pages_.load(std::memory_order_acquire)[offset >> pageBits] +
               (offset & (pageSize - 1));
    }
    std::uint32_t addChunk(std::size_t bytes);
    void makeRoomForPages(std::size_t count);
    std::size_t sharedChunkSize() const;

    std::vector<std::unique_ptr<char[]>> chunks_;
    /// Where each page begins. Who looks at a text may still have an earlier list at hand.
    std::atomic<char**> pages_ = nullptr;
    std::vector<std::unique_ptr<char*[]>> pageLists_;
    std::size_t pageRoom_ = 0;
    std::size_t pageCount_ = 1;  // the first page is never used: offset 0 is "no text"
    std::uint32_t next_ = 0;     // free space of the chunk that texts share
    std::uint32_t end_ = 0;
};

}  // namespace torvel
