// A variable reference is
//
//   variable [digits in its name] [ "[" index "]" ] [ "." selector ]
//
// Which of these a kind has, and what becomes of it, is told by its row in variables.def.

#include "src/expr/variables.h"

#include <array>

#include "src/base/characters.h"
#include "src/expr/axis-lists.h"
#include "src/expr/expressions.h"
#include "src/expr/number-checks.h"
#include "src/expr/number-text.h"
#include "src/expr/parameter-names.h"
#include "src/expr/status-items.h"

namespace torvel {

namespace {

enum class Index : std::uint8_t { required, optional, ignored, bracketsOnly };
enum class Selector : std::uint8_t { none, axis, task };

struct VariableKind {
    bool known = false;
    bool isCall = false;
    /// Torvel's words in front of the arguments, or its name; empty: refused, or the variable's own name.
    std::string_view read;
    std::string_view assign;
    Index index{};
    Selector selector{};
    ItemTable items{};
    std::optional<Message> readRefusal;
    std::optional<Message> assignRefusal;
};

constexpr auto firstKind = static_cast<std::uint32_t>(TokenType::PROGRAM_VARIABLE_DEFINE);
constexpr auto lastKind = static_cast<std::uint32_t>(TokenType::SYSTEMSTATUS_VARIABLE);

constexpr auto variableKinds = [] {
    std::array<VariableKind, lastKind - firstKind + 1> kinds{};
    const auto at = [&](TokenType kind) -> VariableKind& {
        return kinds[static_cast<std::uint32_t>(kind) - firstKind];
    };
    // clang-format off
#define PLAIN(kind, name, index) \
    at(TokenType::kind) = {true, false, name, name, Index::index, {}, {}, {}, {}};
#define CALL(kind, get, set, index, selector, items) \
    at(TokenType::kind) = {true, true, get, set, Index::index, Selector::selector, \
                           ItemTable::items, {}, {}};
#define READ_ONLY(kind, get, index, selector, items, message) \
    at(TokenType::kind) = {true, true, get, {}, Index::index, Selector::selector, \
                           ItemTable::items, {}, Message::message};
#define REFUSED(kind, message) \
    at(TokenType::kind) = {true, false, {}, {}, {}, {}, {}, Message::message, Message::message};
    // clang-format on
#include "src/expr/variables.def"
    return kinds;
}();

constexpr const VariableKind* findKind(TokenType type) {
    const auto number = static_cast<std::uint32_t>(type);
    if (number < firstKind || number > lastKind || !variableKinds[number - firstKind].known) {
        return nullptr;
    }
    return &variableKinds[number - firstKind];
}

/// isBareVariable() relies on it.
constexpr bool isWrittenAsItStands(const VariableKind& kind) {
    return kind.read.empty() && kind.assign.empty() && !kind.isCall &&
           kind.index == Index::optional && !kind.readRefusal && !kind.assignRefusal;
}
static_assert(isWrittenAsItStands(*findKind(TokenType::VARIABLE)));

struct ItemLookup {
    std::optional<std::string_view> (*find)(std::uint32_t) = nullptr;
    Message missing;
    Message removed;
    /// For the rows of a site, which have none.
    std::string_view prefix;
    ReferenceKind kind{};
};

/// By ItemTable, without the first of them, which is none.
constexpr ItemLookup itemLookups[] = {
    {lookupAxisParameterName, Message::AxisParameterInvalid, Message::AxisParameterRemoved,
     "AxisParameter.", ReferenceKind::axisParameter},
    {lookupTaskParameterName, Message::TaskParameterInvalid, Message::TaskParameterRemoved,
     "TaskParameter.", ReferenceKind::taskParameter},
    {lookupSystemParameterName, Message::SystemParameterInvalid, Message::SystemParameterRemoved,
     "SystemParameter.", ReferenceKind::systemParameter},
    {lookupAxisStatusItem, Message::ItemMissing, Message::ItemRemoved, "AxisStatusItem.",
     ReferenceKind::axisItem},
    {lookupTaskStatusItem, Message::ItemMissing, Message::ItemRemoved, "TaskStatusItem.",
     ReferenceKind::taskItem},
    {lookupSystemStatusItem, Message::ItemMissing, Message::ItemRemoved, "SystemStatusItem.",
     ReferenceKind::systemItem},
};

const ItemLookup& lookupOf(ItemTable table) {
    return itemLookups[static_cast<std::size_t>(table) - 1];
}

/// "." task number, or nothing for the running task; with the ", " that follows it in a call
void translateTaskSelector(Statement& statement, ExpressionText& out) {
    if (!acceptToken(statement, TokenType::DOT)) {
        out += "TaskGetIndex(), ";
        return;
    }
    const std::optional<std::int32_t> task = statement.cursor.is(TokenType::INTEGER_LITERAL)
                                                 ? parseIntegerText(statement.cursor.text())
                                                 : std::nullopt;
    if (!task) {
        refuse(statement, Message::IntegerValueExpected);
        return;
    }
    const Token* const number = statement.cursor.place();
    const std::string_view text = statement.cursor.text();
    statement.cursor.advance();
    checkOctal(statement, text, number);
    out += std::to_string(*task);
    out += ", ";
}

void translateSelector(Statement& statement, Selector selector, ExpressionText& out) {
    if (selector == Selector::task) {
        translateTaskSelector(statement, out);
    } else if (selector == Selector::axis) {
        expectToken(statement, TokenType::DOT);
        translateAxisSelector(statement, out);
        out += ", ";
    }
}

/// The name behind an index that is an item's number. An index that is no number is reported, and
/// taken as number 0 on purpose. The reference begins at `first`.
void translateItemIndex(Statement& statement, ItemTable table, std::string_view index,
                        const Token* first, ExpressionText& out) {
    const std::optional<std::int32_t> number = parseIntegerText(index);
    if (number) {
        checkItemNumber(statement, table, index, first);
    } else {
        logConversionMessage(statement, Message::IntegerLiteralExpected);
        noteCheck(statement, Check::ParameterZero, first);
    }
    translateItem(statement, table, number.value_or(0), first, out);
}

/// A "." behind a plain variable can only be the DEFINED test, which is gone.
void refuseMember(Statement& statement) {
    if (acceptToken(statement, TokenType::DOT)) {
        expectToken(statement, TokenType::DEFINED);
        refuse(statement, Message::DefinedUnsupported);
    }
}

/// The index of a variable that Torvel reads or sets by a call. That of an item is not written, but the item's
/// name.
void translateCallIndex(Statement& statement, const VariableKind& kind, std::string_view digits,
                        ExpressionText& index) {
    if (kind.items == ItemTable::none && kind.index != Index::ignored) {
        translateIndex(statement, digits, index);
        return;
    }
    const UnwrittenOperand unwritten(statement, kind.index == Index::ignored
                                                    ? UnwrittenOperand::Value::isDropped
                                                    : UnwrittenOperand::Value::counts);
    translateIndex(statement, digits, index);
}

void requireIndex(Statement& statement, const VariableKind& kind, std::string_view index) {
    const bool isRequired = kind.index == Index::required || kind.index == Index::bracketsOnly;
    if (isRequired && index.empty()) {
        refuse(statement, Message::ArrayDimensionExpected);
    }
}

/// A reference that is a call, behind its name.
void translateCall(Statement& statement, const VariableKind& kind, std::string_view digits,
                   bool isAssignmentTarget, ExpressionText& out) {
    const Token* const first = statement.cursor.place() - 1;
    ExpressionText index;
    translateCallIndex(statement, kind, digits, index);
    requireIndex(statement, kind, index);
    out += isAssignmentTarget ? kind.assign : kind.read;
    translateSelector(statement, kind.selector, out);
    if (kind.items != ItemTable::none) {
        translateItemIndex(statement, kind.items, index, first, out);
    } else if (kind.index != Index::ignored) {
        out += index;
    } else if (!index.empty()) {
        noteCheck(statement, Check::OperandDropped, first);
    }
    out += isAssignmentTarget ? ", " : ")";
}

/// Translates a reference; tells whether Torvel reads or assigns it by a call.
bool translateVariableReference(Statement& statement, bool isAssignmentTarget,
                                ExpressionText& out) {
    TokenCursor& cursor = statement.cursor;
    if (isBareVariable(cursor)) {
        writeToken(statement, out);
        return false;
    }
    if (cursor.atEnd()) {
        refuse(statement, Message::VariableExpected);
        return false;
    }
    const VariableKind* kind = findKind(cursor.type());
    if (kind == nullptr) {
        reportUnexpectedToken(statement);
        return false;
    }
    if (const auto& refusal = isAssignmentTarget ? kind->assignRefusal : kind->readRefusal) {
        refuse(statement, *refusal);
        return false;
    }
    const std::string_view name = cursor.text();
    cursor.advance();

    const bool isNumbered = kind->index != Index::bracketsOnly && !kind->read.empty();
    const std::string_view digits = isNumbered ? trailingDigits(name) : std::string_view();
    if (kind->isCall) [[unlikely]] {
        translateCall(statement, *kind, digits, isAssignmentTarget, out);
        return true;
    }
    if (kind->read.empty()) {
        out.appendStored(name);
    } else {
        out += kind->read;
    }
    if (digits.empty() && !cursor.is(TokenType::LEFT_BRACKET)) {
        requireIndex(statement, *kind, {});
        refuseMember(statement);
        return false;
    }
    const std::size_t end = out.size();
    out += '[';
    translateIndex(statement, digits, out);
    requireIndex(statement, *kind, std::string_view(out).substr(end + 1));
    if (out.size() > end + 1) {
        out += ']';
    } else {
        out.truncate(end);
    }
    refuseMember(statement);
    return false;
}

}  // namespace

bool isNumericVariable(TokenType type) {
    return findKind(type) != nullptr;
}

bool translateAssignmentTarget(Statement& statement, ExpressionText& out) {
    return translateVariableReference(statement, true, out);
}

void translateVariableRead(Statement& statement, ExpressionText& out) {
    translateVariableReference(statement, false, out);
}

Precedence translateBracketed(Statement& statement, ExpressionText& out) {
    const OpenConstruct bracket(statement);
    statement.cursor.advance();
    const Precedence binding = translateExpression(statement, out);
    expectToken(statement, TokenType::RIGHT_BRACKET);
    return binding;
}

ExpressionText translateBracketedAddend(Statement& statement) {
    constexpr BinaryOperator plus = findBinaryOperator(TokenType::PLUS);
    ExpressionText addend;
    if (!bindsBehind(translateBracketed(statement, addend), plus)) {
        parenthesise(addend, 0);
    }
    return addend;
}

void translateIndex(Statement& statement, std::string_view digits, ExpressionText& out) {
    if (!statement.cursor.is(TokenType::LEFT_BRACKET)) {
        out += digits;
    } else if (digits.empty()) {
        translateBracketed(statement, out);
    } else {
        const Token* const variable = statement.cursor.place() - 1;
        const ExpressionText bracket = translateBracketedAddend(statement);
        const auto first = parseIntegerText(digits);
        const auto second = parseIntegerText(bracket);
        if (first && second) {
            checkOctal(statement, decimalReading(digits) ? digits : bracket, variable);
            out += std::to_string(std::int64_t{*first} + *second);
        } else {
            out += digits;
            out += " + ";
            out += bracket;
        }
    }
}

ReferenceKind referenceKindOf(ItemTable table) {
    return lookupOf(table).kind;
}

void translateItem(Statement& statement, ItemTable table, std::int32_t number, const Token* first,
                   ExpressionText& out) {
    const ItemLookup& lookup = lookupOf(table);
    if (const auto own =
            findReferenceRow(statement, lookup.kind, static_cast<std::uint32_t>(number), first)) {
        out += lookup.prefix;
        out += *own;
        return;
    }
    const std::optional<std::string_view> name =
        number < 0 ? std::nullopt : lookup.find(static_cast<std::uint32_t>(number));
    if (!name) {
        refuse(statement, lookup.missing);
    } else if (name->empty()) {
        refuse(statement, lookup.removed);
    } else {
        out += *name;
    }
}

}  // namespace torvel
