// The lexer goes through a line once from left to right. The first byte of a token decides its kind:
// a letter, "_" or "#" begins a word, a digit a number, the rest is punctuation. A word is, in this
// order: a G-code word, an address letter, a keyword, an axis feedrate specifier, an axis name, an
// axis name glued to a number, an identifier.

#include "src/lex/lexer.h"

#include <algorithm>
#include <array>
#include <bit>
#include <string>

#include "src/base/byte-block.h"
#include "src/base/characters.h"
#include "src/base/messages.h"
#include "src/base/parse-exception.h"
#include "src/lex/keywords.h"

namespace torvel {

namespace {

/// The kinds of words that are one letter, by the letter; TokenType::INVALID for H and for letters outside E to T.
constexpr std::array<TokenType, 256> addressLetters = []() {
    std::array<TokenType, 256> kinds{};
    auto kind = static_cast<std::uint32_t>(TokenType::LETTER_E);
    for (const char letter : std::string_view("EFGIJKLMNOPQRST")) {
        kinds[static_cast<unsigned char>(letter)] = TokenType{kind};
        kinds[static_cast<unsigned char>(lowerCase(letter))] = TokenType{kind};
        ++kind;
    }
    return kinds;
}();

/// The kind of a G-code word or an address letter, told by its first byte and the one behind it;
/// TokenType::INVALID for any other word.
TokenType letterKind(char first, char following) {
    if ((first == 'G' || first == 'g') && isDigit(following)) {
        return TokenType::GCODE_WORD;
    }
    return hasClass(following, letterClass | underscoreClass)
               ? TokenType::INVALID
               : addressLetters[static_cast<unsigned char>(first)];
}

/// The length of AXISF at the end of the word or before a digit; 0 if it does not begin so.
std::size_t axisFeedrateLength(std::string_view word, const AxisNames& axes) {
    const std::size_t bound = std::min(word.size(), axes.longestName() + 1);
    for (std::size_t i = 1; i < bound; ++i) {
        if (upperCase(word[i]) == 'F') {
            const bool isComplete = i + 1 == word.size() || isDigit(word[i + 1]);
            return isComplete && axes.contains(word.substr(0, i)) ? i + 1 : 0;
        }
    }
    return 0;
}

/// The first token of a word: its kind and its length.
struct WordStart {
    TokenType type;
    std::size_t length;
};

/// For a word that begins with neither a G-code word nor an address letter.
WordStart startOfWord(std::string_view word, const AxisNames& axes) {
    if (const TokenType keyword = keywordKind(word); keyword != TokenType::INVALID) {
        return {keyword, word.size()};
    }
    if (axes.mayBegin(word[0])) {
        if (const std::size_t length = axisFeedrateLength(word, axes); length != 0) {
            return {TokenType::AXIS_FEEDRATE, length};
        }
        // "X10" is the axis X and 10.
        if (const std::size_t length = axes.lengthAt(word); length != 0) {
            return {TokenType::AXIS_NAME, length};
        }
    }
    return {TokenType::IDENTIFIER, word.size()};
}

/// What a byte begins.
enum class Start : std::uint8_t { punctuation, single, blank, word, number, string };

/// The kinds of token that a single character is whatever follows.
constexpr std::array<TokenType, 256> singles = []() {
    std::array<TokenType, 256> kinds{};
    using enum TokenType;
    kinds['('] = LEFT_PAREN;
    kinds[')'] = RIGHT_PAREN;
    kinds['['] = LEFT_BRACKET;
    kinds[']'] = RIGHT_BRACKET;
    kinds[','] = COMMA;
    kinds['.'] = DOT;
    kinds[':'] = COLON;
    kinds['@'] = AT;
    kinds['^'] = CARET;
    kinds['~'] = TILDE;
    return kinds;
}();

constexpr std::array<Start, 256> starts = []() {
    std::array<Start, 256> table{};
    for (unsigned c = 0; c < table.size(); ++c) {
        const char character = static_cast<char>(c);
        if (isDigit(character)) {
            table[c] = Start::number;
        } else if (hasClass(character, wordStartClasses)) {
            table[c] = Start::word;
        } else if (isBlank(character)) {
            table[c] = Start::blank;
        } else if (character == '"') {
            table[c] = Start::string;
        } else if (singles[c] != TokenType::INVALID) {
            table[c] = Start::single;
        }
    }
    return table;
}();

/// A token that was read: its kind and the place behind it.
struct Lexeme {
    TokenType type;
    const char* last;
};

/// Where the text comes from that is lexed: it is asked for only where the text has a fault.
struct LinePlace {
    SourcePosition known;
    /// Null: it is the known one.
    const LineList* list = nullptr;
    std::size_t line = 0;

    SourcePosition position() const { return list != nullptr ? list->positionOf(line) : known; }
};

/// Each reader takes the place of a token's first byte.
class Lexer {
public:
    Lexer(const TextStore& text, const AxisNames& axes, const LinePlace& place,
          GrowingArray<Token>& tokens)
        : text_(text), axes_(axes), place_(place), tokens_(tokens), room_(tokens.makeRoom()) {}

    void lex(TextSpan code) {
        const char* next = text_.view(code).data();
        const char* const end = next + code.length;
        // A place in the text is as far everywhere in a code from the lower half of the place in memory.
        const std::uint32_t bias = code.offset - addressOf(next);
        const auto place = [bias](const char* first, const char* last) {
            return TextSpan{addressOf(first) + bias, static_cast<std::uint32_t>(last - first)};
        };
        Room room = room_;
        end_ = end;
        wordEnd_ = next;
        while (next < end) {
            const auto byte = static_cast<unsigned char>(*next);
            Lexeme lexeme{};
            switch (starts[byte]) {
                case Start::blank: ++next; continue;
                case Start::single: lexeme = {singles[byte], next + 1}; break;
                case Start::word: lexeme = readWord(next); break;
                case Start::number: lexeme = readNumber(next); break;
                case Start::punctuation: lexeme = readPunctuation(next); break;
                case Start::string: {
                    const char* const quote = findQuote(next + 1);
                    append(room, {TokenType::STRING_LITERAL, {place(next + 1, quote)}});
                    next = quote + 1;
                    continue;
                }
            }
            append(room, {lexeme.type, {place(next, lexeme.last)}});
            next = lexeme.last;
            if (*next == ' ') {
                ++next;
            }
        }
        room_ = room;
    }

    void append(const Token& token) { append(room_, token); }

    /// The tokens count from now on, and are those of a line.
    LineTokens finishLine() {
        constexpr Token end{TokenType::END_OF_FILE, {}};
        for (std::size_t i = 0; i < LineTokens::endTokens; ++i) {
            append(end);
        }
        tokens_.endAt(room_.next - LineTokens::endTokens);
        return {{tokens_.data(), tokens_.size()}};
    }

    /// The tokens count from now on.
    void finish() { tokens_.endAt(room_.next); }

private:
    /// The byte `distance` behind `at`; NUL behind the end.
    char peek(const char* at, std::ptrdiff_t distance = 1) const {
        return end_ - at > distance ? at[distance] : '\0';
    }

    using Room = GrowingArray<Token>::Room;

    void append(Room& room, const Token& token) {
        if (room.next == room.limit) [[unlikely]] {
            tokens_.endAt(room.next);
            room = tokens_.makeRoom();
        }
        *room.next++ = token;
    }

    static std::uint32_t addressOf(const char* at) {
        return static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(at));
    }

    /// Where the bytes end that begin at `from` and are of the kind that `areOf` tells of a block.
    template <typename AreOf>
    const char* endOfRun(const char* from, AreOf areOf) const {
        while (true) {
            const auto length = static_cast<unsigned>(std::countr_one(areOf(ByteBlock(from))));
            if (length < ByteBlock::size) {
                return std::min(from + length, end_);
            }
            if (end_ - from <= static_cast<std::ptrdiff_t>(ByteBlock::size)) {
                return end_;
            }
            from += ByteBlock::size;
        }
    }
    const char* endOfDigits(const char* from) const {
        return endOfRun(from, [](const ByteBlock& block) { return block.digits(); });
    }
    const char* endOfWordCharacters(const char* from) const {
        return endOfRun(from, [](const ByteBlock& block) { return block.wordCharacters(); });
    }

    /// Where the word at `first` ends. A word that holds many tokens is measured once.
    const char* endOfWord(const char* first) {
        if (first >= wordEnd_) {
            wordEnd_ = endOfWordCharacters(first + 1);
        }
        return wordEnd_;
    }

    Lexeme readWord(const char* first) {
        const char following = peek(first);
        const TokenType letter = letterKind(*first, following);
        if (letter != TokenType::INVALID) {
            return {letter, letter == TokenType::GCODE_WORD ? endOfDigits(first + 1) : first + 1};
        }
        if (axes_.isLetter(*first) && !hasClass(following, letterClass | underscoreClass)) {
            return {TokenType::AXIS_NAME, first + 1};
        }
        const char* last = endOfWord(first);
        const std::string_view word(first, static_cast<std::size_t>(last - first));
        const WordStart start = startOfWord(word, axes_);
        return {start.type, first + start.length};
    }

    Lexeme readNumber(const char* first) {
        const char* last = endOfDigits(first + 1);
        if (last != end_) {
            if (isLetter(*last)) {
                const char letter = upperCase(*last);
                if (last == first + 1 && *first == '0' && (letter == 'X' || letter == 'H')) {
                    return readHexadecimal(first);
                }
                const std::string_view word(first, static_cast<std::size_t>(last + 1 - first));
                if (const TokenType keyword = keywordKind(word); keyword != TokenType::INVALID) {
                    return {keyword, last + 1};
                }
            } else if (*last == '.') {
                return {TokenType::FLOAT_LITERAL, endOfDigits(last + 1)};
            }
        }
        return {TokenType::INTEGER_LITERAL, last};
    }

    /// A prefix of two characters ("0x", "0H", "&h") and hexadecimal digits.
    Lexeme readHexadecimal(const char* first) {
        const char* last = first + 2;
        while (last != end_ && isHexDigit(*last)) {
            ++last;
        }
        return {TokenType::HEX_LITERAL, last};
    }

    /// The quote that ends a string.
    const char* findQuote(const char* from) const {
        const char* const quote = std::find(from, end_, '"');
        if (quote == end_) {
            throw ParseException(Message::StringNotTerminated, {}, place_.position());
        }
        return quote;
    }

    Lexeme readVariable(const char* first) {
        const char* last = endOfWordCharacters(first + 1);
        return {variableKind({first, static_cast<std::size_t>(last - first)}), last};
    }

    /// `following` behind the first byte makes a token of two characters, anything else one of one.
    Lexeme takeOneOrTwo(TokenType one, const char* first, char following, TokenType two) {
        return peek(first) == following ? Lexeme{two, first + 2} : Lexeme{one, first + 1};
    }

    Lexeme readPunctuation(const char* first) {
        using enum TokenType;
        const char following = peek(first);
        switch (*first) {
            case '$': return readVariable(first);
            case '!': return takeOneOrTwo(EXCLAMATION, first, '=', NOT_EQUAL);
            // "%=" is a "%" with another text, on purpose: there is no such assignment.
            case '%': return takeOneOrTwo(PERCENT, first, '=', PERCENT);
            case '/': return takeOneOrTwo(SLASH, first, '=', SLASH_ASSIGN);
            case '=': return takeOneOrTwo(ASSIGN, first, '=', EQUAL);
            case '*':
                return following == '*' ? Lexeme{STAR_STAR, first + 2}
                                        : takeOneOrTwo(STAR, first, '=', STAR_ASSIGN);
            case '+':
                return following == '+' ? Lexeme{PLUS_PLUS, first + 2}
                                        : takeOneOrTwo(PLUS, first, '=', PLUS_ASSIGN);
            case '-':
                return following == '-' ? Lexeme{MINUS_MINUS, first + 2}
                                        : takeOneOrTwo(MINUS, first, '=', MINUS_ASSIGN);
            case '|':
                return following == '|' ? Lexeme{BAR_BAR, first + 2}
                                        : takeOneOrTwo(BAR, first, '=', BAR_ASSIGN);
            case '&': return readAmpersand(first);
            case '<': return readLess(first);
            case '>': return readGreater(first);
            default: throwUnknown(first);
        }
    }

    Lexeme readAmpersand(const char* first) {
        const char following = upperCase(peek(first));
        if (following == 'X' || following == 'H') {
            return readHexadecimal(first);
        }
        return following == '&'
                   ? Lexeme{TokenType::AMPERSAND_AMPERSAND, first + 2}
                   : takeOneOrTwo(TokenType::AMPERSAND, first, '=', TokenType::AMPERSAND_ASSIGN);
    }

    Lexeme readLess(const char* first) {
        switch (peek(first)) {
            case '=': return {TokenType::LESS_EQUAL, first + 2};
            case '>': return {TokenType::NOT_EQUAL, first + 2};
            case '<':
                return peek(first, 2) == '=' ? Lexeme{TokenType::SHIFT_LEFT_ASSIGN, first + 3}
                                             : Lexeme{TokenType::SHIFT_LEFT, first + 2};
            default: return {TokenType::LESS, first + 1};
        }
    }

    Lexeme readGreater(const char* first) {
        switch (peek(first)) {
            case '=': return {TokenType::GREATER_EQUAL, first + 2};
            case '>':
                return peek(first, 2) == '=' ? Lexeme{TokenType::SHIFT_RIGHT_ASSIGN, first + 3}
                                             : Lexeme{TokenType::SHIFT_RIGHT, first + 2};
            default: return {TokenType::GREATER, first + 1};
        }
    }

    [[noreturn]] void throwUnknown(const char* at) const {
        const int value = static_cast<signed char>(*at);
        throw ParseException(Message::UnknownToken,
                             {std::string_view(at, 1), std::to_string(value)}, place_.position());
    }

    const TextStore& text_;
    const AxisNames& axes_;
    const LinePlace& place_;
    GrowingArray<Token>& tokens_;
    Room room_;
    const char* end_ = nullptr;
    const char* wordEnd_ = nullptr;
};

}  // namespace

void lexLine(const TextStore& text, const AxisNames& axes, TextSpan code,
             const SourcePosition& position, GrowingArray<Token>& tokens) {
    const LinePlace place = {position, nullptr, 0};
    Lexer lexer(text, axes, place, tokens);
    lexer.lex(code);
    lexer.finish();
}

LineTokens tokensOf(const Program& program, const LineList& list, std::size_t line,
                    const AxisNames& axes, GrowingArray<Token>& room) {
    const LinePlace place = {{}, &list, line};
    room.clear();
    Lexer lexer(program.text, axes, place, room);
    if (!list.hasTokens(line)) {
        lexer.lex(list.codeOf(line));
    } else {
        for (const Token& token : list.tokensOf(line)) {
            if (token.type == TokenType::INVALID) {
                lexer.lex(token.text);  // a piece
            } else {
                lexer.append(token);
            }
        }
    }
    return lexer.finishLine();
}

void appendTokenText(TokenType type, std::string_view source, TextBuffer& out) {
    if (type == TokenType::HEX_LITERAL) {
        out += "0x";
        out += source.substr(2);
    } else {
        out += source;
        if (type == TokenType::AXIS_FEEDRATE) {
            out.back() = 'F';
        }
    }
}

std::size_t axisNameLength(std::string_view text, const AxisNames& axes) {
    std::size_t length = 1;
    while (length < text.size() && isWordCharacter(text[length])) {
        ++length;
    }
    const std::string_view word = text.substr(0, length);
    const char following = length > 1 ? word[1] : '\0';
    if (!hasClass(word[0], wordStartClasses) ||
        letterKind(word[0], following) != TokenType::INVALID) {
        return 0;
    }
    const WordStart start = startOfWord(word, axes);
    return start.type == TokenType::AXIS_NAME ? start.length : 0;
}

}  // namespace torvel
