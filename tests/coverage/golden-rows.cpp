#include "tests/coverage/golden-rows.h"

#include <algorithm>

#include "tests/support/message-rows.h"

namespace torvel::test {

namespace {

/// The first word of the statement from `at` on that the rows of a keyword, or of its word `before`, have;
/// TokenType::INVALID without one. `at` is set behind it.
TokenType findWord(const GoldenLine& line, TokenType keyword, TokenType before, std::size_t& at) {
    for (; at < line.statement.size(); ++at) {
        for (const TableRow& row : statementRows()) {
            const bool isBehind = before == TokenType::INVALID ? row.isWord && !row.isSecond
                                                               : row.isSecond && row.word == before;
            const TokenType word = row.isSecond ? row.second : row.word;
            if (row.token == keyword && isBehind && word == line.statement[at]) {
                ++at;
                return word;
            }
        }
    }
    return TokenType::INVALID;
}

}  // namespace

bool isOfRow(const GoldenLine& line, const TableRow& row) {
    if (!line.isLedBy(row.token)) {
        return false;
    }
    std::size_t at = 1;
    return (!row.isWord || findWord(line, row.token, TokenType::INVALID, at) == row.word) &&
           (!row.isSecond || findWord(line, row.token, row.word, at) == row.second);
}

bool hasValue(const GoldenLine& line, const TableRow& row) {
    return line.hasPair(TokenType::ASSIGN, row.token);
}

bool hasFunction(const GoldenLine& line, const TableRow& row) {
    return row.kind == TableRow::Kind::refused ? line.has(row.token)
                                               : line.hasPair(row.token, TokenType::LEFT_PAREN);
}

bool hasLogged(const GoldenLine& line, std::string_view symbol) {
    const std::string_view text = findMessageRow(symbol)->text;
    return std::find(line.messages.begin(), line.messages.end(), text) != line.messages.end();
}

}  // namespace torvel::test
