#include "src/expr/expressions.h"
#include "src/expr/named-operands.h"
#include "src/stmt/routines.h"

namespace torvel {

/// THERMOCOMP CONFIG MODE value {, value}: the last value is the mode, a constant
/// ThermoCompConfigureMode(values, mode)
void convertThermocompMode(Statement& statement, std::string_view) {
    statement.text += "ThermoCompConfigureMode(";
    ExpressionText mode;
    translateExpression(statement, mode);
    while (acceptToken(statement, TokenType::COMMA)) {
        statement.text += mode + ", ";
        mode.clear();
        translateExpression(statement, mode);
    }
    checkOctalName(statement, OperandSet::thermoCompMode, mode, statement.cursor.place() - 1);
    statement.text += "ThermoCompMode.";
    writeNumberName(statement, OperandSet::thermoCompMode, mode, statement.text);
    statement.text += ')';
}

}  // namespace torvel
