// Operators by precedence, from the logical or up to the unary signs:
//
//   expression     = logical or, ... multiplicative: binary operators that group to the left
//   power          = unary [ "**" power ]
//   unary          = ( "+" | "-" | "!" | "~" ) unary | primary
//
// The binary levels are rows of one table. A level's text is made by appending, so an operand's text
// is never copied; only a sum of numbers takes back what it appended and writes the result.
//
// What the source holds together stays together by itself, since the languages have the same levels. Only
// an operand that became several in Torvel (LOG, ISDONE) can bind too loosely for the operator beside it,
// and is put into parentheses.

#include <array>

#include "src/expr/expressions.h"
#include "src/expr/number-checks.h"
#include "src/expr/number-text.h"
#include "src/expr/variables.h"

namespace torvel {

namespace {

/// All kinds of token that are operators stand in one range.
constexpr auto firstOperator = static_cast<std::uint32_t>(TokenType::DOT);
constexpr auto lastOperator = static_cast<std::uint32_t>(TokenType::BNOR);

/// By kind of token from the first the number of its operator from 1.
constexpr auto operatorNumbers = [] {
    std::array<std::uint8_t, lastOperator - firstOperator + 1> numbers{};
    std::uint8_t number = 0;
    for (const BinaryOperator& entry : binaryOperators) {
        numbers[static_cast<std::uint32_t>(entry.token) - firstOperator] = ++number;
    }
    return numbers;
}();

/// The operator that a kind of token is; null: it is none.
const BinaryOperator* operatorOf(TokenType token) {
    const auto type = static_cast<std::uint32_t>(token);
    if (type < firstOperator || type > lastOperator || operatorNumbers[type - firstOperator] == 0) {
        return nullptr;
    }
    return &binaryOperators[operatorNumbers[type - firstOperator] - 1];
}

/// The current token's operator, if it groups to the left and binds at least as tightly as `loosest`.
const BinaryOperator* operatorAt(const TokenCursor& cursor, Precedence loosest) {
    const BinaryOperator* const entry = operatorOf(cursor.type());
    const bool isMeant =
        entry != nullptr && entry->level >= loosest && entry->level < Precedence::power;
    return isMeant ? entry : nullptr;
}

/// unary ** power, grouping to the right
Precedence translatePower(Statement& statement, ExpressionText& out) {
    constexpr BinaryOperator power = findBinaryOperator(TokenType::STAR_STAR);
    const std::size_t start = out.size();
    const Token* const first = statement.cursor.place();
    const Precedence base = translateUnary(statement, out);
    if (!acceptToken(statement, power.token)) {
        return base;
    }
    if (first->type == TokenType::LEFT_PAREN && base == Precedence::unary) {
        noteCheck(statement, Check::NumberText, first);
    }
    if (!bindsInFront(base, power)) {
        parenthesise(out, start);
    }
    out += power.text;
    const OpenConstruct open(statement);
    const std::size_t exponentStart = out.size();
    if (!bindsBehind(translatePower(statement, out), power)) {
        parenthesise(out, exponentStart);
    }
    return power.level;
}

/// The value of a text that was written when the cursor reached its place, if it is a number.
std::optional<double> numberOf(const TokenCursor& cursor, std::string_view text) {
    if (text.starts_with('$')) {
        return std::nullopt;  // a variable, as most are
    }
    const TokenType last = cursor.previous();
    const bool isDefine =
        last == TokenType::PROGRAM_VARIABLE_DEFINE || last == TokenType::GLOBAL_VARIABLE_DEFINE;
    return isDefine ? std::nullopt : parseRealText(text);
}

/// The value of a sum as long as both sides of every operator were numbers.
class NumberSum {
public:
    /// The text of `out` from `start` on is the left side; the cursor stands behind it.
    NumberSum(const TokenCursor& cursor, const ExpressionText& out, std::size_t start)
        : start_(start), value_(numberAt(cursor, out, start)) {}

    /// Replaces the sum in `out`, whose right side begins at `rightStart`, by its value. False: it is none.
    bool fold(const TokenCursor& cursor, TokenType sign, std::size_t rightStart,
              ExpressionText& out) {
        const std::optional<double> right =
            value_ ? numberAt(cursor, out, rightStart) : std::nullopt;
        if (!right) {
            value_.reset();
            return false;
        }
        value_ = sign == TokenType::PLUS ? *value_ + *right : *value_ - *right;
        out.truncate(start_);
        appendReal(*value_, out);
        return true;
    }

private:
    static std::optional<double> numberAt(const TokenCursor& cursor, const ExpressionText& out,
                                          std::size_t start) {
        return numberOf(cursor, std::string_view(out).substr(start));
    }

    std::size_t start_;
    std::optional<double> value_;
};

/// Whether the operand of the power level at the cursor is one token, as most are, and what follows is no part of it.
bool isOneToken(const Statement& statement) {
    const TokenCursor& cursor = statement.cursor;
    const TokenType type = cursor.type();
    const TokenType following = cursor.following();
    const bool isNumber = type == TokenType::INTEGER_LITERAL || type == TokenType::FLOAT_LITERAL ||
                          type == TokenType::NUMBER_DEFINE;
    return (isNumber || (isBareVariable(cursor) && following != TokenType::PLUS_PLUS &&
                         following != TokenType::MINUS_MINUS)) &&
           following != TokenType::STAR_STAR;
}

/// Writes such an operand.
void writeOneToken(Statement& statement, ExpressionText& out) {
    const bool isDefine = statement.cursor.token().type == TokenType::NUMBER_DEFINE;
    if (isDefine || needsNumberCheck(statement)) {
        translateNumericLiteral(statement, out);
    } else {
        writeToken(statement, out);
    }
}

/// Whether the operator behind the current token, which is an operand, is one of those that bind at least as tightly
/// as `loosest`.
bool goesOn(const TokenCursor& cursor, Precedence loosest) {
    const BinaryOperator* const entry = operatorOf(cursor.following());
    return entry != nullptr && entry->level >= loosest;
}

/// The binary levels from `loosest` up: operands of the power level, joined by operators that bind at
/// least as tightly as `loosest`, each level grouping to the left.
Precedence translateBinary(Statement& statement, Precedence loosest, ExpressionText& out) {
    const std::size_t start = out.size();
    Precedence binding = Precedence::primary;
    if (isOneToken(statement)) {
        writeOneToken(statement, out);
    } else {
        binding = translatePower(statement, out);
    }
    std::optional<NumberSum> sum;
    while (const BinaryOperator* entry = operatorAt(statement.cursor, loosest)) {
        if (entry->refusal) {
            refuse(statement, *entry->refusal);
            break;
        }
        if (statement.cursor.is(TokenType::PERCENT) && statement.cursor.text() == "%=") {
            noteCheck(statement, Check::RemainderAssigned, statement.cursor.place(),
                      statement.cursor.place() + 1);
        }
        const bool isSum = entry->level == Precedence::additive;
        if (isSum && !sum) {
            sum.emplace(statement.cursor, out, start);
        }
        statement.cursor.advance();
        if (!bindsInFront(binding, *entry)) {
            parenthesise(out, start);
        }
        out += entry->text;
        const std::size_t rightStart = out.size();
        Precedence right = Precedence::primary;
        if (isOneToken(statement) && !goesOn(statement.cursor, tighterThan(entry->level))) {
            writeOneToken(statement, out);
        } else {
            right = translateBinary(statement, tighterThan(entry->level), out);
        }
        if (isSum && sum->fold(statement.cursor, entry->token, rightStart, out)) {
            binding = out[start] == '-' ? Precedence::unary : Precedence::primary;
            continue;
        }
        if (!bindsBehind(right, *entry)) {
            parenthesise(out, rightStart);
        }
        binding = entry->level;
    }
    return binding;
}

}  // namespace

Precedence translateUnary(Statement& statement, ExpressionText& out) {
    const std::size_t start = out.size();
    switch (statement.cursor.type()) {
        case TokenType::PLUS: break;
        case TokenType::MINUS: out += '-'; break;
        case TokenType::EXCLAMATION: out += '!'; break;
        case TokenType::TILDE: out += '~'; break;
        default: return translatePrimary(statement, out);
    }
    const Token* const first = statement.cursor.place();
    statement.cursor.advance();
    const OpenConstruct sign(statement);
    const std::size_t operandStart = out.size();
    const Precedence operand = translateUnary(statement, out);
    if (operandStart == start) {
        return operand;
    }
    if (operand < Precedence::unary) {
        parenthesise(out, operandStart);
    }
    if (out[start] == '-' && out.size() > operandStart && out[operandStart] == '-') {
        noteCheck(statement, Check::DoubleMinus, first);
    }
    return Precedence::unary;
}

Precedence translateExpression(Statement& statement, ExpressionText& out) {
    if (isOneToken(statement) && !goesOn(statement.cursor, Precedence::logicalOr)) {
        writeOneToken(statement, out);
        return Precedence::primary;
    }
    return translateBinary(statement, Precedence::logicalOr, out);
}

bool isNumberText(const TokenCursor& cursor, std::string_view text) {
    return numberOf(cursor, text).has_value();
}

}  // namespace torvel
