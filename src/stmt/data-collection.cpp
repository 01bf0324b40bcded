#include "src/expr/axis-lists.h"
#include "src/expr/expressions.h"
#include "src/expr/number-checks.h"
#include "src/expr/number-text.h"
#include "src/stmt/data-signals.h"
#include "src/stmt/routines.h"

namespace torvel {

/// DATACOLLECT START a , b , c [, d [, e]]: has its own function in Torvel, with other arguments.
void convertCollectionStart(Statement& statement, std::string_view) {
    ExpressionText operand;
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
void translateTarget(Statement& statement, ExpressionText& target) {
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
    /// What a target that is a number is: an axis of these axes, a task that became an axis; or that it is dropped.
    Check targetCheck;
    /// For the rows of a site.
    ReferenceKind kind{};
    std::string_view prefix;
};

/// In the order in which a number is looked up.
constexpr SignalTable signalTables[] = {
    {lookupAxisDataSignal, "DataCollectionAddAxisSignal(", true, Check::AxisNumber,
     ReferenceKind::axisItem, "AxisDataSignal."},
    {lookupTaskDataSignal, "DataCollectionAddTaskSignal(", true, Check::TaskAsAxis,
     ReferenceKind::taskItem, "TaskDataSignal."},
    {lookupSystemDataSignal, "DataCollectionAddSystemSignal(", false, Check::OperandDropped,
     ReferenceKind::systemItem, "SystemDataSignal."},
};

/// The signal of an item.
struct Signal {
    const SignalTable* table = nullptr;
    /// Empty: the item was removed.
    std::string name;
};

/// The signal of an item whose number the tokens from `first` up to the cursor gave. The rows of the site are looked
/// up first, all of them. Nothing: there is no such item.
std::optional<Signal> findSignal(Statement& statement, const ExpressionText& item,
                                 const Token* first) {
    const std::optional<std::int32_t> number = parseIntegerText(item);
    const auto row = static_cast<std::uint32_t>(number.value_or(-1));
    for (const SignalTable& table : signalTables) {
        if (const auto own = findReferenceRow(statement, table.kind, row, first)) {
            checkOctal(statement, item, first);
            return Signal{&table, std::string(table.prefix).append(*own)};
        }
    }
    checkRowNumber(statement, ItemTable::axisStatus, item, first);
    if (!number) {
        refuse(statement, Message::IntegerLiteralExpected);
    } else if (*number >= 0) {
        for (const SignalTable& table : signalTables) {
            if (const auto name = table.find(row)) {
                return Signal{&table, std::string(*name)};
            }
        }
    }
    return std::nullopt;
}

}  // namespace

/// DATACOLLECT ITEM slot , target , item [, argument]
/// DataCollectionAddAxisSignal | AddTaskSignal(target, signal, argument)
/// DataCollectionAddSystemSignal(signal, argument)
void convertCollectionItem(Statement& statement, std::string_view) {
    const Token* const slotPlace = statement.cursor.place();
    {
        const UnwrittenOperand dropped(statement, UnwrittenOperand::Value::isDropped);
        ExpressionText slot;
        translateExpression(statement, slot);
    }
    noteCheck(statement, Check::OperandDropped, slotPlace);
    expectToken(statement, TokenType::COMMA);
    const Token* const targetPlace = statement.cursor.place();
    const bool isNumber = statement.cursor.is(TokenType::INTEGER_LITERAL);
    ExpressionText target;
    translateTarget(statement, target);
    const Token* const targetEnd = statement.cursor.place();
    expectToken(statement, TokenType::COMMA);
    const Token* const itemPlace = statement.cursor.place();
    ExpressionText item;
    {
        const UnwrittenOperand unwritten(statement);
        translateExpression(statement, item);
    }
    const std::optional<Signal> signal = findSignal(statement, item, itemPlace);
    ExpressionText argument;
    if (acceptToken(statement, TokenType::COMMA)) {
        argument = ", ";
        translateExpression(statement, argument);
    }
    if (statement.isRefused) {
        return;
    }
    if (!signal) {
        refuse(statement, Message::DataItemUnknown);
        return;
    }
    if (signal->name.empty()) {
        refuse(statement, Message::ItemRemoved);
    }
    const SignalTable& table = *signal->table;
    const bool isKnownAxis =
        table.targetCheck == Check::AxisNumber && statement.context.axes.areOfParameterFile();
    if (!table.hasTarget || (isNumber && !isKnownAxis)) {
        noteCheck(statement, table.targetCheck, targetPlace, targetEnd);
    }
    statement.text += table.call;
    if (table.hasTarget) {
        statement.text += target;
        statement.text += ", ";
    }
    statement.text += signal->name;
    statement.text += argument;
    statement.text += ')';
}

}  // namespace torvel
