#include "tests/support/escapes.h"

#include <algorithm>
#include <charconv>

namespace torvel::test {

namespace {

bool isPlainByte(char c) {
    return (c >= ' ' && c <= '~') || c == '\n' || c == '\t';
}

/// The byte of the two hexadecimal digits at the start of `text`, or -1.
int hexadecimalByte(std::string_view text) {
    unsigned value = 0;
    const char* const last = text.data() + std::min<std::size_t>(text.size(), 2);
    const auto [end, error] = std::from_chars(text.data(), last, value, 16);
    return error == std::errc() && end == text.data() + 2 ? static_cast<int>(value) : -1;
}

}  // namespace

std::string decodeEscapes(std::string_view text) {
    std::string decoded;
    while (!text.empty()) {
        const std::size_t plain = std::min(text.find('\\'), text.size());
        decoded += text.substr(0, plain);
        text.remove_prefix(plain);
        if (text.empty()) {
            break;
        }
        std::size_t length = 2;
        switch (text.size() > 1 ? text[1] : '\0') {
            case 'r': decoded += '\r'; break;
            case 'n': decoded += '\n'; break;
            case 't': decoded += '\t'; break;
            case 's': decoded += ' '; break;
            case '\\': decoded += '\\'; break;
            case 'x':
                if (const int byte = hexadecimalByte(text.substr(2)); byte >= 0) {
                    decoded += static_cast<char>(byte);
                    length = 4;
                    break;
                }
                [[fallthrough]];
            default: decoded += '\\'; length = 1;
        }
        text.remove_prefix(length);
    }
    return decoded;
}

std::string encodeEscapes(std::string_view text) {
    static constexpr std::string_view digits = "0123456789ABCDEF";
    std::string encoded;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\\') {
            encoded += "\\\\";
        } else if (c == '\r') {
            encoded += "\\r";
        } else if (isPlainByte(c)) {
            encoded += c;
        } else {
            encoded += "\\x";
            encoded += digits[byte / 16];
            encoded += digits[byte % 16];
        }
    }
    return encoded;
}

bool isPlainText(std::string_view text) {
    return std::all_of(text.begin(), text.end(), isPlainByte);
}

std::string replaceAll(std::string_view text, std::string_view from, std::string_view to) {
    std::string replaced;
    for (std::size_t at = text.find(from); at != std::string_view::npos; at = text.find(from)) {
        replaced += text.substr(0, at);
        replaced += to;
        text.remove_prefix(at + from.size());
    }
    replaced += text;
    return replaced;
}

}  // namespace torvel::test
