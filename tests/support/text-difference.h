#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace torvel::test {

/// The lines of `text` without their line feeds; a text that ends in a line feed has no empty last line.
std::vector<std::string_view> splitLines(std::string_view text);

/// A line-by-line difference for people: "-" lines are expected and missing, "+" lines came instead, a
/// few equal lines stand around them. Bytes that do not show are escaped. Empty if the texts are equal.
std::string textDifference(std::string_view expected, std::string_view actual);

}  // namespace torvel::test
