// The operands of expressions.

#include "src/expr/expressions.h"
#include "src/expr/functions.h"
#include "src/expr/number-checks.h"
#include "src/expr/variables.h"
#include "src/lex/lexer.h"

namespace torvel {

namespace {

constexpr TokenType numericLiterals[] = {
    TokenType::INTEGER_LITERAL, TokenType::HEX_LITERAL, TokenType::FLOAT_LITERAL,
    TokenType::NUMBER_DEFINE,   TokenType::DOT,         TokenType::TRUE,
    TokenType::FALSE,
};

/// A variable. "++" and "--" behind it can no longer stand in an expression.
void translateVariableOperand(Statement& statement, ExpressionText& out) {
    translateVariableRead(statement, out);
    if (statement.cursor.is(TokenType::PLUS_PLUS)) {
        refuse(statement, Message::IncrementInExpression);
    } else if (statement.cursor.is(TokenType::MINUS_MINUS)) {
        refuse(statement, Message::DecrementInExpression);
    }
}

/// ( expression ): a number loses its parentheses.
Precedence translateParenthesised(Statement& statement, ExpressionText& out) {
    const OpenConstruct parenthesis(statement);
    statement.cursor.advance();
    const std::size_t start = out.size();
    out += '(';
    translateExpression(statement, out);
    const bool isNumber = isNumberText(statement.cursor, std::string_view(out).substr(start + 1));
    expectToken(statement, TokenType::RIGHT_PAREN);
    if (!isNumber) {
        out += ')';
        return Precedence::primary;
    }
    out.erase(start);
    return out[start] == '-' ? Precedence::unary : Precedence::primary;
}

/// What a printed number that needs a check says.
void recordNumber(Statement& statement) {
    const TokenCursor& cursor = statement.cursor;
    if (cursor.is(TokenType::NUMBER_DEFINE)) {
        noteValueUse(statement);
    }
    checkPrintedNumber(statement);
}

void writeNumericLiteral(Statement& statement, ExpressionText& out) {
    TokenCursor& cursor = statement.cursor;
    switch (cursor.type()) {
        case TokenType::INTEGER_LITERAL:
        case TokenType::FLOAT_LITERAL: writeToken(statement, out); return;
        case TokenType::HEX_LITERAL: appendTokenText(cursor.type(), cursor.text(), out); break;
        case TokenType::NUMBER_DEFINE: out += cursor.value(); break;
        case TokenType::TRUE: out += "true"; break;
        case TokenType::FALSE: out += "false"; break;
        case TokenType::DOT:
            cursor.advance();
            out += '.';
            out += expectToken(statement, TokenType::INTEGER_LITERAL);
            return;
        default: reportUnexpectedToken(statement, numericLiterals); return;
    }
    cursor.advance();
}

}  // namespace

void translateNumericLiteral(Statement& statement, ExpressionText& out) {
    if (needsNumberCheck(statement)) [[unlikely]] {
        recordNumber(statement);
    }
    writeNumericLiteral(statement, out);
}

Precedence translatePrimary(Statement& statement, ExpressionText& out) {
    switch (statement.cursor.type()) {
        case TokenType::END_OF_FILE:
            refuse(statement, Message::NumericExpressionExpected);
            return Precedence::primary;
        case TokenType::INTEGER_LITERAL:
        case TokenType::HEX_LITERAL:
        case TokenType::FLOAT_LITERAL:
        case TokenType::NUMBER_DEFINE:
        case TokenType::DOT:
        case TokenType::TRUE:
        case TokenType::FALSE: translateNumericLiteral(statement, out); return Precedence::primary;
        case TokenType::LEFT_PAREN: return translateParenthesised(statement, out);
        default: break;
    }
    if (isNumericVariable(statement.cursor.type())) {
        translateVariableOperand(statement, out);
        return Precedence::primary;
    }
    return translateFunction(statement, out);
}

}  // namespace torvel
