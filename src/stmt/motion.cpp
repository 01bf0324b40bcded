#include "src/expr/axis-lists.h"
#include "src/expr/expressions.h"
#include "src/expr/number-checks.h"
#include "src/stmt/routines.h"

namespace torvel {

/// WAIT ( condition ) [,] time [[,] option]
/// wait(condition, time); with the option -1 the wait has no end: wait(condition)
void convertConditionWait(Statement& statement, std::string_view) {
    writeExpression(statement, "wait(");
    expectToken(statement, TokenType::RIGHT_PAREN);
    acceptToken(statement, TokenType::COMMA);
    const std::size_t timeStart = statement.text.size();
    const Token* const time = statement.cursor.place();
    writeExpression(statement, ", ");
    checkJoinedBySign(statement, time);
    if (!statement.cursor.atEnd()) {
        acceptToken(statement, TokenType::COMMA);
        const Token* const first = statement.cursor.place();
        ExpressionText option;
        {
            const UnwrittenOperand dropped(statement, UnwrittenOperand::Value::isDropped);
            translateExpression(statement, option);
        }
        if (option == "-1") {
            statement.text.truncate(timeStart);
        } else {
            noteCheck(statement, Check::WaitOption, first);
        }
    }
    statement.text += ')';
}

/// PVT {axis [,] position [,] velocity [,]} TIME time
/// MovePvt([axes], [positions], [velocities], time)
/// PT {axis [,] position [,]} TIME time
/// MovePt([axes], [positions], time)
void convertPvt(Statement& statement) {
    const bool hasVelocities = statement.cursor.is(TokenType::PVT);
    statement.cursor.advance();
    TextList axes;
    TextList positions;
    TextList velocities;
    do {
        translateSingleAxis(statement, axes.begin());
        acceptToken(statement, TokenType::COMMA);
        const Token* const position = statement.cursor.place();
        translateExpression(statement, positions.begin());
        checkJoinedBySign(statement, position);
        acceptToken(statement, TokenType::COMMA);
        if (hasVelocities) {
            const Token* const velocity = statement.cursor.place();
            translateExpression(statement, velocities.begin());
            checkJoinedBySign(statement, velocity);
            acceptToken(statement, TokenType::COMMA);
        }
    } while (isAxis(statement.cursor.type()));
    expectToken(statement, TokenType::TIME);
    statement.text += hasVelocities ? "MovePvt(" : "MovePt(";
    formatList(axes, false, statement.text);
    statement.text += ", ";
    formatList(positions, false, statement.text);
    if (hasVelocities) {
        statement.text += ", ";
        formatList(velocities, false, statement.text);
    }
    writeExpression(statement, ", ");
    statement.text += ')';
}

}  // namespace torvel
