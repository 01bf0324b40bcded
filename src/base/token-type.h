#pragma once

#include <cstdint>
#include <string_view>

namespace torvel {

/// The kinds of token, from 0 without gaps. Rows and display names: token-kinds.def.
enum class TokenType : std::uint32_t {
#define KIND(enumerator, display) enumerator,
#define KEYWORD(enumerator, spelling) enumerator,
#define DIRECTIVE(enumerator, spelling) enumerator,
#include "src/base/token-kinds.def"
};

inline constexpr std::uint32_t tokenTypeCount = 0
#define KIND(enumerator, display) +1
#define KEYWORD(enumerator, spelling) +1
#define DIRECTIVE(enumerator, spelling) +1
#include "src/base/token-kinds.def"
    ;

/// Every kind keeps its value. How many there are, tests/unit/token-types.table says.
consteval bool hasValue(TokenType kind, std::uint32_t value) {
    if (static_cast<std::uint32_t>(kind) != value) {
        throw "a row of token-kinds.def was moved, or put in elsewhere than behind the last one";
    }
    return true;
}
static_assert(hasValue(TokenType::END_OF_FILE, 8));
static_assert(hasValue(TokenType::VARIABLE, 14));
static_assert(hasValue(TokenType::AXIS_FEEDRATE, 42));
static_assert(hasValue(TokenType::DOT, 43));
static_assert(hasValue(TokenType::CARET, 82));
static_assert(hasValue(TokenType::BNOR, 84));
static_assert(hasValue(TokenType::GCODE_WORD, 85));
static_assert(hasValue(TokenType::LETTER_E, 86));
static_assert(hasValue(TokenType::LETTER_T, 100));
static_assert(hasValue(TokenType::HOME, 101));
static_assert(hasValue(TokenType::PARMNAMES_DIRECTIVE, 552));

/// Whether `type` lies in the closed range [first, last] of the numbering.
constexpr bool isInRange(TokenType type, TokenType first, TokenType last) {
    return type >= first && type <= last;
}

/// The six kinds of preserved define: tokens with a second text.
constexpr bool isPreservedDefine(TokenType type) {
    return isInRange(type, TokenType::AXIS_DEFINE, TokenType::GLOBAL_STRING_DEFINE);
}

/// Single letters that address a word of a G-code line (E to T, but no H).
constexpr bool isAddressLetter(TokenType type) {
    return isInRange(type, TokenType::LETTER_E, TokenType::LETTER_T);
}

/// The name of a kind in messages, for example "')'" or "THEN keyword".
/// A number outside the kinds is a programming error: std::logic_error "Unknown token type.".
std::string_view tokenTypeName(TokenType type);

}  // namespace torvel
