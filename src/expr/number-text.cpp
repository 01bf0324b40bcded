#include "src/expr/number-text.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

#include "src/base/characters.h"
#include "src/base/real-text.h"

namespace torvel {

namespace {

struct SignedText {
    bool negative = false;
    std::string_view digits;
};

/// Takes off white space and a sign.
SignedText readSign(std::string_view text) {
    while (!text.empty() && isWhiteSpace(text.front())) {
        text.remove_prefix(1);
    }
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    return {negative, text};
}

bool hasHexPrefix(std::string_view text) {
    return text.size() > 2 && text[0] == '0' && upperCase(text[1]) == 'X' && text[2] != '-' &&
           text[2] != '+';
}

/// The value of a text that is nothing but so few digits that each value of them is a double.
std::optional<std::int64_t> wholeNumber(std::string_view text) {
    if (text.size() > std::numeric_limits<double>::digits10) {
        return std::nullopt;
    }
    std::int64_t value = 0;
    for (const char c : text) {
        if (!isDigit(c)) {
            return std::nullopt;
        }
        value = 10 * value + (c - '0');
    }
    return value;
}

}  // namespace

std::optional<std::int32_t> parseIntegerText(std::string_view text) {
    if (text.empty()) {
        return 0;
    }
    if (text[0] != '0') {
        if (const auto whole = wholeNumber(text); whole && *whole <= INT32_MAX) {
            return static_cast<std::int32_t>(*whole);
        }
    }
    auto [negative, digits] = readSign(text);
    int base = 10;
    if (hasHexPrefix(digits)) {
        base = 16;
        digits.remove_prefix(2);
    } else if (digits.starts_with('0')) {
        base = 8;
    }
    std::uint64_t magnitude = 0;
    const char* const end = digits.data() + digits.size();
    const auto [last, error] = std::from_chars(digits.data(), end, magnitude, base);
    // cppcheck-suppress redundantAssignment  ; it takes the binding for an assignment
    const std::uint64_t largest = negative ? std::uint64_t{INT32_MAX} + 1 : INT32_MAX;
    if (error != std::errc() || last != end || magnitude > largest) {
        return std::nullopt;
    }
    const auto value = static_cast<std::int64_t>(magnitude);
    return static_cast<std::int32_t>(negative ? -value : value);
}

std::optional<double> parseRealText(std::string_view text) {
    if (text.empty()) {
        return 0;
    }
    auto [negative, digits] = readSign(text);
    RealDigits kind = RealDigits::decimal;
    if (hasHexPrefix(digits)) {
        kind = RealDigits::hexadecimal;
        digits.remove_prefix(2);
    } else if (digits.empty() ||
               (!isDigit(digits[0]) && !isLetter(digits[0]) && digits[0] != '.')) {
        return std::nullopt;
    } else if (const std::optional<std::int64_t> whole = wholeNumber(digits)) {
        const auto value = static_cast<double>(*whole);
        return negative ? -value : value;
    }
    const std::optional<double> value = realOf(digits, kind);
    if (value && negative) {
        return -*value;
    }
    return value;
}

void appendReal(double value, TextBuffer& out) {
    RealText buffer;
    // Most are whole numbers; those have no more than 17 digits, and no sign in front of a zero.
    const bool isWhole = std::abs(value) < 1e15 && value == std::trunc(value) &&
                         !(value == 0 && std::signbit(value));
    if (isWhole) {
        const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                                static_cast<std::int64_t>(value));
        out += std::string_view(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
    } else {
        out += std::string_view(buffer.data(), writeReal(value, buffer));
    }
}

}  // namespace torvel
