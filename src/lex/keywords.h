#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "src/base/token-type.h"

namespace torvel {

/// The kind of a keyword or operator word, whatever the case of `word`; TokenType::INVALID if it is
/// none.
TokenType keywordKind(std::string_view word);

/// By the first letter of the variables that are not users', which second letters follow it.
extern const std::array<std::uint32_t, 32> variableLetters;

/// The same as variableKind() for words that may be no users' variables.
TokenType systemVariableKind(std::string_view word);

/// The kind of a word that begins with "$": one of the numbered or named kinds, or a user variable. Most of these are
/// told by their first two letters.
inline TokenType variableKind(std::string_view word) {
    const bool mayBeSystems =
        word.size() >= 3 && (variableLetters[static_cast<unsigned char>(word[1]) % 32U] >>
                                 (static_cast<unsigned char>(word[2]) % 32U) &
                             1U) != 0;
    return mayBeSystems ? systemVariableKind(word) : TokenType::VARIABLE;
}

}  // namespace torvel
