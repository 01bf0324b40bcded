#include "src/stmt/drive-memory.h"

#include "src/expr/axis-lists.h"
#include "src/expr/expressions.h"

namespace torvel {

namespace {

constexpr TokenType memoryTypes[] = {TokenType::INT32, TokenType::LONG, TokenType::FLOAT,
                                     TokenType::SINGLE, TokenType::DOUBLE};

/// axis type [,] address
/// `call`Int32(axis, address, with the ")" or further arguments left to the caller
bool writeMemoryPlace(ConversionContext& context, TokenCursor& cursor, std::string_view call,
                      ExpressionText& out) {
    ExpressionText axis;
    if (!translateSingleAxis(context, cursor, axis)) {
        return false;
    }
    const TokenType type = cursor.type();
    if (!expectToken(context, cursor, memoryTypes)) {
        return false;
    }
    out += call;
    switch (type) {
        case TokenType::INT32:
        case TokenType::LONG: out += "Int32("; break;
        case TokenType::DOUBLE: out += "Float64("; break;
        default: out += "Float32("; break;
    }
    out += axis;
    out += ", ";
    acceptToken(cursor, TokenType::COMMA);
    return translateExpression(context, cursor, out);
}

}  // namespace

/// DSPMEM axis type [,] address [,] value
/// DriveMemoryWriteInt32 | Float32 | Float64(axis, address, value)
bool convertDriveMemoryWrite(Statement& statement) {
    statement.cursor.advance();
    if (!writeMemoryPlace(statement.context, statement.cursor, "DriveMemoryWrite",
                          statement.text)) {
        return false;
    }
    accept(statement, TokenType::COMMA);
    if (!writeExpression(statement, ", ")) {
        return false;
    }
    statement.text += ')';
    return true;
}

/// value DSPMEM axis type [,] address
/// DriveMemoryReadInt32 | Float32 | Float64(axis, address)
bool translateDriveMemoryRead(ConversionContext& context, TokenCursor& cursor,
                              ExpressionText& out) {
    cursor.advance();
    if (!writeMemoryPlace(context, cursor, "DriveMemoryRead", out)) {
        return false;
    }
    out += ')';
    return true;
}

}  // namespace torvel
