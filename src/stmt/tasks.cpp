#include "src/stmt/tasks.h"

#include <vector>

#include "src/expr/axis-lists.h"
#include "src/expr/number-text.h"
#include "src/stmt/forms.h"

namespace torvel {

/// CRITICAL START [value]
/// CriticalSectionStart(value)
bool convertCriticalStart(Statement& statement, std::string_view) {
    return statement.cursor.atEnd() ? writeForm(statement, "", "CriticalSectionStart()")
                                    : writeForm(statement, "v", "CriticalSectionStart({})");
}

namespace {

/// [task [,]] value
/// call(task, value)
bool convertOverride(Statement& statement, std::string_view call) {
    statement.cursor.advance();
    std::string first;
    if (!readOperand(statement, 'v', first)) {
        return false;
    }
    statement.text += call;
    if (statement.cursor.atEnd()) {
        statement.text += "TaskGetIndex(), " + first + ")";
        return true;
    }
    statement.text += first;
    return writeForm(statement, ";v", ", {})");
}

/// [task ,] code , location
/// call(task, code, location)
bool convertRaise(Statement& statement, std::string_view call) {
    statement.cursor.advance();
    std::string operands;
    if (!readOperand(statement, 'v', operands) || !expect(statement, TokenType::COMMA)) {
        return false;
    }
    operands += ", ";
    if (!readOperand(statement, 'v', operands)) {
        return false;
    }
    statement.text += call;
    if (accept(statement, TokenType::COMMA)) {
        operands += ", ";
        if (!readOperand(statement, 'v', operands)) {
            return false;
        }
    } else {
        statement.text += "TaskGetIndex(), ";
    }
    statement.text += operands + ")";
    advise(statement, Message::ErrorCodesDiffer);
    return true;
}

}  // namespace

/// MFO [task [,]] value
/// TaskMfo(task, value)
bool convertMfo(Statement& statement) {
    return convertOverride(statement, "TaskMfo(");
}

/// MSO [task [,]] value
/// TaskMso(task, value)
bool convertMso(Statement& statement) {
    return convertOverride(statement, "TaskMso(");
}

/// TASKERROR [task ,] code , location
/// TaskSetError(task, code, location)
bool convertTaskError(Statement& statement) {
    return convertRaise(statement, "TaskSetError(");
}

/// TASKWARNING [task ,] code , location
/// TaskSetWarning(task, code, location)
bool convertTaskWarning(Statement& statement) {
    return convertRaise(statement, "TaskSetWarning(");
}

namespace {

/// MODE value {, value}: the last value is the mode, a constant
/// ThermoCompConfigureMode(values, mode)
bool writeThermocompMode(Statement& statement) {
    std::string mode;
    statement.text += "ThermoCompConfigureMode(";
    if (!readOperand(statement, 'v', mode)) {
        return false;
    }
    while (accept(statement, TokenType::COMMA)) {
        statement.text += mode + ", ";
        mode.clear();
        if (!readOperand(statement, 'v', mode)) {
            return false;
        }
    }
    const std::optional<std::int32_t> number = parseIntegerText(mode);
    if (!number) {
        return refuse(statement, Message::ThermocompModeExpected);
    }
    if (*number != 0 && *number != 1) {
        return refuse(statement, Message::ThermocompModeUnknown);
    }
    statement.text +=
        *number == 0 ? "ThermoCompMode.LinearStage)" : "ThermoCompMode.BallScrewStage)";
    return true;
}

}  // namespace

/// THERMOCOMP CONFIG RESET                          ThermoCompReset()
/// THERMOCOMP CONFIG VALUES a , b , c , v {, v}     ThermoCompSetValues(a, b, c, [v])
/// THERMOCOMP CONFIG UPDATEINTERVAL a , b           ThermoCompUpdateInterval(a, b)
/// THERMOCOMP CONFIG MODE ...
bool convertThermocompConfig(Statement& statement, std::string_view) {
    const TokenType word = statement.cursor.type();
    if (!expectToken(
            statement.context, statement.cursor,
            {TokenType::RESET, TokenType::VALUES, TokenType::UPDATEINTERVAL, TokenType::MODE})) {
        return false;
    }
    switch (word) {
        case TokenType::RESET: return writeForm(statement, "", "ThermoCompReset()");
        case TokenType::VALUES:
            return writeForm(statement, "v,v,v,V", "ThermoCompSetValues({}, {}, {}, [{}])");
        case TokenType::UPDATEINTERVAL:
            return writeForm(statement, "v,v", "ThermoCompUpdateInterval({}, {})");
        default: return writeThermocompMode(statement);
    }
}

/// THERMOCOMP UPDATE ONCE | RESUME | PAUSE
/// ThermoCompUpdateOnce() | ThermoCompUpdateResume() | ThermoCompUpdatePause()
bool convertThermocompUpdate(Statement& statement, std::string_view) {
    const TokenType word = statement.cursor.type();
    if (!expectToken(statement.context, statement.cursor,
                     {TokenType::ONCE, TokenType::RESUME, TokenType::PAUSE})) {
        return false;
    }
    statement.text += word == TokenType::ONCE     ? "ThermoCompUpdateOnce()"
                      : word == TokenType::RESUME ? "ThermoCompUpdateResume()"
                                                  : "ThermoCompUpdatePause()";
    return true;
}

/// SAFEZONE zone TYPE constant
/// SafeZoneSetType(zone, type)
bool convertSafezoneType(Statement& statement, std::string_view lead) {
    static constexpr std::string_view types[] = {"SafeZoneType.NoEnter", "SafeZoneType.NoExit",
                                                 "SafeZoneType.NoEnterAxisFault",
                                                 "SafeZoneType.NoExitAxisFault"};
    std::string text;
    if (!readOperand(statement, 'v', text)) {
        return false;
    }
    const std::optional<std::int32_t> number = parseIntegerText(text);
    if (!number) {
        return refuse(statement, Message::SafezoneTypeUndetermined);
    }
    if (*number < 0 || static_cast<std::size_t>(*number) >= std::size(types)) {
        return refuse(statement, Message::SafezoneTypeUnknown);
    }
    statement.text += "SafeZoneSetType(";
    statement.text += lead;
    statement.text += ", ";
    statement.text += types[static_cast<std::size_t>(*number)];
    statement.text += ')';
    return true;
}

/// NORMALCY ON LEFT | RIGHT | RELATIVE
/// NormalcyOn(NormalcyAlignment.Left | Right | Relative)
bool convertNormalcyOn(Statement& statement, std::string_view) {
    const TokenType side = statement.cursor.type();
    if (!expectToken(statement.context, statement.cursor,
                     {TokenType::LEFT, TokenType::RIGHT, TokenType::RELATIVE})) {
        return false;
    }
    statement.text += "NormalcyOn(NormalcyAlignment.";
    statement.text += side == TokenType::LEFT    ? "Left)"
                      : side == TokenType::RIGHT ? "Right)"
                                                 : "Relative)";
    return true;
}

/// NORMALCY AXES axis axis
/// NormalcySetAxes(axis, axis)
bool convertNormalcyAxes(Statement& statement, std::string_view) {
    std::vector<std::string> axes;
    if (!translateAxisList(statement.context, statement.cursor, AxisDemand::anyNumber, axes)) {
        return false;
    }
    if (axes.size() != 2) {
        return refuse(statement, Message::TwoAxesExpected);
    }
    statement.text += "NormalcySetAxes(" + axes[0] + ", " + axes[1] + ")";
    return true;
}

}  // namespace torvel
