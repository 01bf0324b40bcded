#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "src/expr/parser-core.h"
#include "src/expr/variables.h"

// Checks of numbers whose value counted when the program was converted. All do nothing where nobody asks.

namespace torvel {

/// What the site calls the item with a number that the program wrote; nothing if there is no row for it, or if a
/// predefined constant gave the number. The number's tokens are those from `first` up to the cursor.
std::optional<std::string_view> findReferenceRow(const Statement& statement, ReferenceKind kind,
                                                 std::uint32_t number, const Token* first);

/// The number chose a row of a table that names an item, which is told to who asks for names too.
void checkItemNumber(Statement& statement, ItemTable table, std::string_view text,
                     const Token* first);

/// The number chose a row of a table: octal, or composed and written in the program. `text` is the number as
/// Torvel text, its tokens are those from `first` up to the cursor.
void checkRowNumber(Statement& statement, ItemTable table, std::string_view text,
                    const Token* first);

/// The value of a number without its leading zeros, where that is another value; nothing otherwise.
std::optional<std::int32_t> readWithoutZeros(std::string_view text);
inline std::optional<std::int32_t> decimalReading(std::string_view text) {
    const bool mayHaveZeros =
        text.size() > 1 && (text[0] == '0' || text[0] == '-' || text[0] == '+');
    return mayHaveZeros ? readWithoutZeros(text) : std::nullopt;
}

/// The value of the number counted, and another one would have made another text.
void checkOctal(const Statement& statement, std::string_view text, const Token* first);

/// Whether there may be something to say of the current token if it is printed as it is: it is a number, and does not
/// stand in the line itself, as those of the program do.
inline bool needsNumberCheck(const Statement& statement) {
    const CheckRecord* const record = statement.context.record;
    if (record == nullptr) [[likely]] {
        return false;
    }
    const TokenCursor& cursor = statement.cursor;
    return cursor.is(TokenType::NUMBER_DEFINE) ||
           ((cursor.is(TokenType::INTEGER_LITERAL) || cursor.is(TokenType::HEX_LITERAL)) &&
            !cursor.token().text.isWithin(record->lineText));
}

/// The current token, such a number, is printed as it is. There is a record.
void checkPrintedNumber(Statement& statement);

/// Where commas may be left out, the operand of the tokens from `first` up to the cursor holds a sign with a blank
/// in front of it and none behind it.
void checkJoinedBySign(Statement& statement, const Token* first);

}  // namespace torvel
