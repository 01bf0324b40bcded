#include "src/expr/axis-lists.h"
#include "src/stmt/routines.h"

namespace torvel {

/// AUTOFOCUS axes [,] ON | OFF
/// AutofocusOn(axis) | AutofocusOff(axis), a call for each axis
void convertAutofocus(Statement& statement) {
    statement.cursor.advance();
    const TextList axes = translateAxes(statement);
    acceptToken(statement, TokenType::COMMA);
    const bool isOn = statement.cursor.is(TokenType::ON);
    expectToken(statement, {TokenType::ON, TokenType::OFF});
    for (std::size_t i = 0; i < axes.size(); ++i) {
        statement.text += i == 0 ? "" : "\n";
        statement.text += isOn ? "AutofocusOn(" : "AutofocusOff(";
        statement.text += axes[i];
        statement.text += ')';
    }
}

}  // namespace torvel
