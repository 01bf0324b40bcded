#include "src/base/text-store.h"

#include <algorithm>
#include <cstring>

#include "src/base/large-memory.h"
#include "src/base/uninitialized-bytes.h"

namespace torvel {

namespace {

/// Of these chunks at least one large page is whole, wherever they begin.
constexpr std::size_t largeChunk = std::size_t{4} << 20U;
/// A text that takes more of a chunk has one of its own.
constexpr std::size_t largestShare = 4;

}  // namespace

std::uint32_t TextStore::addChunk(std::size_t bytes) {
    const std::size_t first = pageCount_;
    const std::size_t count = (bytes + pageSize - 1) >> pageBits;
    if (count > mostPages - first) {
        throw TextStoreFull();
    }
    makeRoomForPages(first + count);
    chunks_.push_back(uninitializedBytes(bytes + nulBytes));
    if (bytes >= largeChunk) {
        preferLargePages(chunks_.back().get(), bytes + nulBytes);
    }
    char** const pages = pages_.load(std::memory_order_relaxed);
    for (std::size_t page = 0; page < count; ++page) {
        pages[first + page] = chunks_.back().get() + (page << pageBits);
    }
    pageCount_ += count;
    return static_cast<std::uint32_t>(first << pageBits);
}

/// A list that is too short stays as it is.
void TextStore::makeRoomForPages(std::size_t count) {
    if (count <= pageRoom_) {
        return;
    }
    constexpr std::size_t leastRoom = 64;
    const std::size_t room = std::max({count, 2 * pageRoom_, leastRoom});
    pageLists_.push_back(std::make_unique<char*[]>(room));
    char** const pages = pageLists_.back().get();
    if (pageRoom_ != 0) {
        std::copy_n(pages_.load(std::memory_order_relaxed), pageCount_, pages);
    }
    pages_.store(pages, std::memory_order_release);
    pageRoom_ = room;
}

/// A page until there are as many as a large chunk has, and where there are not so many left.
std::size_t TextStore::sharedChunkSize() const {
    constexpr std::size_t count = largeChunk / pageSize;
    return pageCount_ < count || mostPages - pageCount_ < count ? pageSize : largeChunk;
}

TextSpan TextStore::allocate(std::size_t length) {
    const std::size_t bytes = length + nulBytes;
    if (length >= UINT32_MAX - pageSize) {
        throw TextStoreFull();
    }
    std::uint32_t offset = 0;
    const std::size_t chunkSize = sharedChunkSize();
    if (bytes > chunkSize / largestShare) {
        offset = addChunk(length + 1);
    } else {
        if (bytes > end_ - next_) {
            next_ = addChunk(chunkSize);
            end_ = next_ + static_cast<std::uint32_t>(chunkSize - 1);
        }
        offset = next_;
        next_ += static_cast<std::uint32_t>(bytes);
    }
    std::memset(address(offset) + length, 0, nulBytes);
    return {offset, static_cast<std::uint32_t>(length)};
}

TextSpan TextStore::add(std::string_view text) {
    const TextSpan span = allocate(text.size());
    if (!text.empty()) {
        std::memcpy(data(span), text.data(), text.size());
    }
    return span;
}

}  // namespace torvel
