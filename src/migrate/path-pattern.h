#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Patterns of paths:
//
//   *      any bytes of one name, none too
//   ?      one byte of a name
//   [a-z]  one byte of the set; [!a-z] and [^a-z] one that is not of it
//   **     as a whole name: any names, none too
//
// Letters of ASCII match in both cases, on every system: programs come from a controller that does not tell them
// apart. A pattern matches a whole path, written with "/".

namespace torvel::migrate {

/// A pattern as it was written, with "/" as the separator and without "./" in front and "/" behind.
std::string tidyPattern(std::string written);

/// What is wrong with a pattern: the end of a sentence that begins with it. Nothing: it can be used.
std::optional<std::string> faultOfPattern(std::string_view pattern);

/// Takes time in proportion to the product of the lengths at most.
bool matchesPattern(std::string_view pattern, std::string_view path);

bool matchesAny(const std::vector<std::string>& patterns, std::string_view path);

}  // namespace torvel::migrate
