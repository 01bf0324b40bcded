// A string expression is
//
//   term { "+" ( literal | string define | string variable ) }
//
// Nothing tells a string from a number but the place where it stands: the caller decides which
// translator reads it.

#include "src/expr/strings.h"

#include "src/base/characters.h"
#include "src/expr/expressions.h"
#include "src/expr/form.h"
#include "src/expr/number-checks.h"
#include "src/expr/number-text.h"
#include "src/expr/variables.h"

namespace torvel {

namespace {

constexpr TokenType stringTerms[] = {
    TokenType::STRING_LITERAL,   TokenType::STRING_DEFINE,    TokenType::GLOBAL_STRING_DEFINE,
    TokenType::STRGLOB_VARIABLE, TokenType::STRTASK_VARIABLE, TokenType::LEFT_PAREN,
    TokenType::STRMID,           TokenType::DBLTOSTR,         TokenType::STRUPR,
    TokenType::STRLWR,           TokenType::AXISNAMEOF,
};

/// Literals, defines and variables: what may follow a "+".
constexpr std::size_t joinableTerms = 5;

constexpr Form upperCaseForm = makeForm("", "( string )", "StringToUpperCase({})");
constexpr Form lowerCaseForm = makeForm("", "( string )", "StringToLowerCase({})");
constexpr Form dbltostrForm =
    makeForm("", "( value , value )", "RealToString({}, RealDisplayFormat.Decimal, {})");

void translateCall(Statement& statement, const Form& form, ExpressionText& out) {
    const OpenConstruct arguments(statement);
    statement.cursor.advance();
    writeForm(statement, form, out);
}

/// STRMID ( string , first , last )
/// StringSubstring(string, first, last - first), the count a placeholder unless both are constants
void translateStrmid(Statement& statement, ExpressionText& out) {
    const OpenConstruct arguments(statement);
    statement.cursor.advance();
    out += "StringSubstring(";
    expectToken(statement, TokenType::LEFT_PAREN);
    translateStringExpression(statement, out);
    expectToken(statement, TokenType::COMMA);
    ExpressionText first;
    const Token* const firstPlace = statement.cursor.place();
    translateExpression(statement, first);
    expectToken(statement, TokenType::COMMA);
    ExpressionText last;
    {
        const UnwrittenOperand unwritten(statement);
        translateExpression(statement, last);
    }
    const Token* const lastEnd = statement.cursor.place();
    expectToken(statement, TokenType::RIGHT_PAREN);
    out += ", " + first + ", ";
    const auto from = parseIntegerText(first);
    const auto to = parseIntegerText(last);
    if (from && to) {
        out += std::to_string(std::int64_t{*to} - *from);
        if (statement.context.record != nullptr &&
            std::int64_t{decimalReading(last).value_or(*to)} -
                    decimalReading(first).value_or(*from) !=
                std::int64_t{*to} - *from) {
            noteCheck(statement, Check::Octal, firstPlace, lastEnd);
        }
    } else {
        out += "/* $numCharacters */";
        logConversionMessage(statement, Message::StringSubstringPlaceholder);
    }
    out += ')';
}

/// ( string )
void translateParenthesised(Statement& statement, ExpressionText& out) {
    const OpenConstruct parenthesis(statement);
    statement.cursor.advance();
    out += '(';
    translateStringExpression(statement, out);
    expectToken(statement, TokenType::RIGHT_PAREN);
    out += ')';
}

/// $STRGLOBn, $STRGLOB[n]
void translateGlobalString(Statement& statement, ExpressionText& out) {
    const std::string_view digits = trailingDigits(statement.cursor.text());
    statement.cursor.advance();
    out += "$sglobal[";
    const std::size_t indexStart = out.size();
    translateIndex(statement, digits, out);
    if (out.size() == indexStart) {
        refuse(statement, Message::ArrayExpressionExpected);
    }
    out += ']';
}

void translateTerm(Statement& statement, ExpressionText& out) {
    TokenCursor& cursor = statement.cursor;
    switch (cursor.type()) {
        case TokenType::STRING_LITERAL:
            out += '"';
            out += cursor.text();
            out += '"';
            cursor.advance();
            break;
        case TokenType::STRING_DEFINE:
        case TokenType::GLOBAL_STRING_DEFINE:
            out += cursor.text();
            cursor.advance();
            break;
        case TokenType::STRGLOB_VARIABLE: translateGlobalString(statement, out); break;
        case TokenType::STRTASK_VARIABLE:
            refuse(statement, Message::StrtaskVariableUnsupported);
            break;
        case TokenType::LEFT_PAREN: translateParenthesised(statement, out); break;
        case TokenType::STRMID: translateStrmid(statement, out); break;
        case TokenType::DBLTOSTR: translateCall(statement, dbltostrForm, out); break;
        case TokenType::STRUPR: translateCall(statement, upperCaseForm, out); break;
        case TokenType::STRLWR: translateCall(statement, lowerCaseForm, out); break;
        case TokenType::AXISNAMEOF: refuse(statement, Message::AxisnameofUnsupported); break;
        default: reportUnexpectedToken(statement, stringTerms); break;
    }
}

}  // namespace

bool isStringTerm(TokenType type) {
    return isOneOf(type, stringTerms);
}

bool beginsString(TokenCursor cursor) {
    while (cursor.is(TokenType::LEFT_PAREN)) {
        cursor.advance();
    }
    return isStringTerm(cursor.type());
}

void translateStringExpression(Statement& statement, ExpressionText& out) {
    translateTerm(statement, out);
    while (acceptToken(statement, TokenType::PLUS)) {
        const TokenType type = statement.cursor.type();
        if (isNumericVariable(type)) {
            refuse(statement, Message::StringAndNumberJoined);
        } else if (!isOneOf(type, TokenTypes(stringTerms).first(joinableTerms))) {
            reportUnexpectedToken(statement);
        }
        out += " + ";
        translateTerm(statement, out);
    }
}

void translateStringOperand(Statement& statement, ExpressionText& out) {
    switch (statement.cursor.type()) {
        case TokenType::END_OF_FILE: refuse(statement, Message::StringExpected); break;
        case TokenType::STRING_LITERAL:
        case TokenType::STRING_DEFINE: translateTerm(statement, out); break;
        default: translateStringExpression(statement, out); break;
    }
}

}  // namespace torvel
