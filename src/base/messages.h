#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "src/base/text-buffer.h"

namespace torvel {

/// Every message of the program. Rows, with their classes: messages.def.
enum class Message : std::uint16_t {
#define MESSAGE(symbol, code, messageClass, text) symbol,
#include "src/base/messages.def"
};

/// Appends the message's text with its holes ("{}") filled in order. As many texts as holes.
void appendMessageText(Message message, std::initializer_list<std::string_view> holes,
                       TextBuffer& out);
/// The same as a text of its own.
std::string messageText(Message message, std::initializer_list<std::string_view> holes = {});

/// The message's name for other programs.
std::string_view messageCode(Message message);

}  // namespace torvel
