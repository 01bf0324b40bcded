#include "src/stmt/axis-words.h"

#include "src/base/characters.h"
#include "src/expr/axis-lists.h"
#include "src/expr/expressions.h"

namespace torvel {

namespace {

constexpr TokenType wordBeginnings[] = {
    TokenType::AXIS_DEFINE, TokenType::AXIS_NAME, TokenType::PERCENT,  TokenType::AT,
    TokenType::LETTER_E,    TokenType::LETTER_F,  TokenType::LETTER_I, TokenType::LETTER_J,
    TokenType::LETTER_K,    TokenType::LETTER_L,  TokenType::LETTER_O, TokenType::LETTER_P,
    TokenType::LETTER_Q,    TokenType::LETTER_R,  TokenType::LETTER_S, TokenType::LETTER_T,
};

}  // namespace

AxisWord readAxisWord(Statement& statement) {
    AxisWord word;
    const TokenType type = statement.cursor.type();
    if (statement.cursor.atEnd()) {
        refuse(statement, Message::AxisPointOrWordExpected);
    } else if (!isOneOf(type, wordBeginnings)) {
        reportUnexpectedToken(statement, wordBeginnings);
    } else if (isAddressLetter(type)) {
        word.name += upperCase(statement.cursor.text()[0]);
        statement.cursor.advance();
    } else {
        word.isAxis = true;
        translateSingleAxis(statement, word.name);
    }
    acceptToken(statement, TokenType::ASSIGN);
    translateExpression(statement, word.value);
    return word;
}

}  // namespace torvel
