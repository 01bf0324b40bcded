#include "src/migrate/text-decoding.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace torvel::migrate {

namespace {

/// What Windows-1252 has from 0x80 to 0x9F; five bytes stand for no character and stay control characters.
constexpr std::array<char16_t, 32> windows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

unsigned byteAt(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]);
}

bool isContinuation(std::string_view text, std::size_t at) {
    return at < text.size() && (byteAt(text, at) & 0xC0U) == 0x80;
}

/// The length of the character at `at` if it is valid UTF-8, else 0.
std::size_t validSize(std::string_view text, std::size_t at) {
    const unsigned first = byteAt(text, at);
    if (first < 0x80) {
        return 1;
    }
    if (!isContinuation(text, at + 1)) {
        return 0;
    }
    if (first >= 0xC2 && first <= 0xDF) {
        return 2;
    }
    const unsigned second = byteAt(text, at + 1);
    if (first >= 0xE0 && first <= 0xEF) {
        // No longer form than needed, and no half of a surrogate pair.
        const bool isShort = first == 0xE0 && second < 0xA0;
        const bool isSurrogate = first == 0xED && second >= 0xA0;
        return !isShort && !isSurrogate && isContinuation(text, at + 2) ? 3 : 0;
    }
    if (first >= 0xF0 && first <= 0xF4) {
        const bool isShort = first == 0xF0 && second < 0x90;
        const bool isTooLarge = first == 0xF4 && second >= 0x90;
        return !isShort && !isTooLarge && isContinuation(text, at + 2) &&
                       isContinuation(text, at + 3)
                   ? 4
                   : 0;
    }
    return 0;
}

/// How many bytes from `at` on are ASCII, as far as eight at once are.
std::size_t asciiSize(std::string_view bytes, std::size_t at) {
    std::size_t end = at;
    for (std::uint64_t eight = 0; bytes.size() - end >= sizeof(eight); end += sizeof(eight)) {
        std::memcpy(&eight, bytes.data() + end, sizeof(eight));
        if ((eight & 0x8080808080808080U) != 0) {
            break;
        }
    }
    return end - at;
}

}  // namespace

bool isUtf8(std::string_view bytes) {
    for (std::size_t at = asciiSize(bytes, 0); at < bytes.size();) {
        const std::size_t size = validSize(bytes, at);
        if (size == 0) {
            return false;
        }
        at += size;
    }
    return true;
}

namespace {

/// Characters of Windows-1252 lie below U+FFFF.
void appendCharacter(std::string& text, unsigned character) {
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0U | character >> 6U);
        text += static_cast<char>(0x80U | (character & 0x3FU));
    } else {
        text += static_cast<char>(0xE0U | character >> 12U);
        text += static_cast<char>(0x80U | (character >> 6U & 0x3FU));
        text += static_cast<char>(0x80U | (character & 0x3FU));
    }
}

/// U+FFFE and U+FFFF, which are no characters.
bool isNoCharacter(std::string_view character) {
    return character == "\xEF\xBF\xBE" || character == "\xEF\xBF\xBF";
}

bool isUpperControl(std::string_view character) {
    return character.size() == 2 && character[0] == '\xC2' && byteAt(character, 1) < 0xA0;
}

}  // namespace

std::string decodedText(std::string_view bytes) {
    if (isUtf8(bytes)) {
        return std::string(bytes);
    }
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (const char c : bytes) {
        const unsigned byte = static_cast<unsigned char>(c);
        appendCharacter(text, byte >= 0x80 && byte < 0xA0 ? windows1252[byte - 0x80] : byte);
    }
    return text;
}

std::string decodedLines(std::string_view bytes) {
    const bool isWhole = isUtf8(bytes);
    if (isWhole && bytes.find('\r') == std::string_view::npos) {
        return std::string(bytes);
    }
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    while (!bytes.empty()) {
        const std::size_t end = std::min(bytes.find_first_of("\r\n"), bytes.size());
        const std::string_view line = bytes.substr(0, end);
        if (isWhole) {
            text += line;
        } else {
            text += decodedText(line);
        }
        if (end != bytes.size()) {
            text += '\n';
        }
        const bool isPair = bytes.substr(end).starts_with("\r\n");
        bytes.remove_prefix(std::min(end + (isPair ? 2 : 1), bytes.size()));
    }
    return text;
}

std::size_t characterSize(std::string_view text, std::size_t at) {
    return std::max<std::size_t>(validSize(text, at), 1);
}

std::size_t characterCount(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); at += characterSize(text, at)) {
        ++count;
    }
    return count;
}

std::size_t utf16Length(std::string_view text) {
    std::size_t units = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t size = characterSize(text, at);
        // Characters of four bytes are a surrogate pair.
        units += size == 4 ? 2 : 1;
        at += size;
    }
    return units;
}

ColumnRange utf16Columns(std::string_view bytes, ColumnRange columns) {
    if (columns.first == 0 || columns.last < columns.first || columns.first > bytes.size()) {
        return {};
    }
    const std::size_t last = std::min<std::size_t>(columns.last, bytes.size());
    if (!isUtf8(bytes)) {
        // Each byte is a character of one unit.
        return {columns.first, static_cast<std::uint32_t>(last)};
    }
    ColumnRange result;
    std::uint32_t units = 0;
    for (std::size_t at = 0; at < last;) {
        const std::size_t size = characterSize(bytes, at);
        if (result.first == 0 && at + size >= columns.first) {
            result.first = units + 1;
        }
        units += size == 4 ? 2 : 1;
        at += size;
    }
    result.last = units;
    return result;
}

std::string visibleText(std::string_view text, std::string_view kept) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::string_view character = text.substr(at, characterSize(text, at));
        const unsigned first = byteAt(character, 0);
        if (first < 0x20 && kept.find(character) == std::string_view::npos) {
            appendCharacter(result, 0x2400U + first);
        } else if (first == 0x7F) {
            appendCharacter(result, 0x2421U);
        } else if (isUpperControl(character) || isNoCharacter(character)) {
            appendCharacter(result, 0xFFFDU);
        } else {
            result += character;
        }
        at += character.size();
    }
    return result;
}

std::string shortenedText(std::string_view text, std::size_t length) {
    std::size_t count = 0;
    std::size_t cut = 0;
    for (std::size_t at = 0; at < text.size(); at += characterSize(text, at)) {
        if (++count == length) {
            cut = at;
        }
    }
    return count <= length ? std::string(text) : std::string(text.substr(0, cut)) + "…";
}

}  // namespace torvel::migrate
