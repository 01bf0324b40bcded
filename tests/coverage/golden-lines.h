#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "src/base/messages.h"
#include "src/base/token-type.h"

namespace torvel::test {

/// A line of a program of the golden cases, and what became of it.
struct GoldenLine {
    /// The line as it stands, without its comment.
    std::string source;
    /// The kinds of its tokens, and of those of its statement: without a block delete, labels and
    /// N-codes in front.
    std::vector<TokenType> tokens;
    std::vector<TokenType> statement;
    bool isConverted = false;
    std::string text;
    std::vector<std::string> messages;

    bool has(TokenType type) const;
    /// Whether `second` stands directly behind a `first`.
    bool hasPair(TokenType first, TokenType second) const;
    bool logged(Message message) const;
    /// Whether the statement begins with `type`.
    bool isLedBy(TokenType type) const { return !statement.empty() && statement.front() == type; }
};

/// Every line of every golden case that can be preprocessed, lines of macros and included files too.
const std::vector<GoldenLine>& goldenLines();

/// Whether a line of the golden cases fits.
bool anyGoldenLine(const std::function<bool(const GoldenLine&)>& fits);

/// Things that no golden case shows, one a line, for a failure's text.
class Missing {
public:
    /// Records `what` unless `isThere`.
    void unless(bool isThere, std::string_view what);
    const std::string& list() const { return list_; }

private:
    std::string list_;
};

}  // namespace torvel::test
