#pragma once

#include <cstdint>
#include <deque>
#include <span>
#include <string_view>
#include <vector>

#include "src/base/growing-array.h"
#include "src/base/source-position.h"
#include "src/base/text-store.h"
#include "src/base/token-type.h"

namespace torvel {

/// One lexical unit: its kind and where its text stands in the run's text. Twelve bytes, since a
/// program of 14 MB has millions of them.
struct Token {
    TokenType type = TokenType::INVALID;
    union {
        TextSpan text{};
        /// In the place of the text: for the preserved defines the number of their DefineTexts, for a
        /// macro's definition its number in the program.
        std::uint32_t number;
    };
};
static_assert(sizeof(Token) == 12);

/// A token with a number in the place of its text.
inline Token makeNumberedToken(TokenType type, std::uint32_t number) {
    Token token;
    token.type = type;
    token.number = number;
    return token;
}

// Two kinds that the preprocessor makes beside those of token-kinds.def. They lead a statement that is
// converted as a whole, so no message ever names them.

/// Stands for a `#macro`; its number is that of the macro in the program.
inline constexpr TokenType macroDefinitionToken{tokenTypeCount};
/// The name of a macro that the line calls. What stands in front of it is what convertStatement() takes off
/// a line before the statement: a block delete, a label, an N-code.
inline constexpr TokenType macroCallToken{tokenTypeCount + 1};

/// The two texts of a preserved define: its name (for a predefined constant its value) and the
/// Torvel text that it stands for.
struct DefineTexts {
    TextSpan text;
    TextSpan value;
};

/// One logical line of the preprocessed program, the unit that is converted.
struct SourceLine {
    /// The line as it stood, its comment included, without block comments and outer blanks.
    TextSpan text;
    /// The comment behind the line without its marker; empty if there is none.
    TextSpan comment;
    /// The line's first token in its LineList; its last stands before the next line's first.
    std::uint32_t firstToken = 0;
    std::uint32_t lineNumber = 0;
    const Inclusion* inclusion = nullptr;

    SourcePosition position() const { return {inclusion, lineNumber}; }
};
static_assert(sizeof(SourceLine) == 32);

/// Lines in order, and the tokens of all of them in one array.
struct LineList {
    GrowingArray<SourceLine> lines;
    GrowingArray<Token> tokens;

    std::span<const Token> tokensOf(std::size_t line) const {
        const std::size_t first = lines[line].firstToken;
        const std::size_t last =
            line + 1 < lines.size() ? lines[line + 1].firstToken : tokens.size();
        return {tokens.data() + first, last - first};
    }
};

/// Appends a line without tokens.
void appendLine(LineList& list, const SourcePosition& position, TextSpan text, TextSpan comment);

/// A `#macro`. Its body is converted where the directive stands in the program.
struct Macro {
    /// "#macro NAME($a, $b)"
    TextSpan head;
    /// The directive as it is kept if its body cannot be converted.
    TextSpan unconverted;
    /// The body's lines, lexed.
    LineList lines;
};

/// What the preprocessor hands to the conversion: the whole program as lines of tokens.
struct Program {
    TextStore text;
    LineList list;
    std::vector<DefineTexts> defineTexts;
    std::deque<Macro> macros;
    std::deque<SourceFile> files;
    std::deque<Inclusion> inclusions;
    /// Where a file ended early at a NUL character, in the order met.
    std::vector<SourcePosition> nulCharacters;

    /// The token's text as it stands in the source; for a preserved define its first text.
    std::string_view textOf(const Token& token) const {
        return text.view(isPreservedDefine(token.type) ? defineTexts[token.number].text
                                                       : token.text);
    }
    /// The Torvel text of a preserved define; empty for every other token.
    std::string_view valueOf(const Token& token) const {
        return isPreservedDefine(token.type) ? text.view(defineTexts[token.number].value)
                                             : std::string_view();
    }
};

/// A token of one of the preserved-define kinds, its texts entered in `program`.
Token makeDefineToken(Program& program, TokenType type, const DefineTexts& texts);

}  // namespace torvel
