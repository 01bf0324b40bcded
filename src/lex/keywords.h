#pragma once

#include <cstddef>
#include <string_view>

#include "src/lex/token-type.h"

namespace torvel {

/// Length of the longest spelling in the keyword table, in bytes.
extern const std::size_t longestKeyword;

/// The kind of a keyword or operator word, whatever the case of `word`; TokenType::INVALID if it is
/// none. The table is made at compile time.
TokenType keywordKind(std::string_view word);

}  // namespace torvel
