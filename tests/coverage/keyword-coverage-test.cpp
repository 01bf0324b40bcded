// Every keyword and directive leads a line of some golden case.

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "src/base/token-type.h"
#include "tests/coverage/golden-lines.h"

namespace torvel::test {

namespace {

std::set<TokenType> leadingTokensOfGoldenCases() {
    std::set<TokenType> leading;
    for (const GoldenLine& line : goldenLines()) {
        if (!line.statement.empty()) {
            leading.insert(line.statement.front());
        }
    }
    return leading;
}

TEST(KeywordCoverage, EveryKeywordLeadsALine) {
    const std::set<TokenType> leading = leadingTokensOfGoldenCases();
    Missing missing;
    std::size_t count = 0;
    const auto check = [&](TokenType type) {
        ++count;
        missing.unless(leading.contains(type), tokenTypeName(type));
    };
#define KEYWORD(enumerator, spelling) check(TokenType::enumerator);
#define DIRECTIVE(enumerator, spelling) check(TokenType::enumerator);
#include "src/base/token-kinds.def"
    EXPECT_TRUE(missing.list().empty()) << "lead no line of any golden case:\n" << missing.list();
    EXPECT_EQ(count, 449U + 3U + 2U);  // keywords, directives, BNAND and BNOR
}

TEST(KeywordCoverage, EveryFurtherSpellingIsUsed) {
    std::set<std::string> words;
    for (const GoldenLine& line : goldenLines()) {
        std::string word;
        for (const char c : line.source + ' ') {
            const bool isLetter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
            if (isLetter || c == '_' || c == '$' || (c >= '0' && c <= '9')) {
                word += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
            } else {
                words.insert(word);
                word.clear();
            }
        }
    }
    Missing missing;
#define SPELLING(spelling, kind) missing.unless(words.contains(spelling), spelling);
#include "src/lex/keyword-spellings.def"
    EXPECT_TRUE(missing.list().empty()) << "stand in no golden case:\n" << missing.list();
}

}  // namespace

}  // namespace torvel::test
