#include "src/lex/keywords.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "src/lex/characters.h"
#include "src/lex/hash.h"

namespace torvel {

namespace {

struct Spelling {
    std::string_view text;
    TokenType kind;
};

constexpr Spelling spellings[] = {
#define UNSPELLED(enumerator, spelling)
#define KEYWORD(enumerator, spelling) {spelling, TokenType::enumerator},
#define DIRECTIVE(enumerator, spelling) {spelling, TokenType::enumerator},
#include "src/lex/token-kinds.def"
#define SPELLING(spelling, kind) {spelling, TokenType::kind},
#include "src/lex/keyword-spellings.def"
};
static_assert(std::size(spellings) == 512, "509 words and the three directives");

constexpr std::size_t slotCount = 2048;
constexpr std::size_t slotMask = slotCount - 1;
constexpr std::uint16_t freeSlot = UINT16_MAX;

/// Positions in `spellings` by hash, open addressing.
constexpr std::array<std::uint16_t, slotCount> slots = [] {
    std::array<std::uint16_t, slotCount> table{};
    table.fill(freeSlot);
    for (std::size_t i = 0; i < std::size(spellings); ++i) {
        std::size_t slot = hashText(spellings[i].text) & slotMask;
        while (table[slot] != freeSlot) {
            slot = (slot + 1) & slotMask;
        }
        table[slot] = static_cast<std::uint16_t>(i);
    }
    return table;
}();

constexpr std::size_t longestSpelling = [] {
    std::size_t longest = 0;
    for (const Spelling& spelling : spellings) {
        longest = std::max(longest, spelling.text.size());
    }
    return longest;
}();

}  // namespace

const std::size_t longestKeyword = longestSpelling;

TokenType keywordKind(std::string_view word) {
    if (word.size() > longestSpelling) {
        return TokenType::INVALID;
    }
    std::array<char, longestSpelling> upper;
    std::uint64_t hash = fnvOffsetBasis;
    for (std::size_t i = 0; i < word.size(); ++i) {
        upper[i] = upperCase(word[i]);
        hash = extendHash(hash, upper[i]);
    }
    const std::string_view key(upper.data(), word.size());
    for (std::size_t slot = hash & slotMask; slots[slot] != freeSlot;
         slot = (slot + 1) & slotMask) {
        if (spellings[slots[slot]].text == key) {
            return spellings[slots[slot]].kind;
        }
    }
    return TokenType::INVALID;
}

}  // namespace torvel
