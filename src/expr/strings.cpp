// A string expression is
//
//   term { "+" ( literal | string define | string variable ) }
//
// Nothing tells a string from a number but the place where it stands: the caller decides which
// translator reads it.

#include "src/expr/strings.h"

#include "src/expr/expressions.h"
#include "src/expr/number-text.h"
#include "src/expr/variables.h"
#include "src/lex/characters.h"

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

/// name ( string )
bool translateCaseCall(ConversionContext& context, TokenCursor& cursor, std::string_view call,
                       ExpressionText& out) {
    const OpenConstruct arguments(context);
    cursor.advance();
    out += call;
    if (!arguments || !expectToken(context, cursor, TokenType::LEFT_PAREN) ||
        !translateStringExpression(context, cursor, out) ||
        !expectToken(context, cursor, TokenType::RIGHT_PAREN)) {
        return false;
    }
    out += ')';
    return true;
}

/// STRMID ( string , first , last )
/// StringSubstring(string, first, last - first), the count a placeholder unless both are constants
bool translateStrmid(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    const OpenConstruct arguments(context);
    cursor.advance();
    out += "StringSubstring(";
    ExpressionText first;
    ExpressionText last;
    if (!arguments || !expectToken(context, cursor, TokenType::LEFT_PAREN) ||
        !translateStringExpression(context, cursor, out) ||
        !expectToken(context, cursor, TokenType::COMMA) ||
        !translateExpression(context, cursor, first) ||
        !expectToken(context, cursor, TokenType::COMMA) ||
        !translateExpression(context, cursor, last) ||
        !expectToken(context, cursor, TokenType::RIGHT_PAREN)) {
        return false;
    }
    out += ", " + first + ", ";
    const auto from = parseIntegerText(first);
    const auto to = parseIntegerText(last);
    if (from && to) {
        out += std::to_string(std::int64_t{*to} - *from);
    } else {
        out += "/* $numCharacters */";
        logConversionMessage(context, Message::StringSubstringPlaceholder);
    }
    out += ')';
    return true;
}

/// DBLTOSTR ( number , decimals )
/// RealToString(number, RealDisplayFormat.Decimal, decimals)
bool translateDbltostr(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    const OpenConstruct arguments(context);
    cursor.advance();
    out += "RealToString(";
    if (!arguments || !expectToken(context, cursor, TokenType::LEFT_PAREN) ||
        !translateExpression(context, cursor, out) ||
        !expectToken(context, cursor, TokenType::COMMA)) {
        return false;
    }
    out += ", RealDisplayFormat.Decimal, ";
    if (!translateExpression(context, cursor, out) ||
        !expectToken(context, cursor, TokenType::RIGHT_PAREN)) {
        return false;
    }
    out += ')';
    return true;
}

/// ( string )
bool translateParenthesised(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    const OpenConstruct parenthesis(context);
    cursor.advance();
    out += '(';
    if (!parenthesis || !translateStringExpression(context, cursor, out) ||
        !expectToken(context, cursor, TokenType::RIGHT_PAREN)) {
        return false;
    }
    out += ')';
    return true;
}

/// $STRGLOBn, $STRGLOB[n]
bool translateGlobalString(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    const std::string_view digits = trailingDigits(cursor.text());
    cursor.advance();
    out += "$sglobal[";
    const std::size_t indexStart = out.size();
    if (!translateIndex(context, cursor, digits, out)) {
        return false;
    }
    if (out.size() == indexStart) {
        return logConversionMessage(context, Message::ArrayExpressionExpected);
    }
    out += ']';
    return true;
}

bool translateTerm(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    switch (cursor.type()) {
        case TokenType::STRING_LITERAL:
            out += '"';
            out += cursor.text();
            out += '"';
            cursor.advance();
            return true;
        case TokenType::STRING_DEFINE:
        case TokenType::GLOBAL_STRING_DEFINE:
            out += cursor.text();
            cursor.advance();
            return true;
        case TokenType::STRGLOB_VARIABLE: return translateGlobalString(context, cursor, out);
        case TokenType::STRTASK_VARIABLE:
            return logConversionMessage(context, Message::StrtaskVariableUnsupported);
        case TokenType::LEFT_PAREN: return translateParenthesised(context, cursor, out);
        case TokenType::STRMID: return translateStrmid(context, cursor, out);
        case TokenType::DBLTOSTR: return translateDbltostr(context, cursor, out);
        case TokenType::STRUPR:
            return translateCaseCall(context, cursor, "StringToUpperCase(", out);
        case TokenType::STRLWR:
            return translateCaseCall(context, cursor, "StringToLowerCase(", out);
        case TokenType::AXISNAMEOF:
            return logConversionMessage(context, Message::AxisnameofUnsupported);
        default: return reportUnexpectedToken(context, cursor, stringTerms);
    }
}

}  // namespace

bool isStringTerm(TokenType type) {
    return isOneOf(type, stringTerms);
}

bool beginsString(TokenCursor cursor) {
    while (acceptToken(cursor, TokenType::LEFT_PAREN)) {
    }
    return isStringTerm(cursor.type());
}

bool translateStringExpression(ConversionContext& context, TokenCursor& cursor,
                               ExpressionText& out) {
    if (!translateTerm(context, cursor, out)) {
        return false;
    }
    while (acceptToken(cursor, TokenType::PLUS)) {
        if (isNumericVariable(cursor.type())) {
            return logConversionMessage(context, Message::StringAndNumberJoined);
        }
        if (!isOneOf(cursor.type(), TokenTypes(stringTerms).first(joinableTerms))) {
            return reportUnexpectedToken(context, cursor);
        }
        out += " + ";
        if (!translateTerm(context, cursor, out)) {
            return false;
        }
    }
    return true;
}

bool translateStringOperand(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    switch (cursor.type()) {
        case TokenType::END_OF_FILE: return logConversionMessage(context, Message::StringExpected);
        case TokenType::STRING_LITERAL:
        case TokenType::STRING_DEFINE: return translateTerm(context, cursor, out);
        default: return translateStringExpression(context, cursor, out);
    }
}

}  // namespace torvel
