#include "src/expr/parser-core.h"

#include <algorithm>

namespace torvel {

bool isOneOf(TokenType type, TokenTypes types) {
    return std::find(types.begin(), types.end(), type) != types.end();
}

std::optional<std::string_view> expectToken(ConversionContext& context, TokenCursor& cursor,
                                            TokenTypes types) {
    if (cursor.atEnd() || !isOneOf(cursor.type(), types)) {
        reportUnexpectedToken(context, cursor, types);
        return std::nullopt;
    }
    const std::string_view text = cursor.text();
    cursor.advance();
    return text;
}

std::optional<std::string_view> expectToken(ConversionContext& context, TokenCursor& cursor,
                                            std::initializer_list<TokenType> types) {
    return expectToken(context, cursor, TokenTypes(types.begin(), types.size()));
}

std::optional<std::string_view> expectToken(ConversionContext& context, TokenCursor& cursor,
                                            TokenType type) {
    return expectToken(context, cursor, TokenTypes(&type, 1));
}

bool acceptToken(TokenCursor& cursor, TokenType type) {
    if (!cursor.is(type)) {
        return false;
    }
    cursor.advance();
    return true;
}

bool reportUnexpectedToken(ConversionContext& context, const TokenCursor& cursor,
                           TokenTypes types) {
    const std::string_view seen = cursor.atEnd() ? "end of line" : tokenTypeName(cursor.type());
    if (types.empty()) {
        return logConversionMessage(context, Message::UnexpectedToken, {seen});
    }
    std::string expected;
    for (const TokenType type : types) {
        expected += expected.empty() ? "" : " or ";
        expected += tokenTypeName(type);
    }
    return logConversionMessage(context, Message::UnexpectedTokenOf, {seen, expected});
}

bool logConversionMessage(ConversionContext& context, Message message,
                          std::initializer_list<std::string_view> holes) {
    context.log.push_back({messageText(message, holes), context.position});
    return false;
}

OpenConstruct::OpenConstruct(ConversionContext& context) : context_(context) {
    if (++context.nesting > context.limits.expressionNesting) {
        logConversionMessage(context, Message::NestedTooDeeply);
    }
}

void formatList(std::span<const std::string> items, bool collapseSingle, ExpressionText& out) {
    if (collapseSingle && items.size() == 1) {
        out += items[0];
        return;
    }
    out += '[';
    for (std::size_t i = 0; i < items.size(); ++i) {
        out += i == 0 ? "" : ", ";
        out += items[i];
    }
    out += ']';
}

}  // namespace torvel
