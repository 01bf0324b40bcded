#include "src/stmt/drive.h"

#include <vector>

#include "src/expr/axis-lists.h"
#include "src/expr/expressions.h"
#include "src/expr/number-text.h"
#include "src/expr/variables.h"
#include "src/stmt/axis-words.h"
#include "src/stmt/forms.h"

namespace torvel {

namespace {

/// "[" number "]" of an axis parameter, which gives its name
bool readParameterName(Statement& statement, std::string& name) {
    if (!expect(statement, TokenType::AXIS_PARAMETER) ||
        !expect(statement, TokenType::LEFT_BRACKET)) {
        return false;
    }
    const auto number =
        expectToken(statement.context, statement.cursor, TokenType::INTEGER_LITERAL);
    if (!number) {
        return false;
    }
    const std::optional<std::int32_t> value = parseIntegerText(*number);
    if (!value) {
        return refuse(statement, Message::IntegerLiteralExpected);
    }
    return translateItem(statement.context, ItemTable::axisParameter, *value, name) &&
           expect(statement, TokenType::RIGHT_BRACKET);
}

}  // namespace

/// SETPARM axes [,] parameter [,] value
/// ParameterSetAxisValue(axis, parameter, value), a call for each axis
bool convertSetparm(Statement& statement) {
    statement.cursor.advance();
    std::vector<std::string> axes;
    if (!translateAxes(statement.context, statement.cursor, axes)) {
        return false;
    }
    accept(statement, TokenType::COMMA);
    std::string name;
    if (!readParameterName(statement, name)) {
        return false;
    }
    accept(statement, TokenType::COMMA);
    std::string value;
    if (!readOperand(statement, 'v', value)) {
        return false;
    }
    const std::string arguments = ", " + name + ", " + value + ")";
    for (const std::string& axis : axes) {
        statement.text += &axis == &axes.front() ? "" : "\n";
        statement.text += "ParameterSetAxisValue(";
        statement.text += axis;
        statement.text += arguments;
    }
    return true;
}

/// BRAKE axis [,] constant
/// DriveBrakeOn(axis), DriveBrakeOff(axis)
bool convertBrake(Statement& statement) {
    statement.cursor.advance();
    std::string axis;
    std::string value;
    if (!readOperand(statement, 'a', axis)) {
        return false;
    }
    accept(statement, TokenType::COMMA);
    if (!readOperand(statement, 'v', value)) {
        return false;
    }
    const std::optional<std::int32_t> on = parseIntegerText(value);
    if (!on) {
        return refuse(statement, Message::BrakeValueUnknown);
    }
    statement.text += *on != 0 ? "DriveBrakeOn(" : "DriveBrakeOff(";
    statement.text += axis + ")";
    return true;
}

/// AUTOFOCUS axes [,] ON | OFF
/// AutofocusOn(axis) | AutofocusOff(axis), a call for each axis
bool convertAutofocus(Statement& statement) {
    statement.cursor.advance();
    std::vector<std::string> axes;
    if (!translateAxes(statement.context, statement.cursor, axes)) {
        return false;
    }
    accept(statement, TokenType::COMMA);
    const bool isOn = statement.cursor.is(TokenType::ON);
    if (!expectToken(statement.context, statement.cursor, {TokenType::ON, TokenType::OFF})) {
        return false;
    }
    for (const std::string& axis : axes) {
        statement.text += &axis == &axes.front() ? "" : "\n";
        statement.text += (isOn ? "AutofocusOn(" : "AutofocusOff(") + axis + ")";
    }
    return true;
}

namespace {

/// AXISGROUP NONE | axes
/// JoystickAxisGroupRemoveAll() | JoystickAxisGroupAdd([axes], [inputs])
bool writeJoystickAxes(Statement& statement) {
    if (accept(statement, TokenType::NONE)) {
        statement.text += "JoystickAxisGroupRemoveAll()";
        return true;
    }
    std::vector<std::string> axes;
    if (!translateAxisList(statement.context, statement.cursor, AxisDemand::anyNumber, axes)) {
        return false;
    }
    static const std::vector<std::string> inputs = {"JoystickInput.Input0", "JoystickInput.Input1",
                                                    "JoystickInput.Input2"};
    if (axes.empty() || axes.size() > inputs.size()) {
        return refuse(statement, Message::OneToThreeAxesExpected);
    }
    statement.text += "JoystickAxisGroupAdd(";
    formatList(axes, false, statement.text);
    statement.text += ", ";
    formatList(std::span(inputs).first(axes.size()), false, statement.text);
    statement.text += ')';
    return true;
}

}  // namespace

/// JOYSTICK [RUN]               JoystickRun()
/// JOYSTICK AXISGROUP ...
bool convertJoystick(Statement& statement) {
    statement.cursor.advance();
    const bool isGroup = statement.cursor.is(TokenType::AXISGROUP);
    if (!statement.cursor.atEnd() &&
        !expectToken(statement.context, statement.cursor, {TokenType::RUN, TokenType::AXISGROUP})) {
        return false;
    }
    if (isGroup) {
        return writeJoystickAxes(statement);
    }
    statement.text += "JoystickRun()";
    return true;
}

/// GEAR axis ON [FILTERED]
/// GearingOn(axis, GearingFilter.None | Filtered)
bool convertGearOn(Statement& statement, std::string_view lead) {
    return writeForm(statement, "",
                     accept(statement, TokenType::FILTERED)
                         ? "GearingOn({}, GearingFilter.Filtered)"
                         : "GearingOn({}, GearingFilter.None)",
                     lead);
}

/// GEAR axis MASTERCONFIG master, source
/// GearingSetMasterAxis(axis, master, source)
bool convertGearMaster(Statement& statement, std::string_view lead) {
    static constexpr std::string_view sources[] = {"GearingSource.PositionFeedback",
                                                   "GearingSource.PositionCommand",
                                                   "GearingSource.AuxiliaryFeedback"};
    std::string source;
    if (!writeForm(statement, "v,", "GearingSetMasterAxis({}, {}, ", lead) ||
        !readOperand(statement, 'v', source)) {
        return false;
    }
    const std::optional<std::int32_t> number = parseIntegerText(source);
    const bool isKnown =
        number && *number >= 0 && static_cast<std::size_t>(*number) < std::size(sources);
    statement.text += isKnown ? sources[static_cast<std::size_t>(*number)] : "/* $gearingSource */";
    statement.text += ')';
    if (!isKnown) {
        advise(statement, Message::GearingSetMasterAxisPlaceholder);
    }
    return true;
}

/// ARRAY axis READ [FAST] variable [,] start [,] count
/// DriveArrayRead | DriveArrayReadFast(axis, variable, start, count)
bool convertArrayRead(Statement& statement, std::string_view lead) {
    return writeForm(statement, "r;v;v",
                     accept(statement, TokenType::FAST) ? "DriveArrayReadFast({}, {}, {}, {})"
                                                        : "DriveArrayRead({}, {}, {}, {})",
                     lead);
}

/// POSOFFSET SET {axis value}
/// PositionOffsetSet([axes], [values])
bool convertPositionOffset(Statement& statement, std::string_view) {
    std::vector<AxisWord> points;
    if (statement.cursor.atEnd()) {
        return refuse(statement, Message::AxisPointOrWordExpected);
    }
    if (!readAxisPoints(statement.context, statement.cursor, points)) {
        return false;
    }
    std::vector<std::string> axes;
    std::vector<std::string> values;
    for (const AxisWord& point : points) {
        if (!point.isAxis) {
            return refuse(statement, Message::AxisPointExpected);
        }
        axes.push_back(point.name);
        values.push_back(point.value);
    }
    statement.text += "PositionOffsetSet(";
    formatList(axes, false, statement.text);
    statement.text += ", ";
    formatList(values, false, statement.text);
    statement.text += ')';
    return true;
}

}  // namespace torvel
