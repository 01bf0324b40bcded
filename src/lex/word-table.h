#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
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
        const std::size_t size = word.size();
        if (upper.size() != size) {
            return false;
        }
        if (size >= 8) {
            return areBlocksUpperCaseOf<std::uint64_t>(upper, word);
        }
        if (size >= 4) {
            return areBlocksUpperCaseOf<std::uint32_t>(upper, word);
        }
        std::size_t i = 0;
        while (i < size && upper[i] == upperCase(word[i])) {
            ++i;
        }
        return i == size;
    }

    /// The same for words that are at least as long as a number; the last one may overlap the one before.
    template <typename Number>
    static bool areBlocksUpperCaseOf(std::string_view upper, std::string_view word) {
        const auto isBlockUpperCaseOf = [&](std::size_t at) {
            const Number wanted = bytesAt<Number>(upper, at);
            const Number bytes = bytesAt<Number>(word, at);
            return bytes == wanted || upperCaseOf(bytes) == wanted;
        };
        const std::size_t last = word.size() - sizeof(Number);
        for (std::size_t i = 0; i < last; i += sizeof(Number)) {
            if (!isBlockUpperCaseOf(i)) {
                return false;
            }
        }
        return isBlockUpperCaseOf(last);
    }

    template <typename Number>
    static Number bytesAt(std::string_view text, std::size_t at) {
        Number bytes = 0;
        std::memcpy(&bytes, text.data() + at, sizeof bytes);
        return bytes;
    }

    /// Bytes of a number in upper case. The highest bit of each tells that it is at least "a", or behind "z".
    static std::uint64_t upperCaseOf(std::uint64_t bytes) {
        constexpr std::uint64_t each = 0x0101010101010101U;
        const std::uint64_t low = bytes & (0x7FU * each);
        const std::uint64_t fromA = low + (0x80U - 'a') * each;
        const std::uint64_t behindZ = low + (0x7FU - 'z') * each;
        const std::uint64_t areLower = fromA & ~behindZ & ~bytes & (0x80U * each);
        return bytes - (areLower >> 2U);
    }

    const WordRow (&rows_)[count];
    std::array<std::uint16_t, slotCount> slots_{};  // row + 1; 0 is free
    /// By first letter: the lengths of the words, all from 31 on being one.
    std::array<std::uint32_t, 32> lengths_{};
};

}  // namespace torvel
