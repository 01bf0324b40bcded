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

/// No keyword is one letter or has a digit behind the first, which AxisNames::isLetter() relies on.
constexpr bool areLongWords = [] {
    for (const WordRow& row : spellings) {
        if (!isDigit(row.word[0]) && (row.word.size() == 1 || isDigit(row.word[1]))) {
            return false;
        }
    }
    return true;
}();
static_assert(areLongWords);

/// Names of variables without their "$". Those up to TASKINDEX may carry an index as digits behind them; the others
/// are compared whole: with digits behind them they are user variables.
constexpr WordRow variableNames[] = {
    {"GLOBAL", TokenType::GLOBAL_VARIABLE},
    {"GLOB", TokenType::GLOBAL_VARIABLE},
    {"TASK", TokenType::TASK_VARIABLE},
    {"INFO", TokenType::INFO_VARIABLE},
    {"STRGLOB", TokenType::STRGLOB_VARIABLE},
    {"STRTASK", TokenType::STRTASK_VARIABLE},
    {"APTGLOB", TokenType::APTGLOB_VARIABLE},
    {"APTTASK", TokenType::APTTASK_VARIABLE},
    {"BO", TokenType::BO_VARIABLE},
    {"BI", TokenType::BI_VARIABLE},
    {"RO", TokenType::RO_VARIABLE},
    {"RI", TokenType::RI_VARIABLE},
    {"DO", TokenType::DO_VARIABLE},
    {"DI", TokenType::DI_VARIABLE},
    {"WO", TokenType::WO_VARIABLE},
    {"WI", TokenType::WI_VARIABLE},
    {"AO", TokenType::AO_VARIABLE},
    {"AI", TokenType::AI_VARIABLE},
    {"PORT", TokenType::PORT_VARIABLE},
    {"TASKINDEX", TokenType::TASKINDEX_VARIABLE},
    {"RETURN", TokenType::RETURN_VARIABLE},
    {"PGLOBAL", TokenType::SYSTEM_PARAMETER},
    {"PGLOB", TokenType::SYSTEM_PARAMETER},
    {"PAXIS", TokenType::AXIS_PARAMETER},
    {"PTASK", TokenType::TASK_PARAMETER},
    {"SYSTEMSTATUS", TokenType::SYSTEMSTATUS_VARIABLE},
    {"AXISSTATUS", TokenType::AXISSTATUS_VARIABLE},
    {"TASKSTATUS", TokenType::TASKSTATUS_VARIABLE},
};

constexpr WordTable variables(variableNames);

/// Whether a name of the table is compared whole.
bool isWhole(TokenType kind) {
    using enum TokenType;
    switch (kind) {
        case RETURN_VARIABLE:
        case SYSTEM_PARAMETER:
        case AXIS_PARAMETER:
        case TASK_PARAMETER:
        case SYSTEMSTATUS_VARIABLE:
        case AXISSTATUS_VARIABLE:
        case TASKSTATUS_VARIABLE: return true;
        default: return false;
    }
}

}  // namespace

TokenType keywordKind(std::string_view word) {
    return keywords.find(word);
}

constexpr std::array<std::uint32_t, 32> variableLetters = [] {
    std::array<std::uint32_t, 32> letters{};
    for (const WordRow& row : variableNames) {
        letters[static_cast<unsigned char>(row.word[0]) % 32U] |= std::uint32_t{1}
                                                                  << row.word[1] % 32;
    }
    return letters;
}();

TokenType systemVariableKind(std::string_view word) {
    const std::string_view digits = trailingDigits(word);
    const std::string_view name = word.substr(1, word.size() - digits.size() - 1);
    const TokenType kind = variables.find(name);
    const bool isUsers = kind == TokenType::INVALID || (!digits.empty() && isWhole(kind));
    return isUsers ? TokenType::VARIABLE : kind;
}

}  // namespace torvel
