// Operators by precedence, from the logical or up to the unary signs:
//
//   expression     = logical or, ... multiplicative: binary operators that group to the left
//   power          = unary [ "**" power ]
//   unary          = ( "+" | "-" | "!" | "~" ) unary | primary
//
// The binary levels are rows of one table. A level's text is made by appending, so an operand's text
// is never copied; only a sum of numbers takes back what it appended and writes the result.

#include <array>

#include "src/expr/expressions.h"
#include "src/expr/number-text.h"

namespace torvel {

namespace {

/// Lowest first.
enum class Precedence : std::uint8_t {
    none,
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
};

struct BinaryOperator {
    TokenType token = TokenType::INVALID;
    Precedence precedence = Precedence::none;
    /// As Torvel writes it; empty for an operator that Torvel lacks.
    std::string_view text;
    Message refusal{};
};

constexpr BinaryOperator binaryOperators[] = {
    {TokenType::BAR_BAR, Precedence::logicalOr, " || "},
    {TokenType::AMPERSAND_AMPERSAND, Precedence::logicalAnd, " && "},
    {TokenType::BAR, Precedence::bitwiseOr, " | "},
    {TokenType::BNOR, Precedence::bitwiseOr, {}, Message::BnorUnsupported},
    {TokenType::CARET, Precedence::bitwiseXor, " ^ "},
    {TokenType::AMPERSAND, Precedence::bitwiseAnd, " & "},
    {TokenType::BNAND, Precedence::bitwiseAnd, {}, Message::BnandUnsupported},
    {TokenType::ASSIGN, Precedence::equality, " == "},
    {TokenType::EQUAL, Precedence::equality, " == "},
    {TokenType::NOT_EQUAL, Precedence::equality, " != "},
    {TokenType::LESS, Precedence::relational, " < "},
    {TokenType::LESS_EQUAL, Precedence::relational, " <= "},
    {TokenType::GREATER, Precedence::relational, " > "},
    {TokenType::GREATER_EQUAL, Precedence::relational, " >= "},
    {TokenType::SHIFT_LEFT, Precedence::shift, " << "},
    {TokenType::SHIFT_RIGHT, Precedence::shift, " >> "},
    {TokenType::PLUS, Precedence::additive, " + "},
    {TokenType::MINUS, Precedence::additive, " - "},
    {TokenType::STAR, Precedence::multiplicative, " * "},
    {TokenType::SLASH, Precedence::multiplicative, " / "},
    {TokenType::PERCENT, Precedence::multiplicative, " % "},
};

/// The operators by kind of token; all kinds that are operators stand in one range.
constexpr auto firstOperator = static_cast<std::uint32_t>(TokenType::DOT);
constexpr auto lastOperator = static_cast<std::uint32_t>(TokenType::BNOR);

constexpr auto operatorsByToken = [] {
    std::array<BinaryOperator, lastOperator - firstOperator + 1> table{};
    for (const BinaryOperator& entry : binaryOperators) {
        table[static_cast<std::uint32_t>(entry.token) - firstOperator] = entry;
    }
    return table;
}();

/// The operator that the current token is, if it binds at least as tightly as `lowest`.
const BinaryOperator* operatorAt(const TokenCursor& cursor, Precedence lowest) {
    const auto type = static_cast<std::uint32_t>(cursor.type());
    if (type < firstOperator || type > lastOperator) {
        return nullptr;
    }
    const BinaryOperator& entry = operatorsByToken[type - firstOperator];
    return entry.precedence >= lowest ? &entry : nullptr;
}

bool translateUnary(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    switch (cursor.type()) {
        case TokenType::PLUS: break;
        case TokenType::MINUS: out += '-'; break;
        case TokenType::EXCLAMATION: out += '!'; break;
        case TokenType::TILDE: out += '~'; break;
        default: return translatePrimary(context, cursor, out);
    }
    cursor.advance();
    const OpenConstruct sign(context);
    return sign && translateUnary(context, cursor, out);
}

/// unary ** power, grouping to the right
bool translatePower(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    if (!translateUnary(context, cursor, out)) {
        return false;
    }
    if (!acceptToken(cursor, TokenType::STAR_STAR)) {
        return true;
    }
    out += " ** ";
    const OpenConstruct exponent(context);
    return exponent && translatePower(context, cursor, out);
}

bool translateBinary(ConversionContext& context, TokenCursor& cursor, Precedence lowest,
                     ExpressionText& out);

/// The sum under construction: its text from `start` on is a number as long as both sides of every
/// operator were.
class Sum {
public:
    explicit Sum(std::size_t start) : start_(start) {}

    /// left (+ | -) right, the cursor standing on the operator
    bool add(ConversionContext& context, TokenCursor& cursor, const BinaryOperator& entry,
             ExpressionText& out) {
        if (!begun_) {
            value_ = numberAt(cursor, out, start_);
            begun_ = true;
        }
        cursor.advance();
        out += entry.text;
        const std::size_t rightStart = out.size();
        if (!translateBinary(context, cursor, Precedence::multiplicative, out)) {
            return false;
        }
        const std::optional<double> right =
            value_ ? numberAt(cursor, out, rightStart) : std::nullopt;
        if (!right) {
            value_.reset();
            return true;
        }
        value_ = entry.token == TokenType::PLUS ? *value_ + *right : *value_ - *right;
        out.resize(start_);
        appendReal(*value_, out);
        return true;
    }

private:
    static std::optional<double> numberAt(const TokenCursor& cursor, const ExpressionText& out,
                                          std::size_t start) {
        const std::string_view text = std::string_view(out).substr(start);
        return isNumberText(cursor, text) ? parseRealText(text) : std::nullopt;
    }

    std::size_t start_;
    bool begun_ = false;
    std::optional<double> value_;
};

/// The binary levels from `lowest` up: operands of the power level, joined by operators that bind at
/// least as tightly as `lowest`, each level grouping to the left.
bool translateBinary(ConversionContext& context, TokenCursor& cursor, Precedence lowest,
                     ExpressionText& out) {
    Sum sum(out.size());
    if (!translatePower(context, cursor, out)) {
        return false;
    }
    while (const BinaryOperator* entry = operatorAt(cursor, lowest)) {
        if (entry->text.empty()) {
            return logConversionMessage(context, entry->refusal);
        }
        if (entry->precedence == Precedence::additive) {
            if (!sum.add(context, cursor, *entry, out)) {
                return false;
            }
            continue;
        }
        cursor.advance();
        out += entry->text;
        const auto tighter = static_cast<Precedence>(static_cast<int>(entry->precedence) + 1);
        if (!translateBinary(context, cursor, tighter, out)) {
            return false;
        }
    }
    return true;
}

}  // namespace

bool translateExpression(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    return translateBinary(context, cursor, Precedence::logicalOr, out);
}

bool isNumberText(const TokenCursor& cursor, std::string_view text) {
    const TokenType last = cursor.previous();
    return last != TokenType::PROGRAM_VARIABLE_DEFINE &&
           last != TokenType::GLOBAL_VARIABLE_DEFINE && parseRealText(text).has_value();
}

}  // namespace torvel
