#include "src/expr/axis-lists.h"
#include "src/stmt/routines.h"

namespace torvel {

namespace {

constexpr std::string_view joystickInputs[] = {"JoystickInput.Input0", "JoystickInput.Input1",
                                               "JoystickInput.Input2"};

/// AXISGROUP NONE | axes
/// JoystickAxisGroupRemoveAll() | JoystickAxisGroupAdd([axes], [inputs])
void writeJoystickAxes(Statement& statement) {
    if (acceptToken(statement, TokenType::NONE)) {
        statement.text += "JoystickAxisGroupRemoveAll()";
        return;
    }
    const TextList axes = translateAxisList(statement);
    if (axes.empty() || axes.size() > std::size(joystickInputs)) {
        refuse(statement, Message::OneToThreeAxesExpected);
        return;
    }
    TextList inputs;
    while (inputs.size() < axes.size()) {
        inputs.add(joystickInputs[inputs.size()]);
    }
    statement.text += "JoystickAxisGroupAdd(";
    formatList(axes, false, statement.text);
    statement.text += ", ";
    formatList(inputs, false, statement.text);
    statement.text += ')';
}

}  // namespace

/// JOYSTICK [RUN]               JoystickRun()
/// JOYSTICK AXISGROUP ...
void convertJoystick(Statement& statement) {
    statement.cursor.advance();
    if (acceptToken(statement, TokenType::AXISGROUP)) {
        writeJoystickAxes(statement);
        return;
    }
    if (!statement.cursor.atEnd()) {
        expectToken(statement, {TokenType::RUN, TokenType::AXISGROUP});
    }
    statement.text += "JoystickRun()";
}

}  // namespace torvel
