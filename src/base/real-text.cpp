#include "src/base/real-text.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "src/base/characters.h"

namespace torvel {

namespace {

/// The value of a hexadecimal digit; none: it is no digit.
std::optional<unsigned> hexadecimalValue(char c) {
    if (isDigit(c)) {
        return static_cast<unsigned>(c - '0');
    }
    const char letter = upperCase(c);
    return letter >= 'A' && letter <= 'F' ? std::optional(static_cast<unsigned>(letter - 'A') + 10U)
                                          : std::nullopt;
}

/// A number m * 2^exponent, and whether something smaller than the last bit of m is missing.
struct HexadecimalNumber {
    std::uint64_t mantissa = 0;
    std::int64_t exponent = 0;
    bool isCut = false;
};

/// The largest exponent that counts: no text is so long that its digits could make up for it.
constexpr std::int64_t largestExponent = std::int64_t{1} << 40U;

/// Reads an exponent behind the letter; false: there is none.
bool readExponent(std::string_view text, std::int64_t& exponent) {
    // Both signs, as std::from_chars of GCC has it.
    if (text.starts_with('+')) {
        text.remove_prefix(1);
    }
    const bool isNegative = text.starts_with('-');
    if (isNegative) {
        text.remove_prefix(1);
    }
    std::int64_t value = 0;
    for (const char c : text) {
        if (!isDigit(c)) {
            return false;
        }
        value = std::min(10 * value + (c - '0'), largestExponent);
    }
    exponent += isNegative ? -value : value;
    return !text.empty();
}

std::optional<HexadecimalNumber> readHexadecimal(std::string_view text) {
    HexadecimalNumber number;
    bool hasDigits = false;
    bool isBehindPoint = false;
    for (; !text.empty(); text.remove_prefix(1)) {
        if (text.front() == '.' && !isBehindPoint) {
            isBehindPoint = true;
            continue;
        }
        const std::optional<unsigned> digit = hexadecimalValue(text.front());
        if (!digit) {
            break;
        }
        hasDigits = true;
        const bool fits = number.mantissa >> 60U == 0;
        if (fits) {
            number.mantissa = number.mantissa << 4U | *digit;
        } else {
            number.isCut = number.isCut || *digit != 0;
        }
        number.exponent += (fits ? 0 : 4) - (isBehindPoint ? 4 : 0);
    }
    const bool hasExponent = !text.empty() && upperCase(text.front()) == 'P';
    if (!hasDigits ||
        !(hasExponent ? readExponent(text.substr(1), number.exponent) : text.empty())) {
        return std::nullopt;
    }
    return number;
}

/// The double that is nearest, of two that are equally near the even one. None: it would be infinite, or 0 and is not.
std::optional<double> nearestReal(HexadecimalNumber number) {
    if (number.mantissa == 0) {
        return 0.0;
    }
    while (number.mantissa >> 63U == 0) {
        number.mantissa <<= 1U;
        --number.exponent;
    }
    const std::int64_t top = number.exponent + 63;
    constexpr std::int64_t smallestNormal = -1022;
    const std::int64_t bits = top >= smallestNormal ? 53 : 53 - (smallestNormal - top);
    if (top > 1023 || bits < 0) {
        return std::nullopt;
    }
    const auto dropped = static_cast<unsigned>(64 - bits);
    const std::uint64_t half = std::uint64_t{1} << (dropped - 1);
    const std::uint64_t rest = number.mantissa & (half | (half - 1));
    std::uint64_t kept = dropped == 64 ? 0 : number.mantissa >> dropped;
    const bool isAboveHalf = rest > half || (rest == half && number.isCut);
    if (isAboveHalf || (rest == half && (kept & 1U) != 0)) {
        ++kept;
    }
    const double value =
        std::ldexp(static_cast<double>(kept), static_cast<int>(number.exponent + dropped));
    return value == 0 || std::isinf(value) ? std::nullopt : std::optional(value);
}

/// Infinity and what is no number have names, which are taken for decimal and hexadecimal numbers alike.
bool isName(std::string_view text) {
    const char first = upperCase(text.front());
    return first == 'I' || first == 'N';
}

/// Whether all digits in front of the exponent are zeros: such a number is 0, and no other one may become it.
bool isZero(std::string_view text) {
    for (const char c : text) {
        if (upperCase(c) == 'E') {
            break;
        }
        if (isDigit(c) && c != '0') {
            return false;
        }
    }
    return true;
}

/// std::strtod takes more than numbers: white space and signs in front, and the prefix of hexadecimal ones.
bool mayBeDecimal(std::string_view text) {
    return (isDigit(text.front()) || text.front() == '.') &&
           !(text.size() > 1 && upperCase(text[1]) == 'X');
}

std::optional<double> decimalReal(std::string_view text) {
    const bool named = isName(text);
    if (!named && !mayBeDecimal(text)) {
        return std::nullopt;
    }
    const std::string terminated(text);
    char* end = nullptr;
    const double value = std::strtod(terminated.c_str(), &end);
    if (end != terminated.c_str() + terminated.size()) {
        return std::nullopt;
    }
    const bool isOutOfRange = std::isinf(value) || (value == 0 && !isZero(text));
    return !named && isOutOfRange ? std::nullopt : std::optional(value);
}

}  // namespace

std::optional<double> realOfByC(std::string_view text, RealDigits digits) {
    const bool isNegative = text.starts_with('-');
    if (isNegative) {
        text.remove_prefix(1);
    }
    if (text.empty()) {
        return std::nullopt;
    }
    std::optional<double> value;
    if (digits == RealDigits::decimal || isName(text)) {
        value = decimalReal(text);
    } else if (const auto number = readHexadecimal(text)) {
        // Not by std::strtod: that of some libraries rounds the smallest numbers twice.
        value = nearestReal(*number);
    }
    if (value && isNegative) {
        return -*value;
    }
    return value;
}

std::size_t writeRealByC(double value, RealText& text) {
    return static_cast<std::size_t>(std::snprintf(text.data(), text.size(), "%.17g", value));
}

}  // namespace torvel
