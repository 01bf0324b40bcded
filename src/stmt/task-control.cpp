#include "src/expr/expressions.h"
#include "src/expr/number-checks.h"
#include "src/stmt/routines.h"

namespace torvel {

namespace {

/// [task [,]] value
/// call(task, value)
void convertOverride(Statement& statement, std::string_view call) {
    statement.cursor.advance();
    ExpressionText first;
    const Token* const begin = statement.cursor.place();
    translateExpression(statement, first);
    checkJoinedBySign(statement, begin);
    statement.text += call;
    if (statement.cursor.atEnd()) {
        statement.text += "TaskGetIndex(), " + first + ")";
        return;
    }
    acceptToken(statement, TokenType::COMMA);
    statement.text += first;
    const Token* const value = statement.cursor.place();
    writeExpression(statement, ", ");
    checkJoinedBySign(statement, value);
    statement.text += ')';
}

}  // namespace

/// MFO [task [,]] value
/// TaskMfo(task, value)
void convertMfo(Statement& statement) {
    convertOverride(statement, "TaskMfo(");
}

/// MSO [task [,]] value
/// TaskMso(task, value)
void convertMso(Statement& statement) {
    convertOverride(statement, "TaskMso(");
}

}  // namespace torvel
