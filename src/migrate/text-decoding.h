#pragma once

#include <string>
#include <string_view>

#include "src/base/findings.h"

// Programs and names of files are bytes. Where they leave for a format they are decoded here, once: as UTF-8 where
// they are valid UTF-8, else as Windows-1252.

namespace torvel::migrate {

bool isUtf8(std::string_view bytes);

/// `bytes` as UTF-8. Control characters, NUL among them, stay characters: each format has its own way with them.
std::string decodedText(std::string_view bytes);

/// The text `bytes` with a line feed for each of its line ends, which are CR LF, CR and LF. Each line is decoded by
/// itself, as findings have it.
std::string decodedLines(std::string_view bytes);

/// Columns of the line `bytes`, counted in bytes, as columns of its decoded text, counted in units of UTF-16, from 1,
/// the last one included. What lies behind the end of the line is not known.
ColumnRange utf16Columns(std::string_view bytes, ColumnRange columns);

/// How many UTF-16 units a decoded text has.
std::size_t utf16Length(std::string_view text);

/// A decoded text with the control characters that are not in `kept` as signs that can be seen: U+2400 and those behind
/// it for NUL to U+001F and DEL, the replacement character for U+0080 to U+009F and what is no character.
std::string visibleText(std::string_view text, std::string_view kept = {});

/// `text` if it has at most `length` characters, else as many of them and an ellipsis as the last one.
std::string shortenedText(std::string_view text, std::size_t length);

/// How many characters a decoded text has.
std::size_t characterCount(std::string_view text);

/// The number of bytes of the character that begins at `at`.
std::size_t characterSize(std::string_view text, std::size_t at);

}  // namespace torvel::migrate
