#include "src/expr/axis-lists.h"
#include "src/expr/expressions.h"
#include "src/stmt/routines.h"

namespace torvel {

/// GALVO ROTATION axis [[,] angle]
/// GalvoRotationSet(axis, angle)
void convertGalvoRotation(Statement& statement, std::string_view) {
    statement.text += "GalvoRotationSet(";
    translateSingleAxis(statement, statement.text);
    if (statement.cursor.atEnd()) {
        statement.text += ", /* $angle */)";
        logConversionMessage(statement, Message::GalvoRotationSetPlaceholder);
        return;
    }
    acceptToken(statement, TokenType::COMMA);
    writeExpression(statement, ", ");
    statement.text += ')';
}

}  // namespace torvel
