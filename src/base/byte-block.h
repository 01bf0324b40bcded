#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "src/base/characters.h"

#if defined(__SSE2__) || defined(_M_X64)
#define TORVEL_COMPARES_BLOCKS 1
#include <emmintrin.h>
#endif

namespace torvel {

// Sixteen bytes of a text that are looked at together. Each function tells which of them are of a kind: bit n for
// byte n. Bytes behind a text can be read with it if it stands in a TextStore, where so many stand behind each.

/// The bytes one by one, for processors that cannot compare them at once.
class PlainByteBlock {
public:
    static constexpr std::size_t size = 16;

    explicit PlainByteBlock(const char* from) { std::memcpy(bytes_.data(), from, size); }

    std::uint32_t equal(char c) const {
        return bytesFor([=](char byte) { return byte == c; });
    }
    std::uint32_t letters() const { return bytesFor(isLetter); }
    std::uint32_t digits() const { return bytesFor(isDigit); }
    /// What goes on with a word.
    std::uint32_t wordCharacters() const { return bytesFor(isWordCharacter); }
    /// Bytes that are no tab and not between the blank and `last`, those above 127 among them; and those of a set.
    template <char last, char... set>
    std::uint32_t outsideOr() const {
        return bytesFor([](char c) { return (c < ' ' || c > last) && c != '\t'; }) |
               oneOf<set...>();
    }
    /// Letters, and those of a set.
    template <char... set>
    std::uint32_t lettersOr() const {
        return letters() | oneOf<set...>();
    }
    template <char... set>
    std::uint32_t oneOf() const {
        return bytesFor([](char byte) { return ((byte == set) || ...); });
    }

private:
    template <typename Predicate>
    std::uint32_t bytesFor(Predicate predicate) const {
        std::uint32_t bits = 0;
        for (unsigned i = 0; i < size; ++i) {
            bits |= (predicate(bytes_[i]) ? 1U : 0U) << i;
        }
        return bits;
    }

    std::array<char, size> bytes_;
};

#ifdef TORVEL_COMPARES_BLOCKS

class ByteBlock {
public:
    static constexpr std::size_t size = 16;

    explicit ByteBlock(const char* from)
        : bytes_(_mm_loadu_si128(reinterpret_cast<const __m128i*>(from))) {}

    std::uint32_t equal(char c) const { return bitsOf(are(c)); }
    std::uint32_t letters() const { return bitsOf(areLetters()); }
    std::uint32_t digits() const { return bitsOf(areDigits()); }
    std::uint32_t wordCharacters() const {
        return bitsOf(_mm_or_si128(_mm_or_si128(areLetters(), areDigits()), are('_')));
    }
    template <char last, char... set>
    std::uint32_t outsideOr() const {
        // Moved so that the blank is the lowest number that there is.
        const __m128i moved = _mm_add_epi8(bytes_, _mm_set1_epi8(static_cast<char>(-128 - ' ')));
        const __m128i outside =
            _mm_cmpgt_epi8(moved, _mm_set1_epi8(static_cast<char>(-128 + (last - ' '))));
        __m128i hits = _mm_andnot_si128(are('\t'), outside);
        ((hits = _mm_or_si128(hits, are(set))), ...);
        return bitsOf(hits);
    }
    template <char... set>
    std::uint32_t lettersOr() const {
        __m128i hits = areLetters();
        ((hits = _mm_or_si128(hits, are(set))), ...);
        return bitsOf(hits);
    }
    template <char... set>
    std::uint32_t oneOf() const {
        __m128i hits = _mm_setzero_si128();
        ((hits = _mm_or_si128(hits, are(set))), ...);
        return bitsOf(hits);
    }

private:
    static std::uint32_t bitsOf(__m128i hits) {
        return static_cast<std::uint32_t>(_mm_movemask_epi8(hits));
    }
    __m128i are(char c) const { return _mm_cmpeq_epi8(bytes_, _mm_set1_epi8(c)); }
    /// `bytes` between `first` and `last`, which is told by one comparison: moved to the lowest numbers that there are.
    static __m128i areBetween(__m128i bytes, char first, char last) {
        const __m128i moved = _mm_add_epi8(bytes, _mm_set1_epi8(static_cast<char>(-128 - first)));
        return _mm_cmplt_epi8(moved, _mm_set1_epi8(static_cast<char>(-127 + (last - first))));
    }
    __m128i areDigits() const { return areBetween(bytes_, '0', '9'); }
    /// Both cases as lower case; what else becomes one is no letter either way.
    __m128i areLetters() const {
        return areBetween(_mm_or_si128(bytes_, _mm_set1_epi8(' ')), 'a', 'z');
    }

    __m128i bytes_;
};

#else

using ByteBlock = PlainByteBlock;

#endif

}  // namespace torvel
