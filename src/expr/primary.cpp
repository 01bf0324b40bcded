// The operands of expressions.

#include "src/expr/expressions.h"
#include "src/expr/functions.h"
#include "src/expr/variables.h"

namespace torvel {

namespace {

constexpr TokenType numericLiterals[] = {
    TokenType::INTEGER_LITERAL, TokenType::HEX_LITERAL, TokenType::FLOAT_LITERAL,
    TokenType::NUMBER_DEFINE,   TokenType::DOT,         TokenType::TRUE,
    TokenType::FALSE,
};

/// A variable. "++" and "--" behind it can no longer stand in an expression.
bool translateVariableOperand(ConversionContext& context, TokenCursor& cursor,
                              ExpressionText& out) {
    if (!translateVariableRead(context, cursor, out)) {
        return false;
    }
    switch (cursor.type()) {
        case TokenType::PLUS_PLUS:
            return logConversionMessage(context, Message::IncrementInExpression);
        case TokenType::MINUS_MINUS:
            return logConversionMessage(context, Message::DecrementInExpression);
        default: return true;
    }
}

/// ( expression ): a number loses its parentheses.
bool translateParenthesised(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    const OpenConstruct parenthesis(context);
    if (!parenthesis) {
        return false;
    }
    cursor.advance();
    const std::size_t start = out.size();
    out += '(';
    if (!translateExpression(context, cursor, out)) {
        return false;
    }
    const bool isNumber = isNumberText(cursor, std::string_view(out).substr(start + 1));
    if (!expectToken(context, cursor, TokenType::RIGHT_PAREN)) {
        return false;
    }
    if (isNumber) {
        out.erase(start, 1);
    } else {
        out += ')';
    }
    return true;
}

}  // namespace

bool translateNumericLiteral(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    switch (cursor.type()) {
        case TokenType::INTEGER_LITERAL:
        case TokenType::HEX_LITERAL:
        case TokenType::FLOAT_LITERAL: out += cursor.text(); break;
        case TokenType::NUMBER_DEFINE: out += cursor.value(); break;
        case TokenType::TRUE: out += "true"; break;
        case TokenType::FALSE: out += "false"; break;
        case TokenType::DOT: {
            cursor.advance();
            const auto digits = expectToken(context, cursor, TokenType::INTEGER_LITERAL);
            if (!digits) {
                return false;
            }
            out += '.';
            out += *digits;
            return true;
        }
        default: return reportUnexpectedToken(context, cursor, numericLiterals);
    }
    cursor.advance();
    return true;
}

bool translatePrimary(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    if (cursor.atEnd()) {
        return logConversionMessage(context, Message::NumericExpressionExpected);
    }
    switch (cursor.type()) {
        case TokenType::INTEGER_LITERAL:
        case TokenType::HEX_LITERAL:
        case TokenType::FLOAT_LITERAL:
        case TokenType::NUMBER_DEFINE:
        case TokenType::DOT:
        case TokenType::TRUE:
        case TokenType::FALSE: return translateNumericLiteral(context, cursor, out);
        case TokenType::LEFT_PAREN: return translateParenthesised(context, cursor, out);
        default: break;
    }
    return isNumericVariable(cursor.type()) ? translateVariableOperand(context, cursor, out)
                                            : translateFunction(context, cursor, out);
}

}  // namespace torvel
