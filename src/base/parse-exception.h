#pragma once

#include <exception>
#include <initializer_list>
#include <string>
#include <string_view>

#include "src/base/messages.h"
#include "src/base/source-position.h"

namespace torvel {

/// An error of the source that ends the run: its text is the complete diagnostic, include chain and
/// final line end included.
class ParseException : public std::exception {
public:
    ParseException(Message message, std::initializer_list<std::string_view> holes,
                   const SourcePosition& position)
        : message_(message),
          text_(messageText(message, holes)),
          position_(position),
          diagnostic_(formatDiagnostic(position, text_)) {}

    const char* what() const noexcept override { return diagnostic_.c_str(); }
    Message message() const { return message_; }
    /// The message without its place.
    const std::string& text() const { return text_; }
    const SourcePosition& position() const { return position_; }

private:
    Message message_;
    std::string text_;
    SourcePosition position_;
    std::string diagnostic_;
};

/// Ends the run: throws a ParseException with the message at `position`.
[[noreturn]] void failAt(const SourcePosition& position, Message message,
                         std::initializer_list<std::string_view> holes = {});

}  // namespace torvel
