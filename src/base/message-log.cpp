#include "src/base/message-log.h"

#include <utility>

namespace torvel {

void MessageLog::add(Message message, std::initializer_list<std::string_view> holes,
                     const SourcePosition& position) {
    text_.clear();
    appendMessageText(message, holes, text_);
    const std::size_t place =
        (static_cast<std::size_t>(message) + text_.size()) % lastTexts_.size();
    std::string_view& last = lastTexts_[place];
    if (last != text_) {
        last = texts_.keep(text_);
    }
    messages_.push_back({last, position, message});
}

void MessageLog::take(MessageLog&& further) {
    messages_.append({further.messages_.begin(), further.messages_.end()});
    texts_.take(std::move(further.texts_));
    further.messages_.clear();
    further.lastTexts_ = {};
}

}  // namespace torvel
