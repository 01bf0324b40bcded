#include "src/stmt/assignments.h"

#include "src/expr/expressions.h"
#include "src/expr/strings.h"
#include "src/expr/variables.h"
#include "src/lex/characters.h"
#include "src/stmt/values.h"

namespace torvel {

namespace {

struct AssignmentOperator {
    TokenType token;
    std::string_view text;
};

/// In the order in which messages name them.
constexpr AssignmentOperator assignmentOperators[] = {
    {TokenType::ASSIGN, " = "},
    {TokenType::PLUS_PLUS, "++"},
    {TokenType::MINUS_MINUS, "--"},
    {TokenType::PLUS_ASSIGN, " += "},
    {TokenType::MINUS_ASSIGN, " -= "},
    {TokenType::STAR_ASSIGN, " *= "},
    {TokenType::SLASH_ASSIGN, " /= "},
    {TokenType::BAR_ASSIGN, " |= "},
    {TokenType::AMPERSAND_ASSIGN, " &= "},
    {TokenType::SHIFT_RIGHT_ASSIGN, " >>= "},
    {TokenType::SHIFT_LEFT_ASSIGN, " <<= "},
};

const AssignmentOperator* findOperator(TokenType type) {
    for (const AssignmentOperator& entry : assignmentOperators) {
        if (entry.token == type) {
            return &entry;
        }
    }
    return nullptr;
}

bool reportNoOperator(Statement& statement) {
    std::vector<TokenType> types;
    for (const AssignmentOperator& entry : assignmentOperators) {
        types.push_back(entry.token);
    }
    return reportUnexpectedToken(statement.context, statement.cursor, types);
}

}  // namespace

/// variable operator [value]
/// The same; or, where Torvel sets the variable by a call, the value as the call's last argument,
/// whatever the operator.
bool convertAssignment(Statement& statement) {
    const auto target = translateAssignmentTarget(statement.context, statement.cursor);
    if (!target) {
        return false;
    }
    const AssignmentOperator* entry = findOperator(statement.cursor.type());
    if (entry == nullptr) {
        return reportNoOperator(statement);
    }
    statement.cursor.advance();
    statement.text += target->text;
    if (!target->isCall) {
        statement.text += entry->text;
    }
    switch (entry->token) {
        case TokenType::PLUS_PLUS:
        case TokenType::MINUS_MINUS: break;
        case TokenType::ASSIGN:
            if (!translateAssignmentValue(statement.context, statement.cursor, statement.text)) {
                return false;
            }
            break;
        default:
            if (!writeExpression(statement)) {
                return false;
            }
    }
    if (target->isCall) {
        statement.text += ')';
    }
    return true;
}

namespace {

/// $STRGLOBn, $STRGLOB[n]: digits and brackets are joined, not added up.
bool writeStringTarget(Statement& statement) {
    const std::string_view name = statement.cursor.text();
    const bool isDefine = statement.cursor.is(TokenType::GLOBAL_STRING_DEFINE);
    statement.cursor.advance();
    if (isDefine) {
        statement.text += name;
        return true;
    }
    const std::string_view digits = trailingDigits(name);
    statement.text += "$sglobal[";
    statement.text += digits;
    if (statement.cursor.is(TokenType::LEFT_BRACKET)) {
        statement.text += digits.empty() ? "" : " + ";
        if (!translateBracketed(statement.context, statement.cursor, statement.text)) {
            return false;
        }
    } else if (digits.empty()) {
        return refuse(statement, Message::ArrayExpressionExpected);
    }
    statement.text += ']';
    return true;
}

bool writeStringValue(Statement& statement) {
    const TokenType type = statement.cursor.type();
    if (isStringTerm(type)) {
        return translateStringExpression(statement.context, statement.cursor, statement.text);
    }
    switch (type) {
        case TokenType::CALLBACK:
            return translateAssignmentValue(statement.context, statement.cursor, statement.text);
        case TokenType::AXIS_DEFINE:
        case TokenType::AXIS_NAME:
        case TokenType::APTGLOB_VARIABLE:
        case TokenType::APTTASK_VARIABLE:
        case TokenType::PERCENT: return refuse(statement, Message::AxisAssignedToString);
        case TokenType::READPARMSTRING:
            return refuse(statement, Message::ReadparmstringUnsupported);
        case TokenType::GETPARMSTRING: return refuse(statement, Message::GetparmstringUnsupported);
        case TokenType::READCONFIGSTRING:
            return refuse(statement, Message::ReadconfigstringUnsupported);
        case TokenType::NETWORK: return refuse(statement, Message::NetworkValueUnsupported);
        case TokenType::ERRORDECODE: return refuse(statement, Message::ErrordecodeUnsupported);
        default: return reportUnexpectedToken(statement.context, statement.cursor);
    }
}

}  // namespace

/// string variable = string
/// The same, the variable being an element of $sglobal or a preserved define.
bool convertStringAssignment(Statement& statement) {
    if (!writeStringTarget(statement)) {
        return false;
    }
    statement.text += " = ";
    return expect(statement, TokenType::ASSIGN) && writeStringValue(statement);
}

}  // namespace torvel
