#pragma once

#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "src/lex/axis-names.h"
#include "src/lex/messages.h"
#include "src/lex/program.h"
#include "src/limits.h"

// What every translation routine uses: the cursor over a line's tokens, the message log, and the few
// verbs that read tokens.
//
// A translator appends Torvel text to the text that its caller builds and returns true; or it logs
// one message that says why it cannot, and returns false. What it appended is then of no use, and
// its callers return false without a message of their own.

namespace torvel {

/// Torvel text of an expression or a part of one, under construction.
using ExpressionText = std::string;

/// A problem that the conversion met, and the line where it met it.
struct ConversionMessage {
    std::string text;
    SourcePosition position;
};

/// The messages of a run, in the order in which they were met.
using MessageLog = std::vector<ConversionMessage>;

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
};

/// A place in a line's tokens.
class TokenCursor {
public:
    TokenCursor(const Program& program, std::span<const Token> tokens)
        : program_(program), begin_(tokens.data()), next_(begin_), end_(begin_ + tokens.size()) {}

    bool atEnd() const { return next_ == end_; }
    /// The kind of the current token; TokenType::END_OF_FILE behind the last.
    TokenType type() const { return atEnd() ? TokenType::END_OF_FILE : next_->type; }
    bool is(TokenType type) const { return this->type() == type; }
    /// The current token; there must be one.
    const Token& token() const { return *next_; }
    /// The current token's text.
    std::string_view text() const { return program_.textOf(*next_); }
    /// The Torvel text of the current token, a preserved define.
    std::string_view value() const { return program_.valueOf(*next_); }
    /// The kind of the token behind the current one.
    TokenType following() const {
        return end_ - next_ > 1 ? next_[1].type : TokenType::END_OF_FILE;
    }
    /// The kind of the token in front of the current one.
    TokenType previous() const { return next_ == begin_ ? TokenType::END_OF_FILE : next_[-1].type; }
    void advance() { ++next_; }
    void skipToEnd() { next_ = end_; }

private:
    const Program& program_;
    const Token* begin_;
    const Token* next_;
    const Token* end_;
};

/// Kinds of token that may stand at a place, in the order in which a message names them.
using TokenTypes = std::span<const TokenType>;

bool isOneOf(TokenType type, TokenTypes types);

/// Steps over the current token if its kind is one of `types` and returns its text. Otherwise reports
/// it, stays, and returns nothing.
std::optional<std::string_view> expectToken(ConversionContext& context, TokenCursor& cursor,
                                            TokenTypes types);
std::optional<std::string_view> expectToken(ConversionContext& context, TokenCursor& cursor,
                                            std::initializer_list<TokenType> types);
std::optional<std::string_view> expectToken(ConversionContext& context, TokenCursor& cursor,
                                            TokenType type);

/// Steps over the current token if it is of kind `type`; tells whether it was. Logs nothing.
bool acceptToken(TokenCursor& cursor, TokenType type);

/// Logs that the current token, or the end of the line, was not expected. False, for the caller to
/// return.
bool reportUnexpectedToken(ConversionContext& context, const TokenCursor& cursor,
                           TokenTypes types = {});

/// Logs a message at the line being converted. False, for the caller to return.
bool logConversionMessage(ConversionContext& context, Message message,
                          std::initializer_list<std::string_view> holes = {});

/// One open construct of an expression, for as long as it lives. Test it: where too many are open
/// the message is logged, and the construct cannot be read.
class OpenConstruct {
public:
    explicit OpenConstruct(ConversionContext& context);
    ~OpenConstruct() { --context_.nesting; }
    OpenConstruct(const OpenConstruct&) = delete;
    OpenConstruct& operator=(const OpenConstruct&) = delete;

    explicit operator bool() const { return context_.nesting <= context_.limits.expressionNesting; }

private:
    ConversionContext& context_;
};

/// "[" and the items separated by ", " and "]". With `collapseSingle` one item stands alone.
void formatList(std::span<const std::string> items, bool collapseSingle, ExpressionText& out);

}  // namespace torvel
