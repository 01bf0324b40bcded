#include "src/stmt/data-collection.h"

#include "src/expr/axis-lists.h"
#include "src/expr/expressions.h"
#include "src/expr/number-text.h"
#include "src/stmt/data-signals.h"
#include "src/stmt/forms.h"

namespace torvel {

/// DATACOLLECT START a , b , c [, d [, e]]: has its own function in Torvel, with other arguments.
bool convertCollectionStart(Statement& statement, std::string_view) {
    std::string operand;
    for (int number = 0; number < 5; ++number) {
        if (number >= 3 && !statement.cursor.is(TokenType::COMMA)) {
            break;
        }
        if ((number > 0 && !expect(statement, TokenType::COMMA)) ||
            !readOperand(statement, 'v', operand)) {
            return false;
        }
    }
    return refuse(statement, Message::DatacollectStartNoOneToOne);
}

namespace {

/// The axis or task that an item is collected of: an axis, or an axis number.
bool readTarget(Statement& statement, std::string& target) {
    TokenCursor& cursor = statement.cursor;
    if (isAxis(cursor.type()) || cursor.is(TokenType::PERCENT)) {
        return translateSingleAxis(statement.context, cursor, target);
    }
    if (!cursor.is(TokenType::INTEGER_LITERAL)) {
        return refuse(statement, Message::IntegerLiteralExpected);
    }
    return translateAxisNumber(statement.context, cursor, target);
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
bool convertCollectionItem(Statement& statement, std::string_view) {
    std::string slot;
    std::string target;
    std::string item;
    if (!readOperand(statement, 'v', slot) || !expect(statement, TokenType::COMMA) ||
        !readTarget(statement, target) || !expect(statement, TokenType::COMMA) ||
        !readOperand(statement, 'v', item)) {
        return false;
    }
    const std::optional<std::int32_t> number = parseIntegerText(item);
    if (!number) {
        return refuse(statement, Message::IntegerLiteralExpected);
    }
    std::string argument;
    if (accept(statement, TokenType::COMMA)) {
        argument = ", ";
        if (!readOperand(statement, 'v', argument)) {
            return false;
        }
    }
    for (const SignalTable& table : signalTables) {
        const auto name =
            *number < 0 ? std::nullopt : table.find(static_cast<std::uint32_t>(*number));
        if (!name) {
            continue;
        }
        if (name->empty()) {
            return refuse(statement, Message::ItemRemoved);
        }
        statement.text += table.call;
        statement.text += table.hasTarget ? target + ", " : "";
        statement.text += *name;
        statement.text += argument + ")";
        return true;
    }
    return refuse(statement, Message::DataItemUnknown);
}

}  // namespace torvel
