#include "src/base/messages.h"

namespace torvel {

namespace {

constexpr std::string_view texts[] = {
#define MESSAGE(symbol, code, messageClass, text) text,
#include "src/base/messages.def"
};

constexpr std::string_view codes[] = {
#define MESSAGE(symbol, code, messageClass, text) code,
#include "src/base/messages.def"
};

}  // namespace

std::string_view messageCode(Message message) {
    return codes[static_cast<std::size_t>(message)];
}

void appendMessageText(Message message, std::initializer_list<std::string_view> holes,
                       TextBuffer& out) {
    std::string_view text = texts[static_cast<std::size_t>(message)];
    for (std::string_view hole : holes) {
        const std::size_t at = text.find("{}");
        out += text.substr(0, at);
        out += hole;
        text.remove_prefix(at + 2);
    }
    out += text;
}

std::string messageText(Message message, std::initializer_list<std::string_view> holes) {
    TextBuffer text;
    appendMessageText(message, holes, text);
    return text.toString();
}

}  // namespace torvel
