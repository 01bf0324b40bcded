// Calls of built-in functions. Most are forms and rows of functions.def; the others have a routine here,
// with the Brannic form and the Torvel form above it.

#include "src/expr/functions.h"

#include <array>
#include <vector>

#include "src/expr/axis-lists.h"
#include "src/expr/expressions.h"
#include "src/expr/form.h"
#include "src/expr/number-checks.h"
#include "src/expr/number-text.h"
#include "src/expr/strings.h"
#include "src/expr/variables.h"

namespace torvel {

namespace {

/// RAND ( x )
/// RandomNextReal() if x is the integer 0, else RandomSeed(x)
Precedence translateRand(Statement& statement, ExpressionText& out) {
    ExpressionText seed;
    const Token* const first = statement.cursor.place() - 1;
    expectToken(statement, TokenType::LEFT_PAREN);
    translateExpression(statement, seed);
    expectToken(statement, TokenType::RIGHT_PAREN);
    const bool isNext = parseIntegerText(seed) == 0;
    if (isNext) {
        out += "RandomNextReal()";
    } else {
        out += "RandomSeed(";
        out += seed;
        out += ')';
    }
    if (!isNext) {
        noteCheck(statement, Check::RandomSeed, first);
    }
    return Precedence::primary;
}

/// function ( s1 , s2 , flag ): the flag is dropped, and unless it is a constant other than 0 the
/// comparison was not case-sensitive.
void translateComparison(Statement& statement, std::string_view call, ExpressionText& out) {
    out += call;
    expectToken(statement, TokenType::LEFT_PAREN);
    translateStringExpression(statement, out);
    expectToken(statement, TokenType::COMMA);
    out += ", ";
    translateStringExpression(statement, out);
    expectToken(statement, TokenType::COMMA);
    ExpressionText flag;
    {
        const UnwrittenOperand dropped(statement, UnwrittenOperand::Value::isDropped);
        translateExpression(statement, flag);
    }
    expectToken(statement, TokenType::RIGHT_PAREN);
    out += ')';
    if (parseIntegerText(flag).value_or(0) == 0) {
        logConversionMessage(statement, Message::ComparisonCaseSensitive);
    }
}

/// STRCMP ( s1 , s2 , flag )
/// StringEquals(s1, s2)
Precedence translateStrcmp(Statement& statement, ExpressionText& out) {
    const Token* const first = statement.cursor.place() - 1;
    translateComparison(statement, "StringEquals(", out);
    noteCheck(statement, Check::StringCompare, first);
    return Precedence::primary;
}

/// STRFIND ( s1 , s2 , flag )
/// StringFindSubstringIndex(s1, s2)
Precedence translateStrfind(Statement& statement, ExpressionText& out) {
    translateComparison(statement, "StringFindSubstringIndex(", out);
    return Precedence::primary;
}

/// ISDONE ( axes )
/// (StatusGetAxisItem(axis, ...) != 0) for each axis, joined by &&
Precedence translateIsDone(Statement& statement, ExpressionText& out) {
    expectToken(statement, TokenType::LEFT_PAREN);
    const TextList axes = translateAxes(statement);
    expectToken(statement, TokenType::RIGHT_PAREN);
    for (std::size_t i = 0; i < axes.size(); ++i) {
        out += i == 0 ? "" : " && ";
        out += "(StatusGetAxisItem(";
        out += axes[i];
        out += ", AxisStatusItem.AxisStatus, AxisStatus.WaitDone) != 0)";
    }
    return axes.size() > 1 ? Precedence::logicalAnd : Precedence::primary;
}

/// Whose status an item is.
enum class StatusPlace : std::uint8_t { axis, task, system };

/// The axis whose status is read: an axis number, a string variable that names it, or an axis.
void translateStatusAxis(Statement& statement, ExpressionText& out) {
    switch (statement.cursor.type()) {
        case TokenType::INTEGER_LITERAL: translateNumberedAxis(statement, out); break;
        case TokenType::STRGLOB_VARIABLE:
        case TokenType::STRTASK_VARIABLE:
        case TokenType::GLOBAL_STRING_DEFINE:
            out += '@';
            translateStringExpression(statement, out);
            break;
        default: translateSingleAxis(statement, out); break;
    }
}

/// item [ , argument ]
void translateStatusItem(Statement& statement, ItemTable items, ExpressionText& out) {
    ExpressionText item;
    const Token* const first = statement.cursor.place();
    {
        const UnwrittenOperand unwritten(statement);
        translateExpression(statement, item);
    }
    checkItemNumber(statement, items, item, first);
    if (const std::optional<std::int32_t> number = parseIntegerText(item)) {
        translateItem(statement, items, *number, first, out);
    } else {
        refuse(statement, Message::IntegerLiteralExpected);
    }
    if (acceptToken(statement, TokenType::COMMA)) {
        out += ", ";
        translateExpression(statement, out);
    }
}

struct Function {
    enum class Kind : std::uint8_t { none, form, status, routine, refused };

    Kind kind = Kind::none;
    Form form;
    std::string_view call;
    StatusPlace place{};
    ItemTable items{};
    std::optional<Message> message;
    Precedence (*translate)(Statement&, ExpressionText&) = nullptr;
};

constexpr Function functions[] = {
#define FUNCTION(keyword, pattern, text) \
    {Function::Kind::form, makeForm("", pattern, text), {}, {}, {}, {}, nullptr},
#define STATUS(keyword, call, place, items) \
    {Function::Kind::status, {}, call, StatusPlace::place, ItemTable::items, {}, nullptr},
#define STATUS_ADVISED(keyword, call, place, items, message)                     \
    {Function::Kind::status, {},     call, StatusPlace::place, ItemTable::items, \
     Message::message,       nullptr},
#define ROUTINE(keyword, translate) {Function::Kind::routine, {}, {}, {}, {}, {}, translate},
#define REFUSED(keyword, message) \
    {Function::Kind::refused, {}, {}, {}, {}, Message::message, nullptr},
#include "src/expr/functions.def"
};

constexpr TokenType functionKeywords[] = {
#define FUNCTION(keyword, pattern, text) TokenType::keyword,
#define STATUS(keyword, call, place, items) TokenType::keyword,
#define STATUS_ADVISED(keyword, call, place, items, message) TokenType::keyword,
#define ROUTINE(keyword, translate) TokenType::keyword,
#define REFUSED(keyword, message) TokenType::keyword,
#include "src/expr/functions.def"
};

/// By kind of token the number of its function from 1.
constexpr auto functionNumbers = [] {
    std::array<std::uint8_t, tokenTypeCount> numbers{};
    std::uint8_t number = 0;
    for (const TokenType keyword : functionKeywords) {
        numbers[static_cast<std::uint32_t>(keyword)] = ++number;
    }
    return numbers;
}();

/// ( [place ,] item [, argument] )
/// call(place, item, argument)
void translateStatus(Statement& statement, const Function& function, ExpressionText& out) {
    out += function.call;
    expectToken(statement, TokenType::LEFT_PAREN);
    if (function.place != StatusPlace::system) {
        if (function.place == StatusPlace::axis) {
            translateStatusAxis(statement, out);
        } else {
            translateExpression(statement, out);
        }
        expectToken(statement, TokenType::COMMA);
        out += ", ";
    }
    translateStatusItem(statement, function.items, out);
    expectToken(statement, TokenType::RIGHT_PAREN);
    out += ')';
    if (function.message) {
        logConversionMessage(statement, *function.message);
    }
}

}  // namespace

Precedence translateFunction(Statement& statement, ExpressionText& out) {
    const std::uint8_t number =
        functionNumbers[static_cast<std::uint32_t>(statement.cursor.type())];
    if (number == 0) {
        reportUnexpectedToken(statement);
        return Precedence::primary;
    }
    const Function& function = functions[number - 1];
    if (function.kind == Function::Kind::refused) {
        refuse(statement, *function.message);
        return Precedence::primary;
    }
    const OpenConstruct arguments(statement);
    statement.cursor.advance();
    switch (function.kind) {
        case Function::Kind::form: return writeForm(statement, function.form, out);
        case Function::Kind::routine: return function.translate(statement, out);
        default: translateStatus(statement, function, out); return Precedence::primary;
    }
}

}  // namespace torvel
