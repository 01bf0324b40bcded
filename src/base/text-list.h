#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "src/base/growing-array.h"
#include "src/base/text-buffer.h"

namespace torvel {

/// Texts in order, each put together at the end of the list. They stand one behind the other in one memory, so a list of
/// millions takes little more than their bytes, and one of a few short ones none of its own.
class TextList {
public:
    /// The room of a new text: what is appended to it until the next one is begun.
    TextBuffer& begin() {
        if (size_ < firstStarts_.size()) {
            firstStarts_[size_] = text_.size();
        } else {
            furtherStarts_.push_back(text_.size());
        }
        ++size_;
        return text_;
    }
    void add(std::string_view text) { begin() += text; }

    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    /// Stays until something is appended.
    std::string_view operator[](std::size_t number) const {
        const std::size_t start = startOf(number);
        const std::size_t end = number + 1 < size_ ? startOf(number + 1) : text_.size();
        return {text_.data() + start, end - start};
    }

private:
    std::size_t startOf(std::size_t number) const {
        return number < firstStarts_.size() ? firstStarts_[number]
                                            : furtherStarts_[number - firstStarts_.size()];
    }

    TextBuffer text_;
    std::array<std::size_t, 8> firstStarts_;
    GrowingArray<std::size_t> furtherStarts_;
    std::size_t size_ = 0;
};

}  // namespace torvel
