// The lexer goes through a line once from left to right. The first byte of a token decides its kind:
// a letter, "_" or "#" begins a word, a digit a number, the rest is punctuation. A word is, in this
// order: a G-code word, an address letter, a keyword, an axis feedrate specifier, an axis name, an
// axis name glued to a number, an identifier.

#include "src/lex/lexer.h"

#include <algorithm>
#include <string>

#include "src/lex/characters.h"
#include "src/lex/keywords.h"
#include "src/lex/messages.h"
#include "src/lex/parse-exception.h"

namespace torvel {

namespace {

/// The kind of a word that is this one letter; TokenType::INVALID for H and for letters outside E to T.
TokenType addressLetterKind(char letter) {
    constexpr std::string_view letters = "EFGIJKLMNOPQRST";
    const std::size_t index = letters.find(upperCase(letter));
    return index == std::string_view::npos
               ? TokenType::INVALID
               : static_cast<TokenType>(static_cast<std::size_t>(TokenType::LETTER_E) + index);
}

class Lexer {
public:
    Lexer(Program& program, LineList& list, const AxisNames& axes, TextSpan code,
          const SourcePosition& position)
        : program_(program),
          list_(list),
          axes_(axes),
          position_(position),
          code_(code),
          begin_(program.text.view(code).data()),
          next_(begin_),
          end_(begin_ + code.length),
          wordEnd_(begin_) {}

    void run() {
        while (next_ != end_) {
            if (isBlank(*next_)) {
                ++next_;
            } else {
                list_.tokens.push_back(readToken());
            }
        }
    }

private:
    Token readToken() {
        const char c = *next_;
        if (isLetter(c) || c == '_' || c == '#') {
            return readWord();
        }
        return isDigit(c) ? readNumber() : readPunctuation();
    }

    /// The byte `distance` after the current one; NUL behind the end.
    char peek(std::ptrdiff_t distance = 1) const {
        return end_ - next_ > distance ? next_[distance] : '\0';
    }

    /// A token of the text from the current byte up to `last`, where reading goes on.
    Token take(TokenType type, const char* last) {
        const char* first = next_;
        next_ = last;
        return {type, code_.part(static_cast<std::size_t>(first - begin_),
                                 static_cast<std::size_t>(last - first))};
    }
    Token take(TokenType type, std::ptrdiff_t length) { return take(type, next_ + length); }

    /// A token of another text than it has in the source, up to `last`.
    Token takeAs(TokenType type, const std::string& text, const char* last) {
        next_ = last;
        return {type, program_.text.add(text)};
    }

    template <typename Predicate>
    const char* endOfRun(const char* from, Predicate predicate) const {
        return std::find_if_not(from, end_, predicate);
    }

    /// Where the word at the current byte ends. A word that is cut into many tokens is measured once.
    const char* endOfWord() {
        if (next_ >= wordEnd_) {
            wordEnd_ = endOfRun(next_ + 1, isWordCharacter);
        }
        return wordEnd_;
    }

    Token readWord() {
        const char following = peek();
        if ((*next_ == 'G' || *next_ == 'g') && isDigit(following)) {
            return take(TokenType::GCODE_WORD, endOfRun(next_ + 1, isDigit));
        }
        if (!isLetter(following) && following != '_') {
            if (const TokenType letter = addressLetterKind(*next_); letter != TokenType::INVALID) {
                return take(letter, 1);
            }
        }
        const std::string_view word(next_, static_cast<std::size_t>(endOfWord() - next_));
        if (const TokenType keyword = keywordKind(word); keyword != TokenType::INVALID) {
            return take(keyword, wordEnd_);
        }
        if (const std::size_t length = axisFeedrateLength(word); length != 0) {
            return readAxisFeedrate(word.substr(0, length));
        }
        // "X10" is the axis X and 10.
        if (const std::size_t length = axes_.lengthAt(word); length != 0) {
            return take(TokenType::AXIS_NAME, next_ + length);
        }
        return take(TokenType::IDENTIFIER, wordEnd_);
    }

    /// The length of AXISF at the end of the word or before a digit; 0 if it does not begin so.
    std::size_t axisFeedrateLength(std::string_view word) const {
        const std::size_t bound = std::min(word.size(), axes_.longestName() + 1);
        for (std::size_t i = 1; i < bound; ++i) {
            if (upperCase(word[i]) == 'F') {
                const bool isComplete = i + 1 == word.size() || isDigit(word[i + 1]);
                return isComplete && axes_.contains(word.substr(0, i)) ? i + 1 : 0;
            }
        }
        return 0;
    }

    /// "XF100" is the specifier XF, its F in upper case, and the number 100.
    Token readAxisFeedrate(std::string_view specifier) {
        const char* last = next_ + specifier.size();
        if (specifier.back() == 'F') {
            return take(TokenType::AXIS_FEEDRATE, last);
        }
        specifier.remove_suffix(1);
        return takeAs(TokenType::AXIS_FEEDRATE, std::string(specifier) + 'F', last);
    }

    Token readNumber() {
        const char following = upperCase(peek());
        if (*next_ == '0' && (following == 'X' || following == 'H')) {
            return readHexadecimal();
        }
        const char* last = endOfRun(next_ + 1, isDigit);
        if (last != end_ && isLetter(*last)) {
            const std::string_view word(next_, static_cast<std::size_t>(last + 1 - next_));
            if (const TokenType keyword = keywordKind(word); keyword != TokenType::INVALID) {
                return take(keyword, last + 1);
            }
        }
        if (last != end_ && *last == '.') {
            return take(TokenType::FLOAT_LITERAL, endOfRun(last + 1, isDigit));
        }
        return take(TokenType::INTEGER_LITERAL, last);
    }

    /// A prefix of two characters ("0x", "0H", "&h") and hexadecimal digits: the text begins "0x".
    Token readHexadecimal() {
        const char* last = endOfRun(next_ + 2, isHexDigit);
        if (next_[0] == '0' && next_[1] == 'x') {
            return take(TokenType::HEX_LITERAL, last);
        }
        return takeAs(TokenType::HEX_LITERAL, "0x" + std::string(next_ + 2, last), last);
    }

    Token readString() {
        const char* quote = std::find(next_ + 1, end_, '"');
        if (quote == end_) {
            throw ParseException(messageText(Message::StringNotTerminated), position_);
        }
        ++next_;
        const Token token = take(TokenType::STRING_LITERAL, quote);
        ++next_;
        return token;
    }

    Token readVariable() {
        const char* last = endOfRun(next_ + 1, isWordCharacter);
        return take(variableKind({next_, static_cast<std::size_t>(last - next_)}), last);
    }

    /// `following` behind the current byte makes a token of two characters, anything else one of one.
    Token takeOneOrTwo(TokenType one, char following, TokenType two) {
        return peek() == following ? take(two, 2) : take(one, 1);
    }

    Token readPunctuation() {
        using enum TokenType;
        switch (*next_) {
            case '"': return readString();
            case '$': return readVariable();
            case '(': return take(LEFT_PAREN, 1);
            case ')': return take(RIGHT_PAREN, 1);
            case '[': return take(LEFT_BRACKET, 1);
            case ']': return take(RIGHT_BRACKET, 1);
            case ',': return take(COMMA, 1);
            case '.': return take(DOT, 1);
            case ':': return take(COLON, 1);
            case '@': return take(AT, 1);
            case '^': return take(CARET, 1);
            case '~': return take(TILDE, 1);
            case '!': return takeOneOrTwo(EXCLAMATION, '=', NOT_EQUAL);
            case '%': return takeOneOrTwo(PERCENT, '=', PERCENT);
            case '/': return takeOneOrTwo(SLASH, '=', SLASH_ASSIGN);
            case '=': return takeOneOrTwo(ASSIGN, '=', EQUAL);
            case '*':
                return peek() == '*' ? take(STAR_STAR, 2) : takeOneOrTwo(STAR, '=', STAR_ASSIGN);
            case '+':
                return peek() == '+' ? take(PLUS_PLUS, 2) : takeOneOrTwo(PLUS, '=', PLUS_ASSIGN);
            case '-':
                return peek() == '-' ? take(MINUS_MINUS, 2)
                                     : takeOneOrTwo(MINUS, '=', MINUS_ASSIGN);
            case '|': return peek() == '|' ? take(BAR_BAR, 2) : takeOneOrTwo(BAR, '=', BAR_ASSIGN);
            case '&': return readAmpersand();
            case '<': return readLess();
            case '>': return readGreater();
            default: throwUnknown();
        }
    }

    Token readAmpersand() {
        const char following = upperCase(peek());
        if (following == 'X' || following == 'H') {
            return readHexadecimal();
        }
        return following == '&'
                   ? take(TokenType::AMPERSAND_AMPERSAND, 2)
                   : takeOneOrTwo(TokenType::AMPERSAND, '=', TokenType::AMPERSAND_ASSIGN);
    }

    Token readLess() {
        switch (peek()) {
            case '=': return take(TokenType::LESS_EQUAL, 2);
            case '>': return take(TokenType::NOT_EQUAL, 2);
            case '<':
                return peek(2) == '=' ? take(TokenType::SHIFT_LEFT_ASSIGN, 3)
                                      : take(TokenType::SHIFT_LEFT, 2);
            default: return take(TokenType::LESS, 1);
        }
    }

    Token readGreater() {
        switch (peek()) {
            case '=': return take(TokenType::GREATER_EQUAL, 2);
            case '>':
                return peek(2) == '=' ? take(TokenType::SHIFT_RIGHT_ASSIGN, 3)
                                      : take(TokenType::SHIFT_RIGHT, 2);
            default: return take(TokenType::GREATER, 1);
        }
    }

    [[noreturn]] void throwUnknown() const {
        const int value = static_cast<signed char>(*next_);
        throw ParseException(
            messageText(Message::UnknownToken, {std::string_view(next_, 1), std::to_string(value)}),
            position_);
    }

    Program& program_;
    LineList& list_;
    const AxisNames& axes_;
    const SourcePosition& position_;
    TextSpan code_;
    const char* begin_;
    const char* next_;
    const char* end_;
    const char* wordEnd_;
};

}  // namespace

void lexLine(Program& program, LineList& list, const AxisNames& axes, TextSpan code,
             const SourcePosition& position) {
    Lexer(program, list, axes, code, position).run();
}

}  // namespace torvel
