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

struct VariableName {
    std::string_view name;
    TokenType kind;
};

/// Names that may carry an index as digits behind them.
constexpr VariableName numberedVariables[] = {
    {"$GLOBAL", TokenType::GLOBAL_VARIABLE},   {"$GLOB", TokenType::GLOBAL_VARIABLE},
    {"$TASK", TokenType::TASK_VARIABLE},       {"$INFO", TokenType::INFO_VARIABLE},
    {"$STRGLOB", TokenType::STRGLOB_VARIABLE}, {"$STRTASK", TokenType::STRTASK_VARIABLE},
    {"$APTGLOB", TokenType::APTGLOB_VARIABLE}, {"$APTTASK", TokenType::APTTASK_VARIABLE},
    {"$BO", TokenType::BO_VARIABLE},           {"$BI", TokenType::BI_VARIABLE},
    {"$RO", TokenType::RO_VARIABLE},           {"$RI", TokenType::RI_VARIABLE},
    {"$DO", TokenType::DO_VARIABLE},           {"$DI", TokenType::DI_VARIABLE},
    {"$WO", TokenType::WO_VARIABLE},           {"$WI", TokenType::WI_VARIABLE},
    {"$AO", TokenType::AO_VARIABLE},           {"$AI", TokenType::AI_VARIABLE},
    {"$PORT", TokenType::PORT_VARIABLE},       {"$TASKINDEX", TokenType::TASKINDEX_VARIABLE},
};

/// Names that are compared whole: with digits behind them they are user variables.
constexpr VariableName wholeVariables[] = {
    {"$RETURN", TokenType::RETURN_VARIABLE},
    {"$PGLOBAL", TokenType::SYSTEM_PARAMETER},
    {"$PGLOB", TokenType::SYSTEM_PARAMETER},
    {"$PAXIS", TokenType::AXIS_PARAMETER},
    {"$PTASK", TokenType::TASK_PARAMETER},
    {"$SYSTEMSTATUS", TokenType::SYSTEMSTATUS_VARIABLE},
    {"$AXISSTATUS", TokenType::AXISSTATUS_VARIABLE},
    {"$TASKSTATUS", TokenType::TASKSTATUS_VARIABLE},
};

constexpr std::size_t longestVariable = std::string_view("$SYSTEMSTATUS").size();

bool equalsUpperCased(std::string_view word, std::string_view upper) {
    return word.size() == upper.size() &&
           std::equal(word.begin(), word.end(), upper.begin(),
                      [](char c, char u) { return upperCase(c) == u; });
}

template <std::size_t count>
TokenType findVariable(const VariableName (&names)[count], std::string_view word) {
    for (const VariableName& variable : names) {
        if (equalsUpperCased(word, variable.name)) {
            return variable.kind;
        }
    }
    return TokenType::VARIABLE;
}

TokenType variableKind(std::string_view word) {
    const std::string_view bare = word.substr(0, word.size() - trailingDigits(word).size());
    if (bare.size() > longestVariable) {
        return TokenType::VARIABLE;
    }
    const TokenType numbered = findVariable(numberedVariables, bare);
    return numbered != TokenType::VARIABLE ? numbered : findVariable(wholeVariables, word);
}

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
            const char c = *next_;
            if (isBlank(c)) {
                ++next_;
            } else if (isLetter(c) || c == '_' || c == '#') {
                readWord();
            } else if (isDigit(c)) {
                readNumber();
            } else {
                readPunctuation();
            }
        }
    }

private:
    /// The byte `distance` after the current one; NUL behind the end.
    char peek(std::ptrdiff_t distance = 1) const {
        return end_ - next_ > distance ? next_[distance] : '\0';
    }

    void append(TokenType type, TextSpan text) { list_.tokens.push_back({type, text}); }

    /// Makes a token of the text from the current byte up to `last`, which is where reading goes on.
    void take(TokenType type, const char* last) {
        append(type, code_.part(static_cast<std::size_t>(next_ - begin_),
                                static_cast<std::size_t>(last - next_)));
        next_ = last;
    }
    void take(TokenType type, std::ptrdiff_t length) { take(type, next_ + length); }

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

    void readWord() {
        const char following = peek();
        if ((*next_ == 'G' || *next_ == 'g') && isDigit(following)) {
            take(TokenType::GCODE_WORD, endOfRun(next_ + 1, isDigit));
            return;
        }
        if (!isLetter(following) && following != '_') {
            if (const TokenType letter = addressLetterKind(*next_); letter != TokenType::INVALID) {
                take(letter, 1);
                return;
            }
        }
        const std::string_view word(next_, static_cast<std::size_t>(endOfWord() - next_));
        if (const TokenType keyword = keywordKind(word); keyword != TokenType::INVALID) {
            take(keyword, wordEnd_);
        } else if (!readAxisFeedrate(word) && !readAxis(word)) {
            take(TokenType::IDENTIFIER, wordEnd_);
        }
    }

    /// AXISF at the end of a word or before a digit: "XF100" is the specifier XF and the number 100.
    bool readAxisFeedrate(std::string_view word) {
        const std::size_t bound = std::min(word.size(), axes_.longestName() + 1);
        for (std::size_t i = 1; i < bound; ++i) {
            if (upperCase(word[i]) != 'F') {
                continue;
            }
            const bool complete = i + 1 == word.size() || isDigit(word[i + 1]);
            if (!complete || !axes_.contains(word.substr(0, i))) {
                return false;
            }
            if (word[i] == 'F') {
                take(TokenType::AXIS_FEEDRATE, next_ + i + 1);
            } else {
                append(TokenType::AXIS_FEEDRATE,
                       program_.text.add(std::string(word.substr(0, i)) + 'F'));
                next_ += i + 1;
            }
            return true;
        }
        return false;
    }

    /// An axis name, or the longest axis name in front of a number: "X10" is the axis X and 10.
    bool readAxis(std::string_view word) {
        if (axes_.contains(word)) {
            take(TokenType::AXIS_NAME, wordEnd_);
            return true;
        }
        for (std::size_t i = std::min(word.size() - 1, axes_.longestName()); i > 0; --i) {
            if (isDigit(word[i]) && axes_.contains(word.substr(0, i))) {
                take(TokenType::AXIS_NAME, next_ + i);
                return true;
            }
        }
        return false;
    }

    void readNumber() {
        const char following = upperCase(peek());
        if (*next_ == '0' && (following == 'X' || following == 'H')) {
            readHexadecimal();
            return;
        }
        const char* last = endOfRun(next_ + 1, isDigit);
        if (last != end_ && isLetter(*last)) {
            const std::string_view word(next_, static_cast<std::size_t>(last + 1 - next_));
            if (const TokenType keyword = keywordKind(word); keyword != TokenType::INVALID) {
                take(keyword, last + 1);
                return;
            }
        }
        if (last != end_ && *last == '.') {
            take(TokenType::FLOAT_LITERAL, endOfRun(last + 1, isDigit));
        } else {
            take(TokenType::INTEGER_LITERAL, last);
        }
    }

    /// A prefix of two characters ("0x", "0H", "&h") and hexadecimal digits: the text begins "0x".
    void readHexadecimal() {
        const char* last = endOfRun(next_ + 2, isHexDigit);
        if (next_[0] == '0' && next_[1] == 'x') {
            take(TokenType::HEX_LITERAL, last);
            return;
        }
        append(TokenType::HEX_LITERAL, program_.text.add("0x" + std::string(next_ + 2, last)));
        next_ = last;
    }

    void readString() {
        const char* quote = std::find(next_ + 1, end_, '"');
        if (quote == end_) {
            throw ParseException(messageText(Message::StringNotTerminated), position_);
        }
        ++next_;
        take(TokenType::STRING_LITERAL, quote);
        ++next_;
    }

    void readVariable() {
        const char* last = endOfRun(next_ + 1, isWordCharacter);
        take(variableKind({next_, static_cast<std::size_t>(last - next_)}), last);
    }

    /// `following` behind the current byte makes a token of two characters, anything else one of one.
    void takeOneOrTwo(TokenType one, char following, TokenType two) {
        if (peek() == following) {
            take(two, 2);
        } else {
            take(one, 1);
        }
    }

    void readPunctuation() {
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

    void readAmpersand() {
        const char following = upperCase(peek());
        if (following == 'X' || following == 'H') {
            readHexadecimal();
        } else if (following == '&') {
            take(TokenType::AMPERSAND_AMPERSAND, 2);
        } else {
            takeOneOrTwo(TokenType::AMPERSAND, '=', TokenType::AMPERSAND_ASSIGN);
        }
    }

    void readLess() {
        switch (peek()) {
            case '=': return take(TokenType::LESS_EQUAL, 2);
            case '>': return take(TokenType::NOT_EQUAL, 2);
            case '<':
                return peek(2) == '=' ? take(TokenType::SHIFT_LEFT_ASSIGN, 3)
                                      : take(TokenType::SHIFT_LEFT, 2);
            default: return take(TokenType::LESS, 1);
        }
    }

    void readGreater() {
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
