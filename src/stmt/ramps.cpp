// A RAMP statement sets one property of a ramp, for acceleration, deceleration or both, where Torvel's
// calls set them all. What the statement does not say is a placeholder in the call, and a message
// tells that the call must be completed.

#include "src/stmt/ramps.h"

#include <vector>

#include "src/expr/axis-lists.h"
#include "src/stmt/axis-words.h"
#include "src/stmt/forms.h"

namespace torvel {

namespace {

enum class RampSide : std::uint8_t { both, acceleration, deceleration };

/// [ACCEL | DECEL]
RampSide readSide(Statement& statement) {
    if (accept(statement, TokenType::ACCEL)) {
        return RampSide::acceleration;
    }
    return accept(statement, TokenType::DECEL) ? RampSide::deceleration : RampSide::both;
}

/// [axes], in brackets if there are several; empty if there are none.
bool readRampAxes(Statement& statement, std::string& axes) {
    std::vector<std::string> list;
    if (!translateAxisList(statement.context, statement.cursor, AxisDemand::anyNumber, list)) {
        return false;
    }
    if (!list.empty()) {
        formatList(list, true, axes);
    }
    return true;
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
    advise(statement, forAxes ? call.axisPlaceholder : call.coordinatedPlaceholder);
}

}  // namespace

/// RAMP MODE RATE | TIME [ACCEL | DECEL] [axes]
bool convertRampMode(Statement& statement, std::string_view) {
    const bool isRate = statement.cursor.is(TokenType::RATE);
    if (!expectToken(statement.context, statement.cursor, {TokenType::RATE, TokenType::TIME})) {
        return false;
    }
    const std::string mode = isRate ? "RampMode.Rate" : "RampMode.Time";
    const RampSide side = readSide(statement);
    std::string axes;
    if (!readRampAxes(statement, axes)) {
        return false;
    }
    std::string arguments;
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
    return true;
}

namespace {

/// The arguments behind the axis, or those of the coordinated call, for one value.
std::string rampArguments(RampSide side, std::string_view mode, std::string_view value,
                          bool forAxis) {
    std::string given(mode);
    given += ", ";
    given += value;
    switch (side) {
        case RampSide::acceleration: return given + ", /* $rampModeDecel */, /* $rampValueDecel */";
        case RampSide::deceleration: return "/* $rampModeAccel */, /* $rampValueAccel */, " + given;
        default: return forAxis ? given : std::string(value);
    }
}

/// {axis value}: a call for each axis, one a line
bool writeAxisRamps(Statement& statement, RampSide side, std::string_view mode) {
    std::vector<AxisWord> points;
    if (!readAxisPoints(statement.context, statement.cursor, points)) {
        return false;
    }
    bool isFirst = true;
    for (const AxisWord& point : points) {
        if (!point.isAxis) {
            return refuse(statement, Message::AxisPointExpected);
        }
        statement.text += isFirst ? "" : "\n";
        isFirst = false;
        writeCall(statement, rampValue, point.name, rampArguments(side, mode, point.value, true));
    }
    return true;
}

/// RAMP TIME | RATE [ACCEL | DECEL] value
/// RAMP TIME | RATE [ACCEL | DECEL] {axis value}
bool convertRampValue(Statement& statement, std::string_view mode) {
    const RampSide side = readSide(statement);
    const TokenType type = statement.cursor.type();
    if (statement.cursor.atEnd()) {
        return reportUnexpectedToken(statement.context, statement.cursor);
    }
    if (type == TokenType::APTGLOB_VARIABLE || type == TokenType::APTTASK_VARIABLE) {
        return refuse(statement, Message::AxisPointUnsupported);
    }
    const bool forAxes = isAxis(type);
    if (forAxes) {
        if (!writeAxisRamps(statement, side, mode)) {
            return false;
        }
    } else {
        std::string value;
        if (!readOperand(statement, 'v', value)) {
            return false;
        }
        writeCall(statement, rampValue, {}, rampArguments(side, mode, value, false));
    }
    if (side != RampSide::both) {
        advisePlaceholder(statement, rampValue, forAxes);
    }
    return true;
}

/// RAMP RATE DEPENDENT ACCEL | DECEL value
bool convertDependentRate(Statement& statement) {
    const bool isAcceleration = statement.cursor.is(TokenType::ACCEL);
    if (!expectToken(statement.context, statement.cursor, {TokenType::ACCEL, TokenType::DECEL}) ||
        !writeForm(statement, "v",
                   isAcceleration
                       ? "SetupDependentCoordinatedRampRate({}, /* $rampValueDecel */)"
                       : "SetupDependentCoordinatedRampRate(/* $rampValueAccel */, {})")) {
        return false;
    }
    advise(statement, Message::SetupDependentCoordinatedRampRatePlaceholder);
    return true;
}

}  // namespace

bool convertRampRate(Statement& statement, std::string_view) {
    if (accept(statement, TokenType::DEPENDENT)) {
        return convertDependentRate(statement);
    }
    return convertRampValue(statement, "RampMode.Rate");
}

bool convertRampTime(Statement& statement, std::string_view) {
    return convertRampValue(statement, "RampMode.Time");
}

namespace {

/// [ACCEL | DECEL] [axes] for the types that need no argument. The plain coordinated linear form
/// alone is complete.
bool writeSimpleRampType(Statement& statement, bool isLinear) {
    const std::string type = isLinear ? "RampType.Linear" : "RampType.Sine";
    const RampSide side = readSide(statement);
    std::string axes;
    if (!readRampAxes(statement, axes)) {
        return false;
    }
    std::string arguments;
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
    return true;
}

/// [ACCEL | DECEL]: the percentage is never given.
bool writeScurveRampType(Statement& statement) {
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
    return true;
}

}  // namespace

/// RAMP TYPE LINEAR | SINE [ACCEL | DECEL] [axes]
/// RAMP TYPE SCURVE [ACCEL | DECEL]
bool convertRampType(Statement& statement, std::string_view) {
    const TokenType type = statement.cursor.type();
    if (!expectToken(statement.context, statement.cursor,
                     {TokenType::LINEAR, TokenType::SINE, TokenType::SCURVE})) {
        return false;
    }
    return type == TokenType::SCURVE ? writeScurveRampType(statement)
                                     : writeSimpleRampType(statement, type == TokenType::LINEAR);
}

}  // namespace torvel
