#include "src/expr/axis-lists.h"
#include "src/stmt/routines.h"

namespace torvel {

/// AUTOFOCUS axes [,] ON | OFF
/// AutofocusOn(axis) | AutofocusOff(axis), a call for each axis
void convertAutofocus(Statement& statement) {
    statement.cursor.advance();
    const std::vector<ExpressionText> axes = translateAxes(statement);
    acceptToken(statement, TokenType::COMMA);
    const bool isOn = statement.cursor.is(TokenType::ON);
    expectToken(statement, {TokenType::ON, TokenType::OFF});
    for (const ExpressionText& axis : axes) {
        statement.text += &axis == &axes.front() ? "" : "\n";
        statement.text += isOn ? "AutofocusOn(" : "AutofocusOff(";
        statement.text += axis;
        statement.text += ')';
    }
}

}  // namespace torvel
