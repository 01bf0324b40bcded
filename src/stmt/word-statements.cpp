#include "src/stmt/word-statements.h"

#include <algorithm>
#include <vector>

#include "src/stmt/data-collection.h"
#include "src/stmt/drive.h"
#include "src/stmt/forms.h"
#include "src/stmt/galvo.h"
#include "src/stmt/ramps.h"
#include "src/stmt/tasks.h"

namespace torvel {

namespace {

/// A word that may stand behind a leading keyword.
struct WordRow {
    TokenType keyword;
    TokenType word;
    std::string_view pattern;
    std::string_view text;
    bool (*convert)(Statement&, std::string_view lead);
    std::optional<Message> refusal;
    std::optional<Message> advice;
};

constexpr WordRow wordRows[] = {
#define WORD(token, word, pattern, text) \
    {TokenType::token, TokenType::word, pattern, text, nullptr, {}, {}},
#define WORD_ADVISED(token, word, pattern, text, message) \
    {TokenType::token, TokenType::word, pattern, text, nullptr, {}, Message::message},
#define WORD_ROUTINE(token, word, convert) \
    {TokenType::token, TokenType::word, {}, {}, convert, {}, {}},
#define WORD_REFUSED(token, word, message) \
    {TokenType::token, TokenType::word, {}, {}, nullptr, Message::message, {}},
#include "src/stmt/statements.def"
};

/// The words that `keyword` may have behind it.
std::span<const WordRow> wordsOf(TokenType keyword) {
    const auto isOther = [=](const WordRow& row) { return row.keyword != keyword; };
    const auto* first = std::find_if_not(std::begin(wordRows), std::end(wordRows), isOther);
    const auto* last = std::find_if(first, std::end(wordRows), isOther);
    return {first, last};
}

/// The row of the current token; the end of the rows if it is none of the words.
std::span<const WordRow>::iterator findWord(const Statement& statement,
                                            std::span<const WordRow> rows) {
    return std::find_if(rows.begin(), rows.end(), [&](const WordRow& candidate) {
        return statement.cursor.is(candidate.word);
    });
}

bool reportUnexpectedWord(Statement& statement, std::span<const WordRow> rows) {
    std::vector<TokenType> words;
    for (const WordRow& row : rows) {
        words.push_back(row.word);
    }
    return reportUnexpectedToken(statement.context, statement.cursor, words);
}

/// The operand in front of the word. A task that is not there is the running one.
bool readLead(Statement& statement, std::string_view pattern, std::span<const WordRow> rows,
              std::string& lead) {
    if (pattern.empty()) {
        return true;
    }
    if (pattern == "t") {
        if (findWord(statement, rows) != rows.end()) {
            lead = "TaskGetIndex()";
            return true;
        }
        pattern = "v";
    }
    if (!readOperand(statement, pattern[0], lead)) {
        return false;
    }
    if (pattern.ends_with(';')) {
        accept(statement, TokenType::COMMA);
    }
    return true;
}

}  // namespace

bool convertByWord(Statement& statement, std::string_view leadPattern) {
    const std::span<const WordRow> rows = wordsOf(statement.cursor.type());
    statement.cursor.advance();
    std::string lead;
    if (!readLead(statement, leadPattern, rows, lead)) {
        return false;
    }
    const auto row = findWord(statement, rows);
    if (row == rows.end()) {
        return reportUnexpectedWord(statement, rows);
    }
    statement.cursor.advance();
    if (row->refusal) {
        return refuse(statement, *row->refusal);
    }
    if (row->convert != nullptr) {
        return row->convert(statement, lead);
    }
    return writeForm(statement, row->pattern, row->text, lead, row->advice);
}

}  // namespace torvel
