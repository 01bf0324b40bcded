#include "src/stmt/axis-words.h"

#include "src/expr/axis-lists.h"
#include "src/expr/expressions.h"
#include "src/lex/characters.h"

namespace torvel {

namespace {

constexpr TokenType wordBeginnings[] = {
    TokenType::AXIS_DEFINE, TokenType::AXIS_NAME, TokenType::PERCENT,  TokenType::AT,
    TokenType::LETTER_E,    TokenType::LETTER_F,  TokenType::LETTER_I, TokenType::LETTER_J,
    TokenType::LETTER_K,    TokenType::LETTER_L,  TokenType::LETTER_O, TokenType::LETTER_P,
    TokenType::LETTER_Q,    TokenType::LETTER_R,  TokenType::LETTER_S, TokenType::LETTER_T,
};

}  // namespace

bool readAxisWord(ConversionContext& context, TokenCursor& cursor, AxisWord& word) {
    if (cursor.atEnd()) {
        return logConversionMessage(context, Message::AxisPointOrWordExpected);
    }
    if (!isOneOf(cursor.type(), wordBeginnings)) {
        return reportUnexpectedToken(context, cursor, wordBeginnings);
    }
    word.isAxis = !isAddressLetter(cursor.type());
    if (word.isAxis) {
        if (!translateSingleAxis(context, cursor, word.name)) {
            return false;
        }
    } else {
        word.name = upperCase(cursor.text()[0]);
        cursor.advance();
    }
    acceptToken(cursor, TokenType::ASSIGN);
    return translateExpression(context, cursor, word.value);
}

bool readAxisPoints(ConversionContext& context, TokenCursor& cursor, std::vector<AxisWord>& words) {
    while (!cursor.atEnd()) {
        if (!readAxisWord(context, cursor, words.emplace_back())) {
            return false;
        }
    }
    return true;
}

}  // namespace torvel
