#include "src/expr/expressions.h"
#include "src/stmt/routines.h"

namespace torvel {

namespace {

/// [task ,] code , location
/// call(task, code, location)
void convertRaise(Statement& statement, std::string_view call) {
    statement.cursor.advance();
    ExpressionText operands;
    translateExpression(statement, operands);
    expectToken(statement, TokenType::COMMA);
    operands += ", ";
    translateExpression(statement, operands);
    statement.text += call;
    if (acceptToken(statement, TokenType::COMMA)) {
        operands += ", ";
        translateExpression(statement, operands);
    } else {
        statement.text += "TaskGetIndex(), ";
    }
    statement.text += operands + ")";
    logConversionMessage(statement, Message::ErrorCodesDiffer);
}

}  // namespace

/// TASKERROR [task ,] code , location
/// TaskSetError(task, code, location)
void convertTaskError(Statement& statement) {
    convertRaise(statement, "TaskSetError(");
}

/// TASKWARNING [task ,] code , location
/// TaskSetWarning(task, code, location)
void convertTaskWarning(Statement& statement) {
    convertRaise(statement, "TaskSetWarning(");
}

}  // namespace torvel
