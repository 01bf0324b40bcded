#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace torvel {

// Character classes of the two languages. Text is 8-bit bytes; only ASCII counts as letter or digit,
// whatever the locale.

enum CharacterClass : std::uint8_t {
    letterClass = 1,
    digitClass = 2,
    hexDigitClass = 4,
    underscoreClass = 8,
    blankClass = 16,       // blank, tab
    whiteSpaceClass = 32,  // blank, tab, line feed, vertical tab, form feed, carriage return
    hashClass = 64,        // "#"
};

inline constexpr std::array<std::uint8_t, 256> characterClasses = [] {
    std::array<std::uint8_t, 256> classes{};
    for (unsigned c = 'A'; c <= 'Z'; ++c) {
        classes[c] = letterClass;
        classes[c + 32] = letterClass;
    }
    for (unsigned c = '0'; c <= '9'; ++c) {
        classes[c] = digitClass | hexDigitClass;
    }
    for (unsigned c = 'A'; c <= 'F'; ++c) {
        classes[c] |= hexDigitClass;
        classes[c + 32] |= hexDigitClass;
    }
    classes['_'] = underscoreClass;
    classes['#'] = hashClass;
    for (unsigned c : {' ', '\t'}) {
        classes[c] = blankClass | whiteSpaceClass;
    }
    for (unsigned c : {'\n', '\v', '\f', '\r'}) {
        classes[c] = whiteSpaceClass;
    }
    return classes;
}();

constexpr bool hasClass(char c, unsigned classes) {
    return (characterClasses[static_cast<unsigned char>(c)] & classes) != 0;
}
constexpr bool isLetter(char c) {
    return hasClass(c, letterClass);
}
constexpr bool isDigit(char c) {
    return hasClass(c, digitClass);
}
constexpr bool isHexDigit(char c) {
    return hasClass(c, hexDigitClass);
}
/// What begins a word: letter, "_" or "#".
inline constexpr unsigned wordStartClasses = letterClass | underscoreClass | hashClass;
/// What goes on with it: letter, digit or "_".
inline constexpr unsigned wordClasses = letterClass | digitClass | underscoreClass;
constexpr bool isWordCharacter(char c) {
    return hasClass(c, wordClasses);
}
/// Blank or tab.
constexpr bool isBlank(char c) {
    return hasClass(c, blankClass);
}
constexpr bool isWhiteSpace(char c) {
    return hasClass(c, whiteSpaceClass);
}
constexpr char upperCase(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}
constexpr char lowerCase(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

/// `text` without blanks and tabs at both ends.
constexpr std::string_view trimBlanks(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

/// The digits at the end of `text`, its first character never among them.
constexpr std::string_view trailingDigits(std::string_view text) {
    std::size_t start = text.size();
    while (start > 1 && isDigit(text[start - 1])) {
        --start;
    }
    return text.substr(start);
}

}  // namespace torvel
