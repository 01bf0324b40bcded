#pragma once

#include <string>
#include <string_view>

#include "fuzz/target.h"

namespace torvel::fuzz {

/// `text` with some of its words put in, taken out, replaced, moved or repeated; the same for the same `seed`.
std::string mutateWords(const Target& target, std::string_view text, unsigned seed);

}  // namespace torvel::fuzz
