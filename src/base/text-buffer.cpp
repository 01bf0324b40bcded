#include "src/base/text-buffer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <new>

namespace torvel {

void TextBuffer::grow(std::size_t size) {
    const std::size_t count = this->size();
    const std::size_t room = std::max(size, 2 * static_cast<std::size_t>(limit_ - begin_));
    const bool wasInside = isInside();
    // A large block is moved by changing the page table where the system can.
    void* const grown = std::realloc(wasInside ? nullptr : begin_, room + spareSize);
    if (grown == nullptr) {
        throw std::bad_alloc();
    }
    if (wasInside) {
        std::memcpy(grown, begin_, count);
    }
    begin_ = static_cast<char*>(grown);
    end_ = begin_ + count;
    limit_ = begin_ + room;
}

void TextBuffer::take(TextBuffer& other) noexcept {
    if (other.isInside()) {
        inside_ = other.inside_;
        begin_ = inside_.data();
        limit_ = inside_.data() + shortSize;
        end_ = begin_ + other.size();
    } else {
        begin_ = other.begin_;
        end_ = other.end_;
        limit_ = other.limit_;
        other.begin_ = other.inside_.data();
        other.limit_ = other.inside_.data() + shortSize;
    }
    other.end_ = other.begin_;
}

void appendNumber(std::uint32_t number, TextBuffer& out) {
    std::array<char, 10> digits;
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    out += std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data()));
}

}  // namespace torvel
