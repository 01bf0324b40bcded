#pragma once

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>
#include <deque>
#include <optional>
#include <shared_mutex>
#include <span>
#include <string_view>
#include <vector>

#include "src/base/growing-array.h"
#include "src/base/source-position.h"
#include "src/base/standing-list.h"
#include "src/base/text-store.h"
#include "src/base/token-type.h"

namespace torvel {

/// One lexical unit: its kind and where its source stands in the run's text. Twelve bytes, since a
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

/// The tokens of a line that is converted. Two of kind TokenType::END_OF_FILE stand behind the last one and do not count:
/// who looks at what follows need not ask whether anything does.
struct LineTokens : std::span<const Token> {
    static constexpr std::size_t endTokens = 2;
};

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
    /// What is converted: so many bytes at the front of the text, or a number of LineList::firstTokens.
    std::uint32_t content = 0;
};
static_assert(sizeof(SourceLine) == 20);

/// Lines of the program that stand one behind the other in a file.
struct LineRun {
    std::uint32_t firstLine = 0;
    SourcePosition position;
};

/// Lines in order. Most are code that is lexed when they are converted. Those that hold names of defines, or in
/// which the lexer might find a fault, have tokens in one array; one of kind TokenType::INVALID is a piece of
/// text that is lexed when the line is converted.
class LineList {
public:
    GrowingArray<SourceLine> lines;
    GrowingArray<Token> tokens;

    /// Appends a line of nothing.
    void append(const SourcePosition& position, TextSpan text, TextSpan comment) {
        if (position != behind_) {
            runs_.push_back({static_cast<std::uint32_t>(lines.size()), position});
            behind_ = position;
        }
        ++behind_.lineNumber;
        lines.push_back({text, comment, 0});
    }

    /// Where a line came from. For many lines in their order LinePositions is faster.
    SourcePosition positionOf(std::size_t line) const;
    /// The last line is `length` bytes of code at the front of its text, to be lexed later. False: it is too
    /// long for that.
    bool setCode(std::size_t length) {
        const bool fits = length < tokensBit;
        lines.back().content = fits ? static_cast<std::uint32_t>(length) : 0;
        return fits;
    }
    /// The last line is made of the tokens that are appended from now on.
    void beginTokens() {
        lines.back().content = tokensBit | static_cast<std::uint32_t>(firstTokens_.size());
        firstTokens_.push_back(static_cast<std::uint32_t>(tokens.size()));
    }

    bool hasTokens(std::size_t line) const { return (lines[line].content & tokensBit) != 0; }
    /// The code of a line without tokens.
    TextSpan codeOf(std::size_t line) const {
        return lines[line].text.subspan(0, lines[line].content);
    }
    /// The tokens and pieces of a line that has tokens.
    std::span<const Token> tokensOf(std::size_t line) const {
        const std::size_t number = lines[line].content & ~tokensBit;
        const std::size_t last =
            number + 1 < firstTokens_.size() ? firstTokens_[number + 1] : tokens.size();
        return {tokens.data() + firstTokens_[number], last - firstTokens_[number]};
    }

private:
    friend class LinePositions;

    static constexpr std::uint32_t tokensBit = std::uint32_t{1} << 31U;

    /// The number of the first run behind the line.
    std::size_t runBehind(std::size_t line) const;

    GrowingArray<LineRun> runs_;
    /// What a line must have that belongs to the last run.
    SourcePosition behind_;
    /// Of the lines that have tokens.
    GrowingArray<std::uint32_t> firstTokens_;
};

/// Lines of a program that are converted in one go: some thousands of them, from the line `first` on.
struct ProgramPart {
    std::size_t first = 0;
    LineList list;
};

/// All lines of a program in their order. Another thread may use a part that it was told of when that was complete,
/// while further ones are filled; everything else is for the thread that fills them.
class ProgramLines {
public:
    static constexpr std::size_t usualPartSize = 8192;

    /// To be said before there are lines.
    void setPartSize(std::size_t lines) { partSize_ = std::max<std::size_t>(lines, 1); }

    /// The list to which the next line is appended.
    LineList& last() {
        if (last_ == nullptr) [[unlikely]] {
            beginPart();
        }
        return *last_;
    }
    /// Whether the last part has as many lines as it should have. What a define of several lines makes of one line may
    /// be more.
    bool isPartFull() const { return last_ != nullptr && last_->lines.size() >= partSize_; }
    /// Completes the last part. The next line begins another.
    void beginPart();
    void clear();

    std::size_t size() const {
        return parts_.empty() ? 0 : parts_.back().first + parts_.back().list.lines.size();
    }
    std::size_t partCount() const { return parts_.size(); }
    const ProgramPart& part(std::size_t number) const { return parts_[number]; }
    /// The part in which a line stands.
    const ProgramPart& partOf(std::size_t line) const;
    const SourceLine& operator[](std::size_t line) const {
        const ProgramPart& around = partOf(line);
        return around.list.lines[line - around.first];
    }
    /// Where a line came from. For many lines in their order LinePositions is faster.
    SourcePosition positionOf(std::size_t line) const {
        const ProgramPart& around = partOf(line);
        return around.list.positionOf(line - around.first);
    }

private:
    StandingList<ProgramPart> parts_;
    /// The list of the last one.
    LineList* last_ = nullptr;
    std::size_t partSize_ = usualPartSize;
};

/// Where lines came from, which are asked for in their order.
class LinePositions {
public:
    explicit LinePositions(const LineList& list) : list_(&list) {}
    explicit LinePositions(const ProgramLines& lines) : lines_(&lines) {}

    SourcePosition of(std::size_t line) {
        if (line >= behindRun_) {
            findRun(line);
        }
        return {inclusion_, lineNumberOfFirst_ + static_cast<std::uint32_t>(line)};
    }

private:
    void findRun(std::size_t line);

    /// Null: the lines are those of one list.
    const ProgramLines* lines_ = nullptr;
    const LineList* list_ = nullptr;
    /// The first line behind the run that has the last line that was asked for.
    std::size_t behindRun_ = 0;
    const Inclusion* inclusion_ = nullptr;
    /// What the first line of the program would have if it belonged to that run.
    std::uint32_t lineNumberOfFirst_ = 0;
};

/// A `#macro`. Its body is converted where the directive stands in the program.
struct Macro {
    /// "#macro NAME($a, $b)"
    TextSpan head;
    /// The directive as it is written if its body cannot be converted.
    TextSpan unconverted;
    /// The body's lines, lexed.
    LineList lines;
};

/// A text that the program did not write itself: the value of a predefined constant, or of a define that stands
/// for one.
struct PredefinedText {
    TextSpan text;
    /// The row is composed, not known: its number may be another on the controller.
    bool isComposed = false;
};

/// The predefined texts of a program. One thread may ask for them while another enters further ones.
class PredefinedTexts {
public:
    void enter(TextSpan text, bool isComposed);
    /// The predefined text that a text is part of; nothing: the program wrote it.
    std::optional<PredefinedText> find(TextSpan text) const;

private:
    static constexpr std::size_t pageCount = std::size_t{1} << 16U;
    static constexpr unsigned bits = 64;

    mutable std::shared_mutex mutex_;
    /// By their place in the text.
    std::vector<PredefinedText> texts_;
    /// By page of the text: whether one of them stands there. Files have pages of their own.
    std::array<std::atomic<std::uint64_t>, pageCount / bits> pages_{};
};

/// What the preprocessor hands to the conversion: the whole program as lines of tokens. Parts of it can be converted
/// while it reads further lines.
struct Program {
    TextStore text;
    ProgramLines lines;
    StandingList<DefineTexts, 64> defineTexts;
    StandingList<Macro> macros;
    std::deque<SourceFile> files;
    std::deque<Inclusion> inclusions;
    /// Where a file ended early at a NUL character, in the order met.
    std::vector<SourcePosition> nulCharacters;
    PredefinedTexts predefinedTexts;

    /// The token's source; for a preserved define its first text.
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
