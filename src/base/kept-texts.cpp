#include "src/base/kept-texts.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "src/base/uninitialized-bytes.h"

namespace torvel {

std::string_view KeptTexts::keep(std::string_view text) {
    constexpr std::size_t chunkBytes = 4096;
    constexpr std::size_t readBehind = 16;
    if (text.size() > left_) {
        left_ = std::max(chunkBytes, text.size());
        chunks_.push_back(uninitializedBytes(left_ + readBehind));
        next_ = chunks_.back().get();
    }
    const std::string_view kept(next_, text.size());
    next_ = std::copy(text.begin(), text.end(), next_);
    left_ -= text.size();
    return kept;
}

void KeptTexts::take(KeptTexts&& further) {
    // What is free in the last chunk of its own is used further on.
    chunks_.insert(chunks_.end(), std::make_move_iterator(further.chunks_.begin()),
                   std::make_move_iterator(further.chunks_.end()));
    further = {};
}

}  // namespace torvel
