#pragma once

#include <array>
#include <cstddef>
#include <initializer_list>
#include <string_view>

#include "src/base/growing-array.h"
#include "src/base/kept-texts.h"
#include "src/base/messages.h"
#include "src/base/source-position.h"
#include "src/base/text-buffer.h"

namespace torvel {

/// A problem that the conversion met, and the line where it met it.
struct ConversionMessage {
    /// Stays as long as the log, or the one that took it over.
    std::string_view text;
    SourcePosition position;
    Message message{};
};

/// The messages of a run, in the order in which they were met.
class MessageLog {
public:
    std::size_t size() const { return messages_.size(); }
    bool empty() const { return messages_.empty(); }
    const ConversionMessage& operator[](std::size_t number) const { return messages_[number]; }
    const ConversionMessage& back() const { return messages_[messages_.size() - 1]; }
    const ConversionMessage* begin() const { return messages_.begin(); }
    const ConversionMessage* end() const { return messages_.end(); }

    /// Appends a message whose holes are filled with `holes`, as many texts as it has.
    void add(Message message, std::initializer_list<std::string_view> holes,
             const SourcePosition& position);
    /// Appends the messages of another log, which has none then.
    void take(MessageLog&& further);

private:
    GrowingArray<ConversionMessage> messages_;
    KeptTexts texts_;
    /// Some of the texts that were told last: most are told again and again, and stand once.
    std::array<std::string_view, 64> lastTexts_{};
    TextBuffer text_;
};

}  // namespace torvel
