#pragma once

#include <string>
#include <string_view>

namespace torvel::test {

/// Text with `\xHH`, `\r`, `\n`, `\t`, `\s` (a blank) and `\\` turned into the bytes that they stand for.
/// Any other backslash stands for itself.
std::string decodeEscapes(std::string_view text);

/// The opposite: bytes that a text file does not show, and backslashes, as escapes. Line feeds and tabs
/// stay.
std::string encodeEscapes(std::string_view text);

/// Whether a text file shows `text` as it is.
bool isPlainText(std::string_view text);

/// `text` with every `from` replaced.
std::string replaceAll(std::string_view text, std::string_view from, std::string_view to);

}  // namespace torvel::test
