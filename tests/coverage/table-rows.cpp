#include "tests/coverage/table-rows.h"

#include <algorithm>
#include <map>
#include <stdexcept>

namespace torvel::test {

namespace {

using Kind = TableRow::Kind;
constexpr auto none = TokenType::INVALID;

}  // namespace

const std::vector<TableRow>& statementRows() {
    static const std::vector<TableRow> rows = {
#define LEAD(kind, token, pattern, text, message) \
    {Kind::kind, __FILE__, TokenType::token, none, none, pattern, text, message, false, false},
#define STATEMENT(token, convert) LEAD(routine, token, "", "", "")
#define UNCHECKED(token, convert) LEAD(routine, token, "", "", "")
#define FORM(token, pattern, text) LEAD(form, token, pattern, text, "")
#define FORM_ADVISED(token, pattern, text, message) LEAD(form, token, pattern, text, #message)
#define REFUSED(token, message) LEAD(refused, token, "", "", #message)
#define BY_WORD(token, lead) LEAD(byWord, token, lead, "", "")
#define BEHIND(kind, token, word, pattern, text, message)                                   \
    {Kind::kind, __FILE__, TokenType::token, TokenType::word, none, pattern, text, message, \
     true,       false},
#define WORD(token, word, pattern, text) BEHIND(form, token, word, pattern, text, "")
#define WORD_ADVISED(token, word, pattern, text, message) \
    BEHIND(form, token, word, pattern, text, #message)
#define WORD_ROUTINE(token, word, convert) BEHIND(routine, token, word, "", "", "")
#define WORD_REFUSED(token, word, message) BEHIND(refused, token, word, "", "", #message)
#define OTHERWISE(token, pattern, text) BEHIND(form, token, INVALID, pattern, text, "")
#define WORD_BY_WORD(token, word, lead) BEHIND(byWord, token, word, lead, "", "")
#define BEHIND_BOTH(kind, token, word, second, pattern, text) \
    {                                                         \
        Kind::kind,                                           \
        __FILE__,                                             \
        TokenType::token,                                     \
        TokenType::word,                                      \
        TokenType::second,                                    \
        pattern,                                              \
        text,                                                 \
        "",                                                   \
        true,                                                 \
        true},
#define SECOND(token, word, second, pattern, text) \
    BEHIND_BOTH(form, token, word, second, pattern, text)
#define SECOND_ROUTINE(token, word, second, convert) \
    BEHIND_BOTH(routine, token, word, second, "", "")
#define SECOND_OTHERWISE(token, word, pattern, text) \
    BEHIND_BOTH(form, token, word, INVALID, pattern, text)
#include "src/stmt/statements.def"
    };
    return rows;
}

const std::vector<TableRow>& valueRows() {
    static const std::vector<TableRow> rows = {
#define VALUE(token, message) LEAD(refused, token, "", "", #message)
#define VALUE_FORM(token, pattern, text) LEAD(form, token, pattern, text, "")
#define VALUE_ROUTINE(token, translate) LEAD(routine, token, "", "", "")
#include "src/stmt/values.def"
    };
    return rows;
}

const std::vector<TableRow>& stringValueRows() {
    static const std::vector<TableRow> rows = {
#define STRING_VALUE(token, message) LEAD(refused, token, "", "", #message)
#include "src/stmt/values.def"
    };
    return rows;
}

const std::vector<TableRow>& functionRows() {
    static const std::vector<TableRow> rows = {
#define FUNCTION(keyword, pattern, text) LEAD(form, keyword, pattern, text, "")
#define ROUTINE(keyword, translate) LEAD(routine, keyword, "", "", "")
#define REFUSED(keyword, message) LEAD(refused, keyword, "", "", #message)
#include "src/expr/functions.def"
    };
    return rows;
}

const std::vector<StatusRow>& statusRows() {
    static const std::vector<StatusRow> rows = {
#define STATUS(keyword, call, place, items) {TokenType::keyword, call, #place, #items, ""},
#define STATUS_ADVISED(keyword, call, place, items, message) \
    {TokenType::keyword, call, #place, #items, #message},
#include "src/expr/functions.def"
    };
    return rows;
}

const TableRow& rowInFrontOf(const TableRow& row) {
    const TokenType word = row.isSecond ? row.word : none;
    const auto found =
        std::find_if(statementRows().begin(), statementRows().end(), [&](const TableRow& each) {
            return each.kind == Kind::byWord && each.token == row.token && each.word == word;
        });
    if (found == statementRows().end()) {
        throw std::runtime_error("no row has the word of " + nameOf(row));
    }
    return *found;
}

std::string nameOf(const TableRow& row) {
    std::string name = spellingOf(row.token);
    for (const TokenType word : {row.word, row.second}) {
        name += word == none ? "" : ' ' + spellingOf(word);
    }
    return name;
}

std::string spellingOf(TokenType type) {
    static const std::map<TokenType, std::string> unspelled = {
        {TokenType::SETCLAMPI, "SETCLAMP"},
        {TokenType::SCOPE, "PUBLIC"},
        {TokenType::SYSTEM_PARAMETER, "$PGLOB"},
        {TokenType::AXIS_PARAMETER, "$PAXIS"},
        {TokenType::TASK_PARAMETER, "$PTASK"},
        {TokenType::VARIABLE, "variable"},
        {TokenType::PROGRAM_VARIABLE_DEFINE, "FEED"},
        {TokenType::GLOBAL_VARIABLE_DEFINE, "LEVEL"},
        {TokenType::AXIS_DEFINE, "HEAD"},
        {TokenType::LEFT_PAREN, "("},
        {TokenType::PERCENT, "%"},
    };
    if (const auto found = unspelled.find(type); found != unspelled.end()) {
        return found->second;
    }
    const std::string_view name = tokenTypeName(type);
    return std::string(name.substr(0, name.find(' ')));
}

}  // namespace torvel::test
