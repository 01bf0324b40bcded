#include "src/stmt/values.h"

#include <array>

#include "src/expr/expressions.h"
#include "src/expr/form.h"
#include "src/expr/strings.h"
#include "src/stmt/routines.h"

namespace torvel {

namespace {

constexpr Form forms[] = {
#define VALUE_FORM(token, pattern, text) makeForm("", pattern, text),
#include "src/stmt/values.def"
};

/// How a value is translated; without any of these it is an expression.
struct Value {
    const Form* form = nullptr;
    std::optional<Message> refusal;
    void (*translate)(Statement&, ExpressionText&) = nullptr;
};

/// By the kind of token that begins it.
constexpr auto values = [] {
    std::array<Value, tokenTypeCount> table{};
    const Form* form = forms;
#define VALUE(token, message) \
    table[static_cast<std::uint32_t>(TokenType::token)] = {nullptr, Message::message, nullptr};
#define VALUE_FORM(token, pattern, text) \
    table[static_cast<std::uint32_t>(TokenType::token)] = {form++, {}, nullptr};
#define VALUE_ROUTINE(token, translate) \
    table[static_cast<std::uint32_t>(TokenType::token)] = {nullptr, {}, translate};
#include "src/stmt/values.def"
    return table;
}();

}  // namespace

/// FILESIZE file, FILESIZE ( file ): the file's name, or its handle
/// FileSize(file)
void translateFileSize(Statement& statement, ExpressionText& out) {
    statement.cursor.advance();
    out += "FileSize(";
    const bool isParenthesised = acceptToken(statement, TokenType::LEFT_PAREN);
    if (beginsString(statement.cursor)) {
        translateStringExpression(statement, out);
    } else {
        translateExpression(statement, out);
    }
    if (isParenthesised) {
        expectToken(statement, TokenType::RIGHT_PAREN);
    }
    out += ')';
}

void translateAssignmentValue(Statement& statement, ExpressionText& out) {
    const Value& value = values[static_cast<std::uint32_t>(statement.cursor.type())];
    if (value.refusal) {
        refuse(statement, *value.refusal);
    } else if (value.form != nullptr) {
        statement.cursor.advance();
        writeForm(statement, *value.form, out);
    } else if (value.translate != nullptr) {
        value.translate(statement, out);
    } else {
        translateExpression(statement, out);
    }
}

}  // namespace torvel
