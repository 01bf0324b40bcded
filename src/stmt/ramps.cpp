// A RAMP statement sets one property of a ramp, for acceleration, deceleration or both, where Torvel's
// calls set them all. What the statement does not say is a placeholder in the call, and a message
// tells that the call must be completed.

#include <vector>

#include "src/expr/axis-lists.h"
#include "src/expr/expressions.h"
#include "src/expr/form.h"
#include "src/expr/named-operands.h"
#include "src/stmt/axis-words.h"
#include "src/stmt/routines.h"

namespace torvel {

namespace {

enum class RampSide : std::uint8_t { both, acceleration, deceleration };

/// [ACCEL | DECEL]
RampSide readSide(Statement& statement) {
    if (acceptToken(statement, TokenType::ACCEL)) {
        return RampSide::acceleration;
    }
    return acceptToken(statement, TokenType::DECEL) ? RampSide::deceleration : RampSide::both;
}

/// [axes], in brackets if there are several; empty if there are none.
ExpressionText readRampAxes(Statement& statement) {
    const TextList list = translateAxisList(statement);
    ExpressionText axes;
    if (!list.empty()) {
        formatList(list, true, axes);
    }
    return axes;
}

/// The calls that set a property for the task's coordinated motion and for axes.
struct RampCall {
    std::string_view coordinated;
    Message coordinatedPlaceholder;
    std::string_view axis;
    Message axisPlaceholder;
};

constexpr RampCall rampValue = {"SetupCoordinatedRampValue(",
                                Message::SetupCoordinatedRampValuePlaceholder,
                                "SetupAxisRampValue(", Message::SetupAxisRampValuePlaceholder};
constexpr RampCall rampType = {"SetupCoordinatedRampType(",
                               Message::SetupCoordinatedRampTypePlaceholder, "SetupAxisRampType(",
                               Message::SetupAxisRampTypePlaceholder};

/// The call for `axes`, or for the coordinated motion if that is empty.
void writeCall(Statement& statement, const RampCall& call, std::string_view axes,
               std::string_view arguments) {
    statement.text += axes.empty() ? call.coordinated : call.axis;
    if (!axes.empty()) {
        statement.text += axes;
        statement.text += ", ";
    }
    statement.text += arguments;
    statement.text += ')';
}

void advisePlaceholder(Statement& statement, const RampCall& call, bool forAxes) {
    logConversionMessage(statement, forAxes ? call.axisPlaceholder : call.coordinatedPlaceholder);
}

}  // namespace

/// RAMP MODE RATE | TIME [ACCEL | DECEL] [axes]
void convertRampMode(Statement& statement, std::string_view) {
    ExpressionText mode;
    translateNamedOperand(statement, OperandSet::rampMode, Presence::required, mode);
    const RampSide side = readSide(statement);
    const ExpressionText axes = readRampAxes(statement);
    ExpressionText arguments;
    switch (side) {
        case RampSide::both: arguments = mode + ", /* $rampValue */"; break;
        case RampSide::acceleration:
            arguments =
                mode + ", /* $rampValueAccel */, /* $rampModeDecel */, /* $rampValueDecel */";
            break;
        case RampSide::deceleration:
            arguments =
                "/* $rampModeAccel */, /* $rampValueAccel */, " + mode + ", /* $rampValueDecel */";
            break;
    }
    writeCall(statement, rampValue, axes, arguments);
    advisePlaceholder(statement, rampValue, !axes.empty());
}

namespace {

/// The arguments behind the axis, or those of the coordinated call, for one value.
ExpressionText rampArguments(RampSide side, std::string_view mode, std::string_view value,
                             bool forAxis) {
    ExpressionText given(mode);
    given += ", ";
    given += value;
    switch (side) {
        case RampSide::acceleration: return given + ", /* $rampModeDecel */, /* $rampValueDecel */";
        case RampSide::deceleration: return "/* $rampModeAccel */, /* $rampValueAccel */, " + given;
        default: return forAxis ? given : ExpressionText(value);
    }
}

/// {axis value}: a call for each axis, one a line
void writeAxisRamps(Statement& statement, RampSide side, std::string_view mode) {
    std::string_view separator;
    visitAxisPoints(statement, [&](std::string_view axis, std::string_view value) {
        statement.text += separator;
        separator = "\n";
        writeCall(statement, rampValue, axis, rampArguments(side, mode, value, true));
    });
}

/// RAMP TIME | RATE [ACCEL | DECEL] value
/// RAMP TIME | RATE [ACCEL | DECEL] {axis value}
void convertRampValue(Statement& statement, std::string_view mode) {
    const RampSide side = readSide(statement);
    const TokenType type = statement.cursor.type();
    if (statement.cursor.atEnd()) {
        reportUnexpectedToken(statement);
    } else if (type == TokenType::APTGLOB_VARIABLE || type == TokenType::APTTASK_VARIABLE) {
        refuse(statement, Message::AxisPointUnsupported);
    }
    const bool forAxes = isAxis(type);
    if (forAxes) {
        writeAxisRamps(statement, side, mode);
    } else {
        const Token* const first = statement.cursor.place();
        ExpressionText value;
        translateExpression(statement, value);
        if (side == RampSide::both) {
            noteCheck(statement, Check::RampUnit, first - 2);
        }
        writeCall(statement, rampValue, {}, rampArguments(side, mode, value, false));
    }
    if (side != RampSide::both) {
        advisePlaceholder(statement, rampValue, forAxes);
    }
}

constexpr Form dependentAcceleration =
    makeForm("", "value", "SetupDependentCoordinatedRampRate({}, /* $rampValueDecel */)");
constexpr Form dependentDeceleration =
    makeForm("", "value", "SetupDependentCoordinatedRampRate(/* $rampValueAccel */, {})");

/// RAMP RATE DEPENDENT ACCEL | DECEL value
void convertDependentRate(Statement& statement) {
    const bool isAcceleration = statement.cursor.is(TokenType::ACCEL);
    expectToken(statement, {TokenType::ACCEL, TokenType::DECEL});
    writeForm(statement, isAcceleration ? dependentAcceleration : dependentDeceleration,
              statement.text);
    logConversionMessage(statement, Message::SetupDependentCoordinatedRampRatePlaceholder);
}

}  // namespace

void convertRampRate(Statement& statement, std::string_view) {
    if (acceptToken(statement, TokenType::DEPENDENT)) {
        convertDependentRate(statement);
    } else {
        convertRampValue(statement, "RampMode.Rate");
    }
}

void convertRampTime(Statement& statement, std::string_view) {
    convertRampValue(statement, "RampMode.Time");
}

namespace {

/// [ACCEL | DECEL] [axes] for the types that need no argument. Only the plain coordinated linear form
/// goes without a message; the sine form, which is as complete, has one on purpose.
void writeSimpleRampType(Statement& statement, bool isLinear) {
    const ExpressionText type(isLinear ? "RampType.Linear" : "RampType.Sine");
    const RampSide side = readSide(statement);
    const ExpressionText axes = readRampAxes(statement);
    ExpressionText arguments;
    switch (side) {
        case RampSide::both: arguments = axes.empty() ? type + ", 0" : type; break;
        case RampSide::acceleration:
            arguments = type + ", 0, /* $rampTypeDecel */, /* $rampTypeArgDecel */";
            break;
        case RampSide::deceleration:
            arguments = "/* $rampTypeAccel */, /* $rampTypeArgAccel */, " + type + ", 0";
            break;
    }
    writeCall(statement, rampType, axes, arguments);
    if (!isLinear || side != RampSide::both || !axes.empty()) {
        advisePlaceholder(statement, rampType, !axes.empty());
    }
}

/// [ACCEL | DECEL]: the percentage is never given.
void writeScurveRampType(Statement& statement) {
    std::string_view arguments;
    switch (readSide(statement)) {
        case RampSide::both: arguments = "RampType.SCurve, /* $rampTypeArg */"; break;
        case RampSide::acceleration:
            arguments =
                "RampType.SCurve, /* $rampTypeArgAccel */, /* $rampTypeDecel */, "
                "/* $rampTypeArgDecel */";
            break;
        case RampSide::deceleration:
            arguments =
                "/* $rampTypeAccel */, /* $rampTypeArgAccel */, RampType.SCurve, "
                "/* $rampTypeArgDecel */";
            break;
    }
    writeCall(statement, rampType, {}, arguments);
    advisePlaceholder(statement, rampType, false);
}

}  // namespace

/// RAMP TYPE LINEAR | SINE [ACCEL | DECEL] [axes]
/// RAMP TYPE SCURVE [ACCEL | DECEL]
void convertRampType(Statement& statement, std::string_view) {
    const TokenType type = statement.cursor.type();
    expectToken(statement, {TokenType::LINEAR, TokenType::SINE, TokenType::SCURVE});
    if (type == TokenType::SCURVE) {
        writeScurveRampType(statement);
    } else {
        writeSimpleRampType(statement, type == TokenType::LINEAR);
    }
}

}  // namespace torvel
