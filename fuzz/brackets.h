#pragma once

#include <string_view>

namespace torvel::fuzz {

/// Whether every bracket of a Torvel text is closed by its like, strings and comments not counted.
bool hasBalancedBrackets(std::string_view text);

}  // namespace torvel::fuzz
