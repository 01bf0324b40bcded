#include <algorithm>
#include <array>

#include "src/base/characters.h"
#include "src/expr/expressions.h"
#include "src/expr/strings.h"
#include "src/expr/variables.h"
#include "src/stmt/routines.h"
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

constexpr auto assignmentTokens = [] {
    std::array<TokenType, std::size(assignmentOperators)> tokens{};
    std::transform(std::begin(assignmentOperators), std::end(assignmentOperators), tokens.begin(),
                   [](const AssignmentOperator& entry) { return entry.token; });
    return tokens;
}();

/// The operator that the current token is; any other token refuses the statement.
const AssignmentOperator* readOperator(Statement& statement) {
    for (const AssignmentOperator& entry : assignmentOperators) {
        if (acceptToken(statement, entry.token)) {
            return &entry;
        }
    }
    reportUnexpectedToken(statement, assignmentTokens);
    return nullptr;
}

}  // namespace

/// A directive that Torvel has too: its text is the token's.
void convertConversionText(Statement& statement) {
    statement.text += statement.cursor.text();
}

namespace {

/// An operator that the call which sets the target at `first` does not have.
void checkSetter(const Statement& statement, TokenType operatorToken, const Token* first) {
    const bool isStep =
        operatorToken == TokenType::PLUS_PLUS || operatorToken == TokenType::MINUS_MINUS;
    noteCheck(statement, isStep ? Check::SetterEmpty : Check::SetterOperator, first);
}

}  // namespace

/// variable operator [value]
/// The same; or, where Torvel sets the variable by a call, the value as the call's last argument,
/// whatever the operator on purpose: "++" leaves the argument empty.
void convertAssignment(Statement& statement) {
    const Token* const target = statement.cursor.place();
    const bool isCall = translateAssignmentTarget(statement, statement.text);
    const AssignmentOperator* entry = readOperator(statement);
    if (entry == nullptr) {
        return;
    }
    if (!isCall) {
        statement.text += entry->text;
    } else if (entry->token != TokenType::ASSIGN) {
        checkSetter(statement, entry->token, target);
    }
    switch (entry->token) {
        case TokenType::PLUS_PLUS:
        case TokenType::MINUS_MINUS: break;
        case TokenType::ASSIGN: translateAssignmentValue(statement, statement.text); break;
        default: writeExpression(statement); break;
    }
    if (isCall) {
        statement.text += ')';
    }
    if (!statement.cursor.atEnd()) {
        const Token* const rest = statement.cursor.place();
        statement.cursor.skipToEnd();
        noteCheck(statement, Check::ValueCut, rest);
    }
}

namespace {

/// $STRGLOBn, $STRGLOB[n]: digits and brackets are joined, not added up.
void writeStringTarget(Statement& statement) {
    const std::string_view name = statement.cursor.text();
    const bool isDefine = statement.cursor.is(TokenType::GLOBAL_STRING_DEFINE);
    statement.cursor.advance();
    if (isDefine) {
        statement.text += name;
        return;
    }
    const std::string_view digits = trailingDigits(name);
    const bool hasBracket = statement.cursor.is(TokenType::LEFT_BRACKET);
    statement.text += "$sglobal[";
    statement.text += digits;
    if (digits.empty() && !hasBracket) {
        refuse(statement, Message::ArrayExpressionExpected);
    } else if (digits.empty()) {
        translateBracketed(statement, statement.text);
    } else if (hasBracket) {
        statement.text += " + ";
        statement.text += translateBracketedAddend(statement);
    }
    statement.text += ']';
}

struct RefusedValue {
    TokenType token;
    Message message;
};

constexpr RefusedValue refusedStringValues[] = {
#define STRING_VALUE(token, message) {TokenType::token, Message::message},
#include "src/stmt/values.def"
};

void writeStringValue(Statement& statement) {
    const TokenType type = statement.cursor.type();
    if (isStringTerm(type)) {
        translateStringExpression(statement, statement.text);
        return;
    }
    if (type == TokenType::CALLBACK) {
        translateAssignmentValue(statement, statement.text);
        return;
    }
    for (const RefusedValue& value : refusedStringValues) {
        if (value.token == type) {
            refuse(statement, value.message);
        }
    }
    reportUnexpectedToken(statement);
}

}  // namespace

/// string variable = string
/// The same, the variable being an element of $sglobal or a preserved define.
void convertStringAssignment(Statement& statement) {
    writeStringTarget(statement);
    expectToken(statement, TokenType::ASSIGN);
    statement.text += " = ";
    writeStringValue(statement);
}

}  // namespace torvel
