#pragma once

#include <cstdint>
#include <string_view>

namespace torvel {

// 64-bit FNV-1a. It can run along a text byte by byte, so one pass gives the hash of every prefix.

inline constexpr std::uint64_t fnvOffsetBasis = 14695981039346656037ULL;
inline constexpr std::uint64_t fnvPrime = 1099511628211ULL;

/// The hash of a text of which `hash` is the hash so far, extended by `c`.
constexpr std::uint64_t extendHash(std::uint64_t hash, char c) {
    return (hash ^ static_cast<unsigned char>(c)) * fnvPrime;
}

constexpr std::uint64_t hashText(std::string_view text) {
    std::uint64_t hash = fnvOffsetBasis;
    for (char c : text) {
        hash = extendHash(hash, c);
    }
    return hash;
}

}  // namespace torvel
