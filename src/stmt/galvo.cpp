#include "src/expr/axis-lists.h"
#include "src/expr/expressions.h"
#include "src/expr/number-checks.h"
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
    const Token* const angle = statement.cursor.place();
    writeExpression(statement, ", ");
    checkJoinedBySign(statement, angle);
    statement.text += ')';
}

}  // namespace torvel
