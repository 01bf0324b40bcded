#include "src/expr/parser-core.h"

#include <algorithm>

namespace torvel {

bool isOneOf(TokenType type, TokenTypes types) {
    return std::find(types.begin(), types.end(), type) != types.end();
}

std::string_view expectToken(Statement& statement, TokenTypes types) {
    if (statement.cursor.atEnd() || !isOneOf(statement.cursor.type(), types)) {
        reportUnexpectedToken(statement, types);
        return {};
    }
    const std::string_view text = statement.cursor.text();
    statement.cursor.advance();
    return text;
}

std::string_view expectToken(Statement& statement, std::initializer_list<TokenType> types) {
    return expectToken(statement, TokenTypes(types.begin(), types.size()));
}

void reportUnexpectedToken(Statement& statement, TokenTypes types) {
    if (statement.isRefused) {
        return;
    }
    const TokenCursor& cursor = statement.cursor;
    const std::string_view seen = cursor.atEnd() ? "end of line" : tokenTypeName(cursor.type());
    if (types.empty()) {
        refuse(statement, Message::UnexpectedToken, {seen});
        return;
    }
    std::string expected;
    for (const TokenType type : types) {
        expected += expected.empty() ? "" : " or ";
        expected += tokenTypeName(type);
    }
    refuse(statement, Message::UnexpectedTokenOf, {seen, expected});
}

void logConversionMessage(Statement& statement, Message message,
                          std::initializer_list<std::string_view> holes) {
    if (!statement.isRefused) {
        ConversionContext& context = statement.context;
        context.log.add(message, holes, context.position);
    }
}

void refuse(Statement& statement, Message message, std::initializer_list<std::string_view> holes) {
    logConversionMessage(statement, message, holes);
    statement.isRefused = true;
    statement.cursor.skipToEnd();
}

void recordCheck(const Statement& statement, Check check, const Token* first, const Token* last) {
    const ConversionContext& context = statement.context;
    context.record->findings.push_back(
        recordedFinding(check, columnsOf(context.program, context.position,
                                         context.record->lineText, std::span(first, last))));
}

namespace {

/// What a fact's name tells a person, without its place; none for other facts.
std::optional<NamePlace> namePlaceOf(const Fact& fact) {
    using Kind = Fact::Kind;
    using Place = NamePlace::Kind;
    NamePlace place;
    switch (fact.kind) {
        case Kind::label:
        case Kind::jump: place.kind = Place::label; break;
        case Kind::function:
        case Kind::call: place.kind = Place::function; break;
        case Kind::functionEnd: place.kind = Place::functionEnd; break;
        case Kind::macroCall: place.kind = Place::name; break;
        default: return std::nullopt;
    }
    const bool isDefinition = fact.kind == Kind::label || fact.kind == Kind::function;
    place.role = isDefinition ? NamePlace::Role::definition : NamePlace::Role::use;
    place.name = fact.name;
    return place;
}

}  // namespace

void recordFact(const Statement& statement, Fact::Kind kind, std::string_view name,
                const Token* first) {
    const ConversionContext& context = statement.context;
    Fact fact;
    fact.kind = kind;
    const TextSpan lineText = context.record->lineText;
    const TextSpan place = placeOf(std::span(first, statement.cursor.place()), lineText);
    fact.columns = columnsOf(context.program, context.position, lineText, place);
    fact.name = context.record->texts.keep(name);
    context.record->facts.push_back(fact);
    if (context.record->places != nullptr && !statement.isRefused) {
        if (auto named = namePlaceOf(fact)) {
            named->position = context.position;
            named->lineText = lineText;
            named->place = place;
            context.record->places->push_back(*named);
        }
    }
}

void recordPlace(const Statement& statement, NamePlace::Kind kind, NamePlace::Role role,
                 const Token* first, std::string_view value) {
    const ConversionContext& context = statement.context;
    if (context.record->places == nullptr) {
        return;
    }
    NamePlace place;
    place.kind = kind;
    place.role = role;
    place.position = context.position;
    place.lineText = context.record->lineText;
    place.place = placeOf(std::span(first, statement.cursor.place()), place.lineText);
    place.name = context.program.textOf(*first);
    place.value = context.record->texts.keep(value);
    context.record->places->push_back(place);
}

void noteEffect(Statement& statement, BlockEffect effect, std::string_view text) {
    const Token* const place = statement.cursor.place();
    switch (effect) {
        case BlockEffect::Opens:
            noteFact(statement, Fact::Kind::opens, text.starts_with("if ") ? "if" : "", place);
            break;
        case BlockEffect::Closes: noteFact(statement, Fact::Kind::closes, {}, place); break;
        case BlockEffect::Continues: noteFact(statement, Fact::Kind::continues, {}, place); break;
        default: break;
    }
}

OpenConstruct::OpenConstruct(Statement& statement) : context_(statement.context) {
    if (++context_.nesting > context_.limits.expressionNesting) {
        refuse(statement, Message::NestedTooDeeply);
    }
}

void joinItems(const TextList& items, ExpressionText& out) {
    for (std::size_t i = 0; i < items.size(); ++i) {
        out += i == 0 ? "" : ", ";
        out += items[i];
    }
}

void formatList(const TextList& items, bool collapseSingle, ExpressionText& out) {
    const bool isBare = collapseSingle && items.size() == 1;
    out += isBare ? "" : "[";
    joinItems(items, out);
    out += isBare ? "" : "]";
}

}  // namespace torvel
