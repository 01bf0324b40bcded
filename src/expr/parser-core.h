#pragma once

#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "src/base/block-effect.h"
#include "src/base/check-record.h"
#include "src/base/cold.h"
#include "src/base/message-log.h"
#include "src/base/messages.h"
#include "src/base/program.h"
#include "src/base/text-buffer.h"
#include "src/base/text-list.h"
#include "src/expr/reference-rows.h"
#include "src/lex/axis-names.h"
#include "src/limits.h"

// What every translation routine uses: the statement being converted with the cursor over its tokens, the
// message log, and the few verbs that read tokens.
//
// A routine appends Torvel text to the text that it is given. What it cannot translate it refuses, with one
// message that says why. From then on the statement is refused: its cursor stands at the end of the line,
// every verb does nothing and logs nothing, and what is written is of no use. So routines read from top to
// bottom as the grammar that they translate; only what happens beside the text (a block's effect, an index
// into what was read) asks whether the statement is refused.

namespace torvel {

/// Torvel text of an expression or a part of one, under construction.
using ExpressionText = TextBuffer;

/// Torvel text of a statement, under construction: one line, or several joined by line feeds.
using StatementText = TextBuffer;

/// What a line is converted with.
struct ConversionContext {
    const Program& program;
    const AxisNames& axes;
    const Limits& limits;
    MessageLog& log;
    /// The position of the line being converted.
    SourcePosition position;
    /// Constructs of the expression that are open.
    unsigned nesting = 0;
    /// Takes what is converted and yet needs a look; null: nobody asks.
    CheckRecord* record = nullptr;
    /// What the site calls parameters and items; null: as the built-in rows do.
    const ReferenceRows* reference = nullptr;
};

/// A place in a line's tokens.
class TokenCursor {
public:
    TokenCursor(const Program& program, const LineTokens& tokens)
        : program_(program), begin_(tokens.data()), next_(begin_), end_(begin_ + tokens.size()) {}

    bool atEnd() const { return next_ == end_; }
    /// The kind of the current token; TokenType::END_OF_FILE behind the last.
    TokenType type() const { return next_->type; }
    bool is(TokenType type) const { return this->type() == type; }
    /// Where the current token stands, or the end of the tokens.
    const Token* place() const { return next_; }
    /// The current token; there must be one.
    const Token& token() const { return *next_; }
    /// The current token's text; there must be one.
    std::string_view text() const { return program_.textOf(*next_); }
    /// The Torvel text of the current token, a preserved define.
    std::string_view value() const { return program_.valueOf(*next_); }
    /// The kind of the token behind the current one.
    TokenType following() const { return next_[1].type; }
    /// The kind of the token in front of the current one.
    TokenType previous() const { return next_ == begin_ ? TokenType::END_OF_FILE : next_[-1].type; }
    /// Steps over the current token; at the end nothing happens.
    void advance() { next_ += atEnd() ? 0 : 1; }
    void skipToEnd() { next_ = end_; }

private:
    const Program& program_;
    const Token* begin_;
    const Token* next_;
    const Token* end_;
};

/// A statement being converted: what its routines read, what they write, and whether one of them refused it.
struct Statement {
    ConversionContext& context;
    TokenCursor cursor;
    StatementText& text;
    BlockEffect effect = BlockEffect::None;
    bool isRefused = false;
    /// Where the operands of a row's form stand, for who asks for it.
    std::vector<std::span<const Token>>* operandTokens = nullptr;
};

/// Kinds of token that may stand at a place, in the order in which a message names them.
using TokenTypes = std::span<const TokenType>;

bool isOneOf(TokenType type, TokenTypes types);

/// Steps over the current token if its kind is one of `types` and returns its text. Otherwise reports
/// it as unexpected, and the text is empty.
std::string_view expectToken(Statement& statement, TokenTypes types);
std::string_view expectToken(Statement& statement, std::initializer_list<TokenType> types);
inline std::string_view expectToken(Statement& statement, TokenType type) {
    if (!statement.cursor.is(type)) {
        return expectToken(statement, TokenTypes(&type, 1));
    }
    const std::string_view text = statement.cursor.text();
    statement.cursor.advance();
    return text;
}

/// Appends the current token, which is no preserved define, and steps over it.
inline void writeToken(Statement& statement, TextBuffer& out) {
    const TextSpan text = statement.cursor.token().text;
    out.appendStored(statement.context.program.text.view(text));
    statement.cursor.advance();
}

/// Steps over the current token if it is of kind `type`; tells whether it was. Logs nothing.
inline bool acceptToken(Statement& statement, TokenType type) {
    if (!statement.cursor.is(type)) {
        return false;
    }
    statement.cursor.advance();
    return true;
}

/// Refuses the statement because of the current token, or the end of the line.
TORVEL_COLD void reportUnexpectedToken(Statement& statement, TokenTypes types = {});

/// Logs a message at the statement's line, beside which it is converted.
TORVEL_COLD void logConversionMessage(Statement& statement, Message message,
                                      std::initializer_list<std::string_view> holes = {});

/// Logs a message and refuses the statement.
TORVEL_COLD void refuse(Statement& statement, Message message,
                        std::initializer_list<std::string_view> holes = {});

/// Records a check at the tokens from `first` up to `last`, if somebody asks for checks. That of a line that is
/// refused is forgotten.
TORVEL_COLD void recordCheck(const Statement& statement, Check check, const Token* first,
                             const Token* last);
inline void noteCheck(const Statement& statement, Check check, const Token* first,
                      const Token* last) {
    if (statement.context.record != nullptr) [[unlikely]] {
        recordCheck(statement, check, first, last);
    }
}
/// The same at the tokens from `first` up to the cursor.
inline void noteCheck(const Statement& statement, Check check, const Token* first) {
    noteCheck(statement, check, first, statement.cursor.place());
}

/// Records what the line says for a pass over the whole program; its place is that of the tokens from `first` up
/// to the cursor.
TORVEL_COLD void recordFact(const Statement& statement, Fact::Kind kind, std::string_view name,
                            const Token* first);
inline void noteFact(const Statement& statement, Fact::Kind kind, std::string_view name,
                     const Token* first) {
    if (statement.context.record != nullptr) [[unlikely]] {
        recordFact(statement, kind, name, first);
    }
}

/// Records that the line writes the define at the cursor as its value.
inline void noteValueUse(const Statement& statement) {
    CheckRecord* const record = statement.context.record;
    if (record != nullptr) [[unlikely]] {
        const std::uint32_t define = statement.cursor.token().number;
        record->valueUses.push_back(
            {record->programLine, statement.context.program.defineTexts[define].text});
    }
}

/// Tells where a name stands, the tokens from `first` up to the cursor, if somebody asks. There is a record.
void recordPlace(const Statement& statement, NamePlace::Kind kind, NamePlace::Role role,
                 const Token* first, std::string_view value = {});

/// Records what a converted line of a macro's body does to the nesting of blocks.
void noteEffect(Statement& statement, BlockEffect effect, std::string_view text);

/// Forgets the checks that are recorded while it lives: for an operand whose text is not written. What it says
/// for the passes is forgotten too where nothing comes of its value.
class UnwrittenOperand {
public:
    enum class Value : std::uint8_t { counts, isDropped };

    explicit UnwrittenOperand(Statement& statement, Value value = Value::counts)
        : record_(statement.context.record),
          mark_(record_ == nullptr ? RecordMark() : markOf(*record_)),
          valueUses_(record_ == nullptr ? 0 : record_->valueUses.size()),
          value_(value) {}
    ~UnwrittenOperand() {
        if (record_ != nullptr && value_ == Value::isDropped) {
            takeOff(*record_, mark_);
            record_->valueUses.truncate(valueUses_);
        } else if (record_ != nullptr) {
            takeOff(*record_, {mark_.findings, record_->facts.size()});
        }
    }
    UnwrittenOperand(const UnwrittenOperand&) = delete;
    UnwrittenOperand& operator=(const UnwrittenOperand&) = delete;

private:
    CheckRecord* record_;
    RecordMark mark_;
    std::size_t valueUses_;
    Value value_;
};

/// One open construct of an expression, for as long as it lives. Where too many are open the statement is
/// refused.
class OpenConstruct {
public:
    explicit OpenConstruct(Statement& statement);
    ~OpenConstruct() { --context_.nesting; }
    OpenConstruct(const OpenConstruct&) = delete;
    OpenConstruct& operator=(const OpenConstruct&) = delete;

private:
    ConversionContext& context_;
};

/// The items separated by ", ".
void joinItems(const TextList& items, ExpressionText& out);

/// "[" and the items separated by ", " and "]". With `collapseSingle` one item stands alone.
void formatList(const TextList& items, bool collapseSingle, ExpressionText& out);

}  // namespace torvel
