#pragma once

#include <string_view>

// What the converter leaves in an output where a person has to go on.

namespace torvel {

/// Stands in front of a line that could not be converted.
inline constexpr std::string_view unconvertibleMarker = "#error_unconvertible";

/// Whether a line of an output, indented or not, is one that could not be converted.
bool isMarkerLine(std::string_view line);

/// Whether Torvel text has a comment in the place of an operand that a person has to fill in. One in a string, or
/// behind "//", is none.
bool hasPlaceholder(std::string_view text);

}  // namespace torvel
