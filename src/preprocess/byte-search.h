#pragma once

#include <bit>
#include <cstdint>

#if defined(__SSE2__) || defined(_M_X64)
#define TORVEL_SEARCHES_BLOCKS 1
#include <emmintrin.h>
#endif

namespace torvel {

/// The first byte from `from` on that is one of `set`. There must be one, in a text of a TextStore or in the
/// NUL bytes behind it: where the processor compares sixteen bytes at once, as many are read.
template <char... set>
const char* findByte(const char* from) {
#ifdef TORVEL_SEARCHES_BLOCKS
    while (true) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
        __m128i hits = _mm_setzero_si128();
        ((hits = _mm_or_si128(hits, _mm_cmpeq_epi8(bytes, _mm_set1_epi8(set)))), ...);
        const auto mask = static_cast<std::uint32_t>(_mm_movemask_epi8(hits));
        if (mask != 0) {
            return from + std::countr_zero(mask);
        }
        from += 16;
    }
#else
    while (((*from != set) && ...)) {
        ++from;
    }
    return from;
#endif
}

}  // namespace torvel
