#include "src/expr/axis-lists.h"
#include "src/expr/expressions.h"
#include "src/expr/number-text.h"
#include "src/stmt/data-signals.h"
#include "src/stmt/routines.h"

namespace torvel {

/// DATACOLLECT START a , b , c [, d [, e]]: has its own function in Torvel, with other arguments.
void convertCollectionStart(Statement& statement, std::string_view) {
    std::string operand;
    translateExpression(statement, operand);
    for (int number = 1; number < 5 && (number < 3 || statement.cursor.is(TokenType::COMMA));
         ++number) {
        expectToken(statement, TokenType::COMMA);
        translateExpression(statement, operand);
    }
    refuse(statement, Message::DatacollectStartNoOneToOne);
}

namespace {

/// The axis or task that an item is collected of: an axis, or an axis number.
void translateTarget(Statement& statement, std::string& target) {
    const TokenType type = statement.cursor.type();
    if (isAxis(type) || type == TokenType::PERCENT) {
        translateSingleAxis(statement, target);
    } else if (type == TokenType::INTEGER_LITERAL) {
        translateAxisNumber(statement, target);
    } else {
        refuse(statement, Message::IntegerLiteralExpected);
    }
}

struct SignalTable {
    std::optional<std::string_view> (*find)(std::uint32_t);
    std::string_view call;
    bool hasTarget;
};

/// In the order in which a number is looked up.
constexpr SignalTable signalTables[] = {
    {lookupAxisDataSignal, "DataCollectionAddAxisSignal(", true},
    {lookupTaskDataSignal, "DataCollectionAddTaskSignal(", true},
    {lookupSystemDataSignal, "DataCollectionAddSystemSignal(", false},
};

}  // namespace

/// DATACOLLECT ITEM slot , target , item [, argument]
/// DataCollectionAddAxisSignal | AddTaskSignal(target, signal, argument)
/// DataCollectionAddSystemSignal(signal, argument)
void convertCollectionItem(Statement& statement, std::string_view) {
    std::string slot;
    translateExpression(statement, slot);
    expectToken(statement, TokenType::COMMA);
    std::string target;
    translateTarget(statement, target);
    expectToken(statement, TokenType::COMMA);
    std::string item;
    translateExpression(statement, item);
    const std::optional<std::int32_t> number = parseIntegerText(item);
    if (!number) {
        refuse(statement, Message::IntegerLiteralExpected);
    }
    std::string argument;
    if (acceptToken(statement, TokenType::COMMA)) {
        argument = ", ";
        translateExpression(statement, argument);
    }
    if (statement.isRefused) {
        return;
    }
    for (const SignalTable& table : signalTables) {
        const auto name =
            *number < 0 ? std::nullopt : table.find(static_cast<std::uint32_t>(*number));
        if (!name) {
            continue;
        }
        if (name->empty()) {
            refuse(statement, Message::ItemRemoved);
        }
        statement.text += table.call;
        statement.text += table.hasTarget ? target + ", " : "";
        statement.text += *name;
        statement.text += argument + ")";
        return;
    }
    refuse(statement, Message::DataItemUnknown);
}

}  // namespace torvel
