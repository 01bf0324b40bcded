// Which lines have to be lexed before anything is written: those with a byte that begins no token. A byte of
// the kind in a string does no harm, but the line is lexed early all the same.

#include "src/lex/lexer.h"

#include <algorithm>
#include <cstdint>

#if defined(__SSE2__) || defined(_M_X64)
#define TORVEL_COMPARES_BLOCKS 1
#include <emmintrin.h>
#endif

namespace torvel {

namespace {

/// Bytes that begin no token, wherever they stand, and those that begin a comment.
constexpr char refusedSigns[] = {'\x7F', '?', '\\', '`', '{', '}', ';', '\''};

}  // namespace

#ifdef TORVEL_COMPARES_BLOCKS

bool mayBeRefused(std::string_view code) {
    const char* const end = code.data() + code.size();
    for (const char* at = code.data(); at < end; at += 16) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
        const auto are = [&](char c) { return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(c)); };
        // Bytes above 127 are negative.
        __m128i hits = _mm_andnot_si128(are('\t'), _mm_cmplt_epi8(bytes, _mm_set1_epi8(' ')));
        for (const char c : refusedSigns) {
            hits = _mm_or_si128(hits, are(c));
        }
        auto mask = static_cast<std::uint32_t>(_mm_movemask_epi8(hits));
        if (end - at < 16) {
            mask &= (1U << (end - at)) - 1U;
        }
        if (mask != 0) {
            return true;
        }
    }
    return false;
}

#else

bool mayBeRefused(std::string_view code) {
    const std::string_view signs(refusedSigns, sizeof refusedSigns);
    return std::any_of(code.begin(), code.end(), [&](char c) {
        return (static_cast<signed char>(c) < ' ' && c != '\t') ||
               signs.find(c) != std::string_view::npos;
    });
}

#endif

}  // namespace torvel
