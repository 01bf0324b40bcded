#pragma once

#include <span>
#include <string_view>

#include "src/base/program.h"

namespace torvel::fuzz {

/// Whether every bracket of a Torvel text is closed by its like, those in strings not counted.
bool hasBalancedBrackets(std::string_view text);

/// Whether the program itself brings brackets in that need not be balanced: a directive, a macro, or the name
/// or value of a define that stands in the line.
bool bringsOwnBrackets(const Program& program, std::span<const Token> tokens);

}  // namespace torvel::fuzz
