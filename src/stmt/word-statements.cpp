#include "src/stmt/word-statements.h"

#include <array>
#include <vector>

#include "src/expr/form.h"
#include "src/expr/number-checks.h"
#include "src/stmt/routines.h"

namespace torvel {

namespace {

/// How the operand in front of a word is read.
struct Lead {
    bool isThere = false;
    FormStep operand;
    /// It is a task, and the running one if it is left out.
    bool isTask = false;
    bool mayHaveComma = false;
};

consteval Lead makeLead(std::string_view pattern) {
    Lead lead;
    lead.isThere = !pattern.empty();
    lead.mayHaveComma = pattern.ends_with(" [,]");
    if (lead.mayHaveComma) {
        pattern.remove_suffix(4);
    }
    lead.isTask = pattern == "[task]";
    if (lead.isThere) {
        lead.operand = form_rows::stepCalled(lead.isTask ? "value" : pattern);
    }
    return lead;
}

/// The pattern of the operand in front of a keyword's words, and of that in front of second words.
consteval std::string_view leadPatternOf(TokenType keyword) {
#define BY_WORD(token, lead)           \
    if (keyword == TokenType::token) { \
        return lead;                   \
    }
#include "src/stmt/statements.def"
    throw "a keyword with words has no BY_WORD";
}
consteval std::string_view leadPatternOf(TokenType keyword, TokenType word) {
#define WORD_BY_WORD(token, first, lead)                                       \
    if (keyword == TokenType::token && word == TokenType::first) {             \
        return std::string_view(lead).empty() ? leadPatternOf(keyword) : lead; \
    }
#include "src/stmt/statements.def"
    throw "a word with second words has no WORD_BY_WORD";
}

/// A word that may stand behind a leading keyword, or a second word behind that.
struct WordRow {
    enum class Kind : std::uint8_t { form, routine, refused, byWord, otherwise };

    TokenType keyword = TokenType::INVALID;
    /// The word in front of it; TokenType::INVALID: it is the first.
    TokenType before = TokenType::INVALID;
    TokenType word = TokenType::INVALID;
    Kind kind = Kind::form;
    Form form;
    void (*convert)(Statement&, std::string_view leadText) = nullptr;
    Lead lead;
    /// Why it is refused, or what is told beside the converted text.
    std::optional<Message> message;
};

constexpr auto none = TokenType::INVALID;

constexpr WordRow wordRows[] = {
#define WORD(token, word, pattern, text)                       \
    {TokenType::token,                                         \
     none,                                                     \
     TokenType::word,                                          \
     WordRow::Kind::form,                                      \
     makeForm(leadPatternOf(TokenType::token), pattern, text), \
     nullptr,                                                  \
     {},                                                       \
     {}},
#define WORD_ADVISED(token, word, pattern, text, message)      \
    {TokenType::token,                                         \
     none,                                                     \
     TokenType::word,                                          \
     WordRow::Kind::form,                                      \
     makeForm(leadPatternOf(TokenType::token), pattern, text), \
     nullptr,                                                  \
     {},                                                       \
     Message::message},
#define WORD_ROUTINE(token, word, convert) \
    {TokenType::token, none, TokenType::word, WordRow::Kind::routine, {}, convert, {}, {}},
#define WORD_REFUSED(token, word, message)                                \
    {TokenType::token, none, TokenType::word, WordRow::Kind::refused, {}, \
     nullptr,          {},   Message::message},
#define OTHERWISE(token, pattern, text)                        \
    {TokenType::token,                                         \
     none,                                                     \
     none,                                                     \
     WordRow::Kind::otherwise,                                 \
     makeForm(leadPatternOf(TokenType::token), pattern, text), \
     nullptr,                                                  \
     {},                                                       \
     {}},
#define WORD_BY_WORD(token, word, lead)                                           \
    {TokenType::token, none, TokenType::word, WordRow::Kind::byWord, {}, nullptr, \
     makeLead(lead),   {}},
#define SECOND(token, word, second, pattern, text)                              \
    {TokenType::token,                                                          \
     TokenType::word,                                                           \
     TokenType::second,                                                         \
     WordRow::Kind::form,                                                       \
     makeForm(leadPatternOf(TokenType::token, TokenType::word), pattern, text), \
     nullptr,                                                                   \
     {},                                                                        \
     {}},
#define SECOND_ROUTINE(token, word, second, convert) \
    {TokenType::token,                               \
     TokenType::word,                                \
     TokenType::second,                              \
     WordRow::Kind::routine,                         \
     {},                                             \
     convert,                                        \
     {},                                             \
     {}},
#define SECOND_OTHERWISE(token, word, pattern, text)                            \
    {TokenType::token,                                                          \
     TokenType::word,                                                           \
     none,                                                                      \
     WordRow::Kind::otherwise,                                                  \
     makeForm(leadPatternOf(TokenType::token, TokenType::word), pattern, text), \
     nullptr,                                                                   \
     {},                                                                        \
     {}},
#include "src/stmt/statements.def"
};

struct KeywordWords {
    Lead lead;
    std::uint8_t firstRow = 0;
    std::uint8_t rowCount = 0;
};

/// By kind of token.
constexpr auto keywordWords = [] {
    std::array<KeywordWords, tokenTypeCount> table{};
#define BY_WORD(token, leadPattern) \
    table[static_cast<std::uint32_t>(TokenType::token)].lead = makeLead(leadPattern);
#include "src/stmt/statements.def"
    static_assert(std::size(wordRows) < 256);
    std::uint8_t number = 0;
    for (const WordRow& row : wordRows) {
        KeywordWords& words = table[static_cast<std::uint32_t>(row.keyword)];
        if (words.rowCount == 0) {
            words.firstRow = number;
        } else if (words.firstRow + words.rowCount != number) {
            throw "the words of a keyword do not stand together";
        }
        ++words.rowCount;
        ++number;
    }
    return table;
}();

/// The words behind a keyword or behind its first word.
struct Words {
    std::span<const WordRow> rows;
    TokenType before = none;

    /// The row of the current token, or that of no word; null if there is neither.
    const WordRow* find(const Statement& statement) const {
        const WordRow* otherwise = nullptr;
        for (const WordRow& row : rows) {
            if (row.before == before && row.kind == WordRow::Kind::otherwise) {
                otherwise = &row;
            } else if (row.before == before && statement.cursor.is(row.word)) {
                return &row;
            }
        }
        return otherwise;
    }

    void reportUnexpected(Statement& statement) const {
        std::vector<TokenType> words;
        for (const WordRow& row : rows) {
            if (row.before == before && row.kind != WordRow::Kind::otherwise) {
                words.push_back(row.word);
            }
        }
        reportUnexpectedToken(statement, words);
    }
};

/// The operand in front of the word.
void translateLead(Statement& statement, const Lead& lead, const Words& words,
                   ExpressionText& leadText) {
    if (lead.isTask && words.find(statement) != nullptr) {
        leadText = "TaskGetIndex()";
        return;
    }
    if (lead.isThere) {
        translateOperand(statement, lead.operand, false, leadText);
    }
    if (lead.mayHaveComma) {
        acceptToken(statement, TokenType::COMMA);
    }
}

void convertWord(Statement& statement, const Lead& lead, const Words& words,
                 ExpressionText& leadText) {
    translateLead(statement, lead, words, leadText);
    const WordRow* row = words.find(statement);
    if (row == nullptr) {
        words.reportUnexpected(statement);
        return;
    }
    if (row->kind != WordRow::Kind::otherwise) {
        statement.cursor.advance();
    }
    switch (row->kind) {
        case WordRow::Kind::refused: refuse(statement, *row->message); return;
        case WordRow::Kind::routine: row->convert(statement, leadText); return;
        case WordRow::Kind::byWord:
            convertWord(statement, row->lead, {words.rows, row->word}, leadText);
            return;
        default: break;
    }
    const Token* const operands = statement.cursor.place();
    writeForm(statement, row->form, statement.text, leadText);
    if (lead.mayHaveComma && !row->form.hasOptionalComma) {
        checkJoinedBySign(statement, operands);
    }
    if (row->message) {
        logConversionMessage(statement, *row->message);
    }
}

}  // namespace

void convertByWord(Statement& statement) {
    const KeywordWords& words = keywordWords[static_cast<std::uint32_t>(statement.cursor.type())];
    statement.cursor.advance();
    ExpressionText leadText;
    convertWord(statement, words.lead,
                {std::span(wordRows).subspan(words.firstRow, words.rowCount), none}, leadText);
}

}  // namespace torvel
