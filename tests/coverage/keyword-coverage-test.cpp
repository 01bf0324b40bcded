// Every keyword and directive leads a line of some golden case, and every kind and spelling has its row in the
// unit tables.

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <sstream>
#include <string>

#include "src/base/token-type.h"
#include "tests/coverage/golden-lines.h"
#include "tests/support/temporary-directory.h"

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
    const auto check = [&](TokenType type) {
        missing.unless(leading.contains(type), tokenTypeName(type));
    };
#define KEYWORD(enumerator, spelling) check(TokenType::enumerator);
#define DIRECTIVE(enumerator, spelling) check(TokenType::enumerator);
#include "src/base/token-kinds.def"
    EXPECT_TRUE(missing.list().empty()) << "lead no line of any golden case:\n" << missing.list();
    EXPECT_TRUE(leading.contains(TokenType::HOME));
    EXPECT_FALSE(leading.contains(TokenType::INVALID));
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

/// The inputs of a table of tests/unit, what stands in front of the "=>" of its rows.
std::set<std::string> inputsOf(const std::string& table) {
    std::set<std::string> inputs;
    std::istringstream lines(
        readFile(std::filesystem::path(TORVEL_SOURCE_DIR) / "tests/unit" / table));
    for (std::string line; std::getline(lines, line);) {
        inputs.insert(line.substr(0, line.find(" => ")));
    }
    return inputs;
}

TEST(KeywordCoverage, EveryKindHasItsRowInTheUnitTable) {
    const std::set<std::string> numbers = inputsOf("token-types.table");
    Missing missing;
    for (std::uint32_t number = 0; number < tokenTypeCount; ++number) {
        missing.unless(numbers.contains(std::to_string(number)),
                       std::to_string(number) + " => " +
                           std::string(tokenTypeName(static_cast<TokenType>(number))));
    }
    EXPECT_TRUE(missing.list().empty()) << "have no row in tests/unit/token-types.table:\n"
                                        << missing.list();
}

TEST(KeywordCoverage, EverySpellingHasItsRowInTheUnitTable) {
    const std::set<std::string> words = inputsOf("keywords.table");
    Missing missing;
#define UNSPELLED(enumerator, spelling)
#define KEYWORD(enumerator, spelling) missing.unless(words.contains(spelling), spelling);
#define DIRECTIVE(enumerator, spelling) missing.unless(words.contains(spelling), spelling);
#include "src/base/token-kinds.def"
#define SPELLING(spelling, kind) missing.unless(words.contains(spelling), spelling);
#include "src/lex/keyword-spellings.def"
    EXPECT_TRUE(missing.list().empty()) << "have no row in tests/unit/keywords.table:\n"
                                        << missing.list();
}

}  // namespace

}  // namespace torvel::test
