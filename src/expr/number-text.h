#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "src/base/text-buffer.h"

namespace torvel {

/// The whole of `text` as a 32-bit integer, read as C reads one in base 0: white space, a sign, "0x"
/// for hexadecimal, a leading "0" for octal. The empty text is 0. Nothing if anything else stands in
/// it or the value is out of range.
std::optional<std::int32_t> parseIntegerText(std::string_view text);

/// The whole of `text` as a number, read as C does in its own locale: decimal or hexadecimal, "inf",
/// "nan", white space in front. The empty text is 0. Nothing if anything else stands in it or the
/// value is too large or too small for a double.
std::optional<double> parseRealText(std::string_view text);

/// Appends `value` as C's "%.17g" writes it.
void appendReal(double value, TextBuffer& out);

}  // namespace torvel
