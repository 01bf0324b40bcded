#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "src/lex/characters.h"
#include "src/lex/hash.h"
#include "src/lex/token-type.h"

namespace torvel {

/// A word in upper case and the kind of token that it is.
struct WordRow {
    std::string_view word;
    TokenType kind;
};

/// Words by FNV-1a hash, made at compile time. Whatever the case of a word, it is found as its upper
/// case.
template <std::size_t count>
class WordTable {
public:
    explicit constexpr WordTable(const WordRow (&rows)[count]) : rows_(rows) {
        for (std::size_t row = 0; row < count; ++row) {
            longest_ = std::max(longest_, rows[row].word.size());
            std::size_t slot = hashText(rows[row].word) & slotMask;
            while (slots_[slot] != 0) {
                slot = (slot + 1) & slotMask;
            }
            slots_[slot] = static_cast<std::uint16_t>(row + 1);
        }
    }

    /// The kind of `word`; TokenType::INVALID if it is not in the table.
    TokenType find(std::string_view word) const {
        if (word.size() > longest_) {
            return TokenType::INVALID;
        }
        std::uint64_t hash = fnvOffsetBasis;
        for (const char c : word) {
            hash = extendHash(hash, upperCase(c));
        }
        for (std::size_t slot = hash & slotMask; slots_[slot] != 0; slot = (slot + 1) & slotMask) {
            const WordRow& row = rows_[slots_[slot] - 1U];
            if (isUpperCaseOf(row.word, word)) {
                return row.kind;
            }
        }
        return TokenType::INVALID;
    }

private:
    /// Four slots for a word: the next power of two.
    static constexpr std::size_t slotCount = [] {
        std::size_t slots = 1;
        while (slots < 4 * count) {
            slots *= 2;
        }
        return slots;
    }();
    static constexpr std::size_t slotMask = slotCount - 1;

    static bool isUpperCaseOf(std::string_view upper, std::string_view word) {
        return std::equal(upper.begin(), upper.end(), word.begin(), word.end(),
                          [](char u, char c) { return u == upperCase(c); });
    }

    const WordRow (&rows_)[count];
    std::array<std::uint16_t, slotCount> slots_{};  // row + 1; 0 is free
    std::size_t longest_ = 0;
};

}  // namespace torvel
