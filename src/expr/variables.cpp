// A variable reference is
//
//   variable [digits in its name] [ "[" index "]" ] [ "." selector ]
//
// Which of these a kind has, and what becomes of it, is told by its row in variables.def.

#include "src/expr/variables.h"

#include <array>

#include "src/expr/axis-lists.h"
#include "src/expr/expressions.h"
#include "src/expr/number-text.h"
#include "src/expr/parameter-names.h"
#include "src/expr/status-items.h"
#include "src/lex/characters.h"

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

const VariableKind* findKind(TokenType type) {
    const auto number = static_cast<std::uint32_t>(type);
    if (number < firstKind || number > lastKind || !variableKinds[number - firstKind].known) {
        return nullptr;
    }
    return &variableKinds[number - firstKind];
}

struct ItemLookup {
    std::optional<std::string_view> (*find)(std::uint32_t) = nullptr;
    Message missing{};
    Message removed{};
};

/// By ItemTable.
constexpr ItemLookup itemLookups[] = {
    {},
    {lookupAxisParameterName, Message::AxisParameterInvalid, Message::AxisParameterRemoved},
    {lookupTaskParameterName, Message::TaskParameterInvalid, Message::TaskParameterRemoved},
    {lookupSystemParameterName, Message::SystemParameterInvalid, Message::SystemParameterRemoved},
    {lookupAxisStatusItem, Message::ItemMissing, Message::ItemRemoved},
    {lookupTaskStatusItem, Message::ItemMissing, Message::ItemRemoved},
    {lookupSystemStatusItem, Message::ItemMissing, Message::ItemRemoved},
};

/// "." task number, or nothing for the running task; with the ", " that follows it in a call
bool translateTaskSelector(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    if (!acceptToken(cursor, TokenType::DOT)) {
        out += "TaskGetIndex(), ";
        return true;
    }
    const std::optional<std::int32_t> task =
        cursor.is(TokenType::INTEGER_LITERAL) ? parseIntegerText(cursor.text()) : std::nullopt;
    if (!task) {
        return logConversionMessage(context, Message::IntegerValueExpected);
    }
    cursor.advance();
    out += std::to_string(*task);
    out += ", ";
    return true;
}

bool translateSelector(ConversionContext& context, TokenCursor& cursor, Selector selector,
                       ExpressionText& out) {
    if (selector == Selector::task) {
        return translateTaskSelector(context, cursor, out);
    }
    if (selector == Selector::axis) {
        if (!expectToken(context, cursor, TokenType::DOT) ||
            !translateAxisSelector(context, cursor, out)) {
            return false;
        }
        out += ", ";
    }
    return true;
}

/// The name behind an index that is an item's number. An index that is no number is reported, and
/// taken as number 0.
bool translateItemIndex(ConversionContext& context, ItemTable table, ExpressionText& index) {
    const std::optional<std::int32_t> number = parseIntegerText(index);
    if (!number) {
        logConversionMessage(context, Message::IntegerLiteralExpected);
    }
    index.clear();
    return translateItem(context, table, number.value_or(0), index);
}

/// A "." behind a plain variable can only be the DEFINED test, which is gone.
bool checkNoMember(ConversionContext& context, TokenCursor& cursor) {
    if (!acceptToken(cursor, TokenType::DOT)) {
        return true;
    }
    return expectToken(context, cursor, TokenType::DEFINED)
               ? logConversionMessage(context, Message::DefinedUnsupported)
               : false;
}

bool translateCall(ConversionContext& context, TokenCursor& cursor, const VariableKind& kind,
                   const ExpressionText& index, bool isAssignmentTarget, ExpressionText& out) {
    out += isAssignmentTarget ? kind.assign : kind.read;
    if (!translateSelector(context, cursor, kind.selector, out)) {
        return false;
    }
    ExpressionText item;
    if (kind.items != ItemTable::none) {
        item = index;
        if (!translateItemIndex(context, kind.items, item)) {
            return false;
        }
    }
    if (kind.index != Index::ignored) {
        out += kind.items != ItemTable::none ? item : index;
    }
    out += isAssignmentTarget ? ", " : ")";
    return true;
}

/// Translates a reference; `isCall` tells whether Torvel reads or assigns it by a call.
bool translateVariableReference(ConversionContext& context, TokenCursor& cursor,
                                bool isAssignmentTarget, bool& isCall, ExpressionText& out) {
    if (cursor.atEnd()) {
        return logConversionMessage(context, Message::VariableExpected);
    }
    const VariableKind* kind = findKind(cursor.type());
    if (kind == nullptr) {
        return reportUnexpectedToken(context, cursor);
    }
    const auto& refusal = isAssignmentTarget ? kind->assignRefusal : kind->readRefusal;
    if (refusal) {
        return logConversionMessage(context, *refusal);
    }
    isCall = kind->isCall;
    const std::string_view name = cursor.text();
    cursor.advance();

    const bool isNumbered = kind->index != Index::bracketsOnly && !kind->read.empty();
    ExpressionText index;
    if (!translateIndex(context, cursor, isNumbered ? trailingDigits(name) : std::string_view(),
                        index)) {
        return false;
    }
    const bool isRequired = kind->index == Index::required || kind->index == Index::bracketsOnly;
    if (isRequired && index.empty()) {
        return logConversionMessage(context, Message::ArrayDimensionExpected);
    }
    if (isCall) {
        return translateCall(context, cursor, *kind, index, isAssignmentTarget, out);
    }
    out += kind->read.empty() ? name : kind->read;
    if (!index.empty()) {
        out += '[';
        out += index;
        out += ']';
    }
    return checkNoMember(context, cursor);
}

}  // namespace

bool isNumericVariable(TokenType type) {
    return findKind(type) != nullptr;
}

std::optional<VariableReference> translateAssignmentTarget(ConversionContext& context,
                                                           TokenCursor& cursor) {
    VariableReference reference;
    if (!translateVariableReference(context, cursor, true, reference.isCall, reference.text)) {
        return std::nullopt;
    }
    return reference;
}

bool translateVariableRead(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    bool isCall = false;
    return translateVariableReference(context, cursor, false, isCall, out);
}

bool translateBracketed(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    const OpenConstruct bracket(context);
    if (!bracket) {
        return false;
    }
    cursor.advance();
    return translateExpression(context, cursor, out) &&
           expectToken(context, cursor, TokenType::RIGHT_BRACKET);
}

bool translateIndex(ConversionContext& context, TokenCursor& cursor, std::string_view digits,
                    ExpressionText& out) {
    if (!cursor.is(TokenType::LEFT_BRACKET)) {
        out += digits;
        return true;
    }
    ExpressionText bracket;
    if (!translateBracketed(context, cursor, bracket)) {
        return false;
    }
    const auto first = parseIntegerText(digits);
    const auto second = parseIntegerText(bracket);
    if (digits.empty()) {
        out += bracket;
    } else if (first && second) {
        out += std::to_string(std::int64_t{*first} + *second);
    } else {
        out += digits;
        out += " + ";
        out += bracket;
    }
    return true;
}

bool translateItem(ConversionContext& context, ItemTable table, std::int32_t number,
                   ExpressionText& out) {
    const ItemLookup& lookup = itemLookups[static_cast<std::size_t>(table)];
    const std::optional<std::string_view> name =
        number < 0 ? std::nullopt : lookup.find(static_cast<std::uint32_t>(number));
    if (!name) {
        return logConversionMessage(context, lookup.missing);
    }
    if (name->empty()) {
        return logConversionMessage(context, lookup.removed);
    }
    out += *name;
    return true;
}

}  // namespace torvel
