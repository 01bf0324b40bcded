#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "src/base/characters.h"
#include "src/base/token-type.h"

namespace torvel {

/// A word in upper case and the kind of token that it is.
struct WordRow {
    std::string_view word;
    TokenType kind;
};

/// Words by a hash that is the same whatever the case of a word, made at compile time. A word is found as
/// its upper case.
template <std::size_t count>
class WordTable {
public:
    explicit constexpr WordTable(const WordRow (&rows)[count]) : rows_(rows) {
        for (std::size_t row = 0; row < count; ++row) {
            const std::string_view word = rows[row].word;
            lengths_[firstOf(word)] |= lengthBit(word.size());
            std::size_t slot = slotOf(word);
            while (slots_[slot] != 0) {
                slot = (slot + 1) % slotCount;
            }
            slots_[slot] = static_cast<std::uint16_t>(row + 1);
        }
    }

    /// The kind of `word`; TokenType::INVALID if it is not in the table.
    TokenType find(std::string_view word) const {
        if (word.empty() || (lengths_[firstOf(word)] & lengthBit(word.size())) == 0) {
            return TokenType::INVALID;
        }
        for (std::size_t slot = slotOf(word); slots_[slot] != 0; slot = (slot + 1) % slotCount) {
            const WordRow& row = rows_[slots_[slot] - 1U];
            if (isUpperCaseOf(row.word, word)) {
                return row.kind;
            }
        }
        return TokenType::INVALID;
    }

private:
    /// Four slots for a word: the next power of two.
    static constexpr unsigned slotBits = std::bit_width(4 * count - 1);
    static constexpr std::size_t slotCount = std::size_t{1} << slotBits;

    /// The first letter, whatever its case.
    static constexpr std::size_t firstOf(std::string_view word) {
        return static_cast<unsigned char>(word[0]) % 32U;
    }
    static constexpr std::uint32_t lengthBit(std::size_t length) {
        return std::uint32_t{1} << std::min<std::size_t>(length, 31);
    }

    /// Four bytes as one number, their letters in lower case and other characters mixed up.
    static constexpr std::uint64_t fourBytes(const char* bytes) {
        const auto byte = [=](unsigned i) {
            return std::uint32_t{static_cast<unsigned char>(bytes[i])} << (8 * i);
        };
        return (byte(0) | byte(1) | byte(2) | byte(3)) | 0x20202020U;
    }
    /// By the length and the first and last four bytes: a few steps for a word of any length.
    static constexpr std::size_t slotOf(std::string_view word) {
        std::uint64_t bytes = 0;
        if (word.size() < 4) {
            for (const char c : word) {
                bytes = bytes << 8U | (static_cast<unsigned char>(c) | 0x20U);
            }
        } else {
            bytes = fourBytes(word.data()) << 32U | fourBytes(word.data() + word.size() - 4);
        }
        bytes ^= word.size() << 24U;
        return (bytes * 0x9E3779B97F4A7C15ULL) >> (64U - slotBits);
    }

    static bool isUpperCaseOf(std::string_view upper, std::string_view word) {
        if (upper.size() != word.size()) {
            return false;
        }
        std::size_t i = 0;
        while (i < word.size() && upper[i] == upperCase(word[i])) {
            ++i;
        }
        return i == word.size();
    }

    const WordRow (&rows_)[count];
    std::array<std::uint16_t, slotCount> slots_{};  // row + 1; 0 is free
    /// By first letter: the lengths of the words, all from 31 on being one.
    std::array<std::uint32_t, 32> lengths_{};
};

}  // namespace torvel
