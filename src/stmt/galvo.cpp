#include "src/stmt/galvo.h"

#include "src/expr/expressions.h"
#include "src/expr/number-text.h"
#include "src/stmt/forms.h"

namespace torvel {

/// IFOV SYNCAXES NONE | axes
/// IfovSetSyncAxes([axes])
bool convertIfovSyncAxes(Statement& statement, std::string_view) {
    if (accept(statement, TokenType::NONE)) {
        statement.text += "IfovSetSyncAxes([])";
        return true;
    }
    return writeForm(statement, "L", "IfovSetSyncAxes({})");
}

/// IFOV AXISPAIR value , axis , axis: has its own function in Torvel, with other arguments.
bool convertIfovAxisPair(Statement& statement, std::string_view) {
    std::string operand;
    return readOperand(statement, 'v', operand) && expect(statement, TokenType::COMMA) &&
           readOperand(statement, 'a', operand) && expect(statement, TokenType::COMMA) &&
           readOperand(statement, 'a', operand) &&
           refuse(statement, Message::IfovAxispairNoOneToOne);
}

/// GALVO LASEROVERRIDE axis ON | OFF | AUTO
/// GalvoLaserOutput(axis, GalvoLaser.On | Off | Auto)
bool convertLaserOverride(Statement& statement, std::string_view) {
    std::string axis;
    if (!readOperand(statement, 'a', axis)) {
        return false;
    }
    const TokenType mode = statement.cursor.type();
    if (!expectToken(statement.context, statement.cursor,
                     {TokenType::ON, TokenType::OFF, TokenType::AUTO})) {
        return false;
    }
    statement.text += "GalvoLaserOutput(" + axis + ", GalvoLaser.";
    statement.text += mode == TokenType::ON ? "On)" : mode == TokenType::OFF ? "Off)" : "Auto)";
    return true;
}

/// GALVO ROTATION axis [[,] angle]
/// GalvoRotationSet(axis, angle)
bool convertGalvoRotation(Statement& statement, std::string_view) {
    std::string axis;
    if (!readOperand(statement, 'a', axis)) {
        return false;
    }
    if (!statement.cursor.atEnd()) {
        return writeForm(statement, ";v", "GalvoRotationSet({}, {})", axis);
    }
    statement.text += "GalvoRotationSet(" + axis + ", /* $angle */)";
    advise(statement, Message::GalvoRotationSetPlaceholder);
    return true;
}

namespace {

/// Reads a constant and appends the name that it is the number of; `unknown` refuses any other value.
template <std::size_t count>
bool writeNamedConstant(Statement& statement, const std::string_view (&names)[count],
                        Message unknown) {
    std::string text;
    if (!readOperand(statement, 'v', text)) {
        return false;
    }
    const std::optional<std::int32_t> number = parseIntegerText(text);
    if (!number || *number < 0 || static_cast<std::size_t>(*number) >= count) {
        return refuse(statement, unknown);
    }
    statement.text += names[static_cast<std::size_t>(*number)];
    return true;
}

/// a [,] b [,] c [,] mode [,] type
/// GalvoWobbleSetConfiguration(axis, a, b, c, mode, type)
bool writeWobbleConfiguration(Statement& statement, std::string_view axis) {
    static constexpr std::string_view modes[] = {"GalvoWobbleMode.TimeBased",
                                                 "GalvoWobbleMode.DistanceBased"};
    static constexpr std::string_view types[] = {"GalvoWobbleType.Ellipse",
                                                 "GalvoWobbleType.Figure8Parallel",
                                                 "GalvoWobbleType.Figure8Perpendicular"};
    if (!writeForm(statement, "v;v;v;", "GalvoWobbleSetConfiguration({}, {}, {}, {}, ", axis) ||
        !writeNamedConstant(statement, modes, Message::WobbleModeUnknown)) {
        return false;
    }
    accept(statement, TokenType::COMMA);
    statement.text += ", ";
    if (!writeNamedConstant(statement, types, Message::WobbleTypeUnknown)) {
        return false;
    }
    statement.text += ')';
    return true;
}

}  // namespace

/// GALVO WOBBLE axis ON | OFF | CONFIG ...
/// GalvoWobbleOn(axis), GalvoWobbleOff(axis)
bool convertGalvoWobble(Statement& statement, std::string_view) {
    std::string axis;
    if (!readOperand(statement, 'a', axis)) {
        return false;
    }
    const TokenType word = statement.cursor.type();
    if (!expectToken(statement.context, statement.cursor,
                     {TokenType::ON, TokenType::OFF, TokenType::CONFIG})) {
        return false;
    }
    switch (word) {
        case TokenType::ON: return writeForm(statement, "", "GalvoWobbleOn({})", axis);
        case TokenType::OFF: return writeForm(statement, "", "GalvoWobbleOff({})", axis);
        default: return writeWobbleConfiguration(statement, axis);
    }
}

/// GALVO PROJECTION axis ON | OFF | COEFFICIENTS value {, value}
/// GalvoProjectionOn(axis), GalvoProjectionOff(axis), GalvoProjectionSetCoefficients(axis, [values])
bool convertGalvoProjection(Statement& statement, std::string_view) {
    std::string axis;
    if (!readOperand(statement, 'a', axis)) {
        return false;
    }
    const TokenType word = statement.cursor.type();
    if (!expectToken(statement.context, statement.cursor,
                     {TokenType::ON, TokenType::OFF, TokenType::COEFFICIENTS})) {
        return false;
    }
    switch (word) {
        case TokenType::ON: return writeForm(statement, "", "GalvoProjectionOn({})", axis);
        case TokenType::OFF: return writeForm(statement, "", "GalvoProjectionOff({})", axis);
        default: return writeForm(statement, "V", "GalvoProjectionSetCoefficients({}, [{}])", axis);
    }
}

}  // namespace torvel
