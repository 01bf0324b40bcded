#include "src/base/text-store.h"

#include <cstring>

#include "src/base/uninitialized-bytes.h"

namespace torvel {

std::uint32_t TextStore::addChunk(std::size_t bytes) {
    const std::size_t first = pages_.size();
    const std::size_t count = (bytes + pageSize - 1) >> pageBits;
    if (count > (std::size_t{1} << (32 - pageBits)) - first) {
        throw TextStoreFull();
    }
    chunks_.push_back(uninitializedBytes(bytes + nulBytes));
    for (std::size_t page = 0; page < count; ++page) {
        pages_.push_back(chunks_.back().get() + (page << pageBits));
    }
    return static_cast<std::uint32_t>(first << pageBits);
}

TextSpan TextStore::allocate(std::size_t length) {
    const std::size_t bytes = length + 1;
    if (length >= UINT32_MAX - pageSize) {
        throw TextStoreFull();
    }
    std::uint32_t offset = 0;
    if (bytes > pageSize / 4) {
        offset = addChunk(bytes);
    } else {
        if (bytes > end_ - next_) {
            next_ = addChunk(pageSize);
            end_ = next_ + static_cast<std::uint32_t>(pageSize - 1);
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
