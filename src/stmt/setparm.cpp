#include "src/expr/axis-lists.h"
#include "src/expr/expressions.h"
#include "src/expr/number-checks.h"
#include "src/expr/number-text.h"
#include "src/expr/variables.h"
#include "src/stmt/routines.h"

namespace torvel {

namespace {

/// "[" number "]" of an axis parameter, which gives its name
void translateParameterName(Statement& statement, ExpressionText& name) {
    const Token* const first = statement.cursor.place();
    expectToken(statement, TokenType::AXIS_PARAMETER);
    expectToken(statement, TokenType::LEFT_BRACKET);
    const std::string_view literal = expectToken(statement, TokenType::INTEGER_LITERAL);
    if (const std::optional<std::int32_t> number = parseIntegerText(literal)) {
        translateItem(statement, ItemTable::axisParameter, *number, first, name);
    } else {
        refuse(statement, Message::IntegerLiteralExpected);
    }
    expectToken(statement, TokenType::RIGHT_BRACKET);
    checkItemNumber(statement, ItemTable::axisParameter, literal, first);
}

}  // namespace

/// SETPARM axes [,] parameter [,] value
/// ParameterSetAxisValue(axis, parameter, value), a call for each axis
void convertSetparm(Statement& statement) {
    statement.cursor.advance();
    const TextList axes = translateAxes(statement);
    acceptToken(statement, TokenType::COMMA);
    ExpressionText arguments(", ");
    translateParameterName(statement, arguments);
    acceptToken(statement, TokenType::COMMA);
    arguments += ", ";
    const Token* const value = statement.cursor.place();
    translateExpression(statement, arguments);
    checkJoinedBySign(statement, value);
    for (std::size_t i = 0; i < axes.size(); ++i) {
        statement.text += i == 0 ? "" : "\n";
        statement.text += "ParameterSetAxisValue(";
        statement.text += axes[i];
        statement.text += arguments;
        statement.text += ')';
    }
}

}  // namespace torvel
