// A line is converted in three steps: what may stand in front of a statement (block delete, labels,
// N-codes), the statement by its leading token, and the check that nothing is left of the line.

#include <array>

#include "src/expr/expressions.h"
#include "src/stmt/assignments.h"
#include "src/stmt/declarations.h"
#include "src/stmt/drive-memory.h"
#include "src/stmt/drive.h"
#include "src/stmt/flow-control.h"
#include "src/stmt/forms.h"
#include "src/stmt/gcode.h"
#include "src/stmt/macros.h"
#include "src/stmt/motion.h"
#include "src/stmt/program-control.h"
#include "src/stmt/statement.h"
#include "src/stmt/tasks.h"
#include "src/stmt/values.h"
#include "src/stmt/word-statements.h"

namespace torvel {

namespace {

/// A directive that Torvel has too: its text is the token's.
bool convertConversionText(Statement& statement) {
    statement.text += statement.cursor.text();
    return true;
}

/// A leading token without a row of its own.
bool convertValue(Statement& statement) {
    return translateAssignmentValue(statement.context, statement.cursor, statement.text);
}

/// How a statement is converted.
struct Conversion {
    enum class Kind : std::uint8_t { routine, form, refused, byWord };

    Kind kind = Kind::routine;
    StatementConverter convert = convertValue;
    /// Operands and text of a form; of a statement with a word the operands in front of it.
    std::string_view pattern;
    std::string_view text;
    /// Why it is refused.
    Message message{};
    /// What is told beside the converted text.
    std::optional<Message> advice;
    bool mustEndLine = true;
};

constexpr auto leadingTokens = [] {
    std::array<Conversion, tokenTypeCount> table{};
    using Kind = Conversion::Kind;
    const auto at = [&](TokenType type) -> Conversion& {
        return table[static_cast<std::uint32_t>(type)];
    };
#define STATEMENT(token, converter) \
    at(TokenType::token) = {Kind::routine, converter, {}, {}, {}, {}, true};
#define UNCHECKED(token, converter) \
    at(TokenType::token) = {Kind::routine, converter, {}, {}, {}, {}, false};
#define FORM(token, pattern, text) \
    at(TokenType::token) = {Kind::form, nullptr, pattern, text, {}, {}, true};
#define FORM_ADVISED(token, pattern, text, message) \
    at(TokenType::token) = {Kind::form, nullptr, pattern, text, {}, Message::message, true};
#define REFUSED(token, message) \
    at(TokenType::token) = {Kind::refused, nullptr, {}, {}, Message::message, {}, true};
#define BY_WORD(token, pattern) \
    at(TokenType::token) = {Kind::byWord, nullptr, pattern, {}, {}, {}, true};
#include "src/stmt/statements.def"
    return table;
}();

bool convertBy(Statement& statement, const Conversion& conversion) {
    switch (conversion.kind) {
        case Conversion::Kind::routine: return conversion.convert(statement);
        case Conversion::Kind::refused: return refuse(statement, conversion.message);
        case Conversion::Kind::byWord: return convertByWord(statement, conversion.pattern);
        default:
            statement.cursor.advance();
            return writeForm(statement, conversion.pattern, conversion.text, {}, conversion.advice);
    }
}

/// "/" [level] ["/" [level]] in front of a statement that could be skipped.
bool skipBlockDelete(Statement& statement) {
    TokenCursor& cursor = statement.cursor;
    advise(statement, Message::BlockDelete);
    cursor.advance();
    if (accept(statement, TokenType::SLASH)) {
        return expect(statement, TokenType::INTEGER_LITERAL);
    }
    accept(statement, TokenType::INTEGER_LITERAL);
    if (accept(statement, TokenType::SLASH)) {
        accept(statement, TokenType::INTEGER_LITERAL);
    }
    return true;
}

/// name ":" or ":" name, on a line of its own in front of the statement; or N number, in front of it.
bool writeLabel(Statement& statement) {
    TokenCursor& cursor = statement.cursor;
    bool isLabel = true;
    switch (cursor.type()) {
        case TokenType::IDENTIFIER:
            statement.text += cursor.text();
            cursor.advance();
            if (!expect(statement, TokenType::COLON)) {
                return false;
            }
            statement.text += ":\n";
            break;
        case TokenType::COLON: {
            cursor.advance();
            const auto name = expectToken(statement.context, cursor, TokenType::IDENTIFIER);
            if (!name) {
                return false;
            }
            statement.text += *name;
            statement.text += ':';
            break;
        }
        case TokenType::LETTER_N: {
            statement.text += cursor.text();
            cursor.advance();
            const auto number = expectToken(statement.context, cursor, TokenType::INTEGER_LITERAL);
            if (!number) {
                return false;
            }
            statement.text += *number;
            isLabel = false;
            break;
        }
        default: return true;
    }
    if (isLabel && !cursor.atEnd()) {
        statement.text += '\n';
    }
    return true;
}

bool expectEnd(Statement& statement) {
    return statement.cursor.atEnd() || reportUnexpectedToken(statement.context, statement.cursor);
}

/// The statement itself and the check of the line's end.
bool dispatch(Statement& statement) {
    const TokenType type = statement.cursor.type();
    if (type == macroDefinitionToken) {
        return convertMacroDefinition(
            statement, statement.context.program.macros[statement.cursor.token().text.offset]);
    }
    if (type == macroCallToken) {
        return convertMacroCall(statement) && expectEnd(statement);
    }
    const Conversion& conversion = leadingTokens[static_cast<std::uint32_t>(type)];
    return convertBy(statement, conversion) && (!conversion.mustEndLine || expectEnd(statement));
}

bool convert(Statement& statement) {
    const TokenCursor& cursor = statement.cursor;
    if (cursor.atEnd() || cursor.is(TokenType::PERCENT)) {
        return true;
    }
    if (cursor.is(TokenType::SLASH) && !skipBlockDelete(statement)) {
        return false;
    }
    if (!writeLabel(statement)) {
        return false;
    }
    return cursor.atEnd() || dispatch(statement);
}

}  // namespace

bool convertStatement(ConversionContext& context, std::span<const Token> tokens,
                      StatementText& text, BlockEffect& effect) {
    text.clear();
    Statement statement{context, TokenCursor(context.program, tokens), text};
    const bool isConverted = convert(statement);
    effect = statement.effect;
    return isConverted;
}

bool writeExpression(Statement& statement, std::string_view lead) {
    statement.text += lead;
    return translateExpression(statement.context, statement.cursor, statement.text);
}

}  // namespace torvel
