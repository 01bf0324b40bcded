#include "src/lex/keywords.h"

#include <iterator>

#include "src/lex/word-table.h"

namespace torvel {

namespace {

constexpr WordRow spellings[] = {
#define UNSPELLED(enumerator, spelling)
#define KEYWORD(enumerator, spelling) {spelling, TokenType::enumerator},
#define DIRECTIVE(enumerator, spelling) {spelling, TokenType::enumerator},
#include "src/base/token-kinds.def"
#define SPELLING(spelling, kind) {spelling, TokenType::kind},
#include "src/lex/keyword-spellings.def"
};

constexpr WordTable keywords(spellings);

/// Names, without their "$", that may carry an index as digits behind them.
constexpr WordRow numberedNames[] = {
    {"GLOBAL", TokenType::GLOBAL_VARIABLE},   {"GLOB", TokenType::GLOBAL_VARIABLE},
    {"TASK", TokenType::TASK_VARIABLE},       {"INFO", TokenType::INFO_VARIABLE},
    {"STRGLOB", TokenType::STRGLOB_VARIABLE}, {"STRTASK", TokenType::STRTASK_VARIABLE},
    {"APTGLOB", TokenType::APTGLOB_VARIABLE}, {"APTTASK", TokenType::APTTASK_VARIABLE},
    {"BO", TokenType::BO_VARIABLE},           {"BI", TokenType::BI_VARIABLE},
    {"RO", TokenType::RO_VARIABLE},           {"RI", TokenType::RI_VARIABLE},
    {"DO", TokenType::DO_VARIABLE},           {"DI", TokenType::DI_VARIABLE},
    {"WO", TokenType::WO_VARIABLE},           {"WI", TokenType::WI_VARIABLE},
    {"AO", TokenType::AO_VARIABLE},           {"AI", TokenType::AI_VARIABLE},
    {"PORT", TokenType::PORT_VARIABLE},       {"TASKINDEX", TokenType::TASKINDEX_VARIABLE},
};

/// Names, without their "$", that are compared whole: with digits behind them they are user variables.
constexpr WordRow wholeNames[] = {
    {"RETURN", TokenType::RETURN_VARIABLE},
    {"PGLOBAL", TokenType::SYSTEM_PARAMETER},
    {"PGLOB", TokenType::SYSTEM_PARAMETER},
    {"PAXIS", TokenType::AXIS_PARAMETER},
    {"PTASK", TokenType::TASK_PARAMETER},
    {"SYSTEMSTATUS", TokenType::SYSTEMSTATUS_VARIABLE},
    {"AXISSTATUS", TokenType::AXISSTATUS_VARIABLE},
    {"TASKSTATUS", TokenType::TASKSTATUS_VARIABLE},
};

constexpr WordTable numberedVariables(numberedNames);
constexpr WordTable wholeVariables(wholeNames);

}  // namespace

TokenType keywordKind(std::string_view word) {
    return keywords.find(word);
}

TokenType variableKind(std::string_view word) {
    const std::string_view digits = trailingDigits(word);
    const std::string_view name = word.substr(1, word.size() - digits.size() - 1);
    TokenType kind = numberedVariables.find(name);
    if (kind == TokenType::INVALID && digits.empty()) {
        kind = wholeVariables.find(name);
    }
    return kind == TokenType::INVALID ? TokenType::VARIABLE : kind;
}

}  // namespace torvel
