#pragma once

#include <array>
#include <charconv>
#include <cstddef>
#include <optional>
#include <string_view>

// Texts of real numbers. The standard library of the compiler does it with std::from_chars and std::to_chars; where that
// has them for whole numbers only, the C library does it, with the same bytes and the same refusals.

namespace torvel {

/// How the digits of a text count.
enum class RealDigits : bool { decimal, hexadecimal };

/// Room for the text of any double.
using RealText = std::array<char, 32>;

/// The same as the functions below, by the C library, which has to have the locale "C".
std::optional<double> realOfByC(std::string_view text, RealDigits digits);
std::size_t writeRealByC(double value, RealText& text);

#ifdef __cpp_lib_to_chars

/// The number that is the whole of `text`, without white space, sign of plus, or prefix of hexadecimal digits. None: it is
/// none, or too large or too small for a double.
inline std::optional<double> realOf(std::string_view text, RealDigits digits) {
    const std::chars_format format =
        digits == RealDigits::hexadecimal ? std::chars_format::hex : std::chars_format::general;
    double value = 0;
    const char* const end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, value, format);
    if (error != std::errc() || last != end) {
        return std::nullopt;
    }
    return value;
}

/// Writes a number with up to 17 digits, with an exponent where that is shorter; tells the length.
inline std::size_t writeReal(double value, RealText& text) {
    char* const begin = text.data();
    const auto [end, error] =
        std::to_chars(begin, begin + text.size(), value, std::chars_format::general, 17);
    return static_cast<std::size_t>(end - begin);
}

#else

inline std::optional<double> realOf(std::string_view text, RealDigits digits) {
    return realOfByC(text, digits);
}

inline std::size_t writeReal(double value, RealText& text) {
    return writeRealByC(value, text);
}

#endif

}  // namespace torvel
