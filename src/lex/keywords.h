#pragma once

#include <string_view>

#include "src/base/token-type.h"

namespace torvel {

/// The kind of a keyword or operator word, whatever the case of `word`; TokenType::INVALID if it is
/// none.
TokenType keywordKind(std::string_view word);

/// The kind of a word that begins with "$": one of the numbered or named kinds, or a user variable.
TokenType variableKind(std::string_view word);

}  // namespace torvel
