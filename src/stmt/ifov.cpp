#include "src/expr/axis-lists.h"
#include "src/expr/expressions.h"
#include "src/stmt/routines.h"

namespace torvel {

/// IFOV AXISPAIR value , axis , axis: has its own function in Torvel, with other arguments.
void convertIfovAxisPair(Statement& statement, std::string_view) {
    ExpressionText operand;
    translateExpression(statement, operand);
    expectToken(statement, TokenType::COMMA);
    translateSingleAxis(statement, operand);
    expectToken(statement, TokenType::COMMA);
    translateSingleAxis(statement, operand);
    refuse(statement, Message::IfovAxispairNoOneToOne);
}

}  // namespace torvel
