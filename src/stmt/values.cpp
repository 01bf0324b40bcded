#include "src/stmt/values.h"

#include <array>

#include "src/expr/axis-lists.h"
#include "src/expr/expressions.h"
#include "src/expr/strings.h"
#include "src/stmt/callbacks.h"
#include "src/stmt/drive-memory.h"

namespace torvel {

namespace {

/// What is told of the values that have no conversion, by kind of token.
constexpr auto refusals = [] {
    std::array<std::optional<Message>, tokenTypeCount> table{};
#define VALUE(token, message) \
    table[static_cast<std::uint32_t>(TokenType::token)] = Message::message;
#include "src/stmt/values.def"
    return table;
}();

/// FILESIZE file, FILESIZE ( file ): the file's name, or its handle
/// FileSize(file)
bool translateFileSize(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    cursor.advance();
    out += "FileSize(";
    const bool isParenthesised = acceptToken(cursor, TokenType::LEFT_PAREN);
    if (beginsString(cursor) ? !translateStringExpression(context, cursor, out)
                             : !translateExpression(context, cursor, out)) {
        return false;
    }
    out += ')';
    return !isParenthesised || expectToken(context, cursor, TokenType::RIGHT_PAREN);
}

/// FLASHPARAM axis GET number
/// DriveFlashParameterRead(axis, number)
bool translateFlashParameter(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    cursor.advance();
    out += "DriveFlashParameterRead(";
    if (!translateSingleAxis(context, cursor, out) ||
        !expectToken(context, cursor, TokenType::GET)) {
        return false;
    }
    out += ", ";
    if (!translateExpression(context, cursor, out)) {
        return false;
    }
    out += ')';
    return true;
}

}  // namespace

bool translateAssignmentValue(ConversionContext& context, TokenCursor& cursor,
                              ExpressionText& out) {
    switch (cursor.type()) {
        case TokenType::DBLTOSTR:
        case TokenType::STRMID:
        case TokenType::STRUPR:
        case TokenType::STRLWR: return translateStringExpression(context, cursor, out);
        case TokenType::CALLBACK: return translateCallback(context, cursor, out);
        case TokenType::FILESIZE: return translateFileSize(context, cursor, out);
        case TokenType::DSPMEM: return translateDriveMemoryRead(context, cursor, out);
        case TokenType::FLASHPARAM: return translateFlashParameter(context, cursor, out);
        default: break;
    }
    if (const auto refusal = refusals[static_cast<std::uint32_t>(cursor.type())]) {
        return logConversionMessage(context, *refusal);
    }
    return translateExpression(context, cursor, out);
}

}  // namespace torvel
