#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "src/base/messages.h"
#include "src/base/token-type.h"

namespace torvel {

/// How tightly a piece of Torvel text holds together: the level of its loosest operator. Loosest first.
enum class Precedence : std::uint8_t {
    logicalOr,
    logicalAnd,
    bitwiseOr,
    bitwiseXor,
    bitwiseAnd,
    equality,
    relational,
    shift,
    additive,
    multiplicative,
    power,
    unary,
    /// A literal, a variable, a call, a text in parentheses.
    primary,
};

/// An operator between two operands. Rows: operators.def.
struct BinaryOperator {
    TokenType token = TokenType::INVALID;
    Precedence level = Precedence::primary;
    /// As Torvel writes it, with its blanks; empty for an operator that Torvel lacks.
    std::string_view text;
    std::optional<Message> refusal;
    /// a op (b op c) is (a op b) op c.
    bool isAssociative = false;
};

inline constexpr BinaryOperator binaryOperators[] = {
#define OPERATOR(token, level, text) {TokenType::token, Precedence::level, text, {}, false},
#define ASSOCIATIVE_OPERATOR(token, level, text) \
    {TokenType::token, Precedence::level, text, {}, true},
#define REFUSED(token, level, message) \
    {TokenType::token, Precedence::level, {}, Message::message, false},
#include "src/expr/operators.def"
};

/// The operator of a kind of token; none: its kind is TokenType::INVALID.
constexpr BinaryOperator findBinaryOperator(TokenType token) {
    for (const BinaryOperator& entry : binaryOperators) {
        if (entry.token == token) {
            return entry;
        }
    }
    return {};
}

/// The next level above `level`, which is none of the last two.
constexpr Precedence tighterThan(Precedence level) {
    return static_cast<Precedence>(static_cast<std::uint8_t>(level) + 1);
}

/// Whether a text stays one operand in front of an operator. Powers group to the right.
constexpr bool bindsInFront(Precedence text, const BinaryOperator& entry) {
    return entry.level == Precedence::power ? text > entry.level : text >= entry.level;
}

/// Whether a text stays one operand behind an operator.
constexpr bool bindsBehind(Precedence text, const BinaryOperator& entry) {
    return text > entry.level ||
           (text == entry.level && (entry.isAssociative || entry.level == Precedence::power));
}

/// Puts the text from `start` on into parentheses.
inline void parenthesise(TextBuffer& out, std::size_t start) {
    out.insert(start, '(');
    out += ')';
}

}  // namespace torvel
