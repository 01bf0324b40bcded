#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "src/base/hash.h"

namespace torvel {

/// The bytes of a name of sixteen at most, filled up with NULs: most names are that short, and two numbers are compared
/// without a look at their text. No name is empty or has a NUL, so no name is zero.
struct ShortName {
    static constexpr std::size_t longest = 16;

    std::uint64_t low = 0;
    std::uint64_t high = 0;

    bool operator==(const ShortName&) const = default;
};

/// The lowest of eight bytes that stand one behind the other, NULs in the place of the others. The first is the lowest.
inline std::uint64_t lowestBytes(const char* bytes, std::size_t count) {
    static_assert(std::endian::native == std::endian::little);
    std::uint64_t number = 0;
    std::memcpy(&number, bytes, sizeof number);
    const std::uint64_t mask = (std::uint64_t{1} << (8 * count % 64)) - 1;
    return number & (mask | (count < sizeof number ? 0 : UINT64_MAX));
}

/// As in every text store sixteen bytes can be read from the name's first one on.
inline ShortName shortName(std::string_view name) {
    const std::size_t low = std::min(name.size(), sizeof(std::uint64_t));
    return {lowestBytes(name.data(), low),
            lowestBytes(name.data() + sizeof(std::uint64_t), name.size() - low)};
}

/// A product's bits depend on those below them only, so both halves are put together first.
inline std::size_t hashOf(const ShortName& name) {
    const std::uint64_t both = name.low ^ name.high * fnvPrime;
    return static_cast<std::size_t>((both ^ both >> 32U) * 0x9e3779b97f4a7c15U >> 32U);
}

/// Eight bytes with small letters for A to Z.
constexpr std::uint64_t inLowerCase(std::uint64_t bytes) {
    constexpr std::uint64_t each = 0x0101010101010101U;
    constexpr std::uint64_t top = 0x80 * each;
    // The topmost bit of a byte tells whether it is at least the letter; those of other bytes are out of it.
    const std::uint64_t low = bytes & ~top;
    const std::uint64_t fromA = low + (0x80 - 'A') * each;
    const std::uint64_t behindZ = low + (0x7f - 'Z') * each;
    return bytes | (fromA & ~behindZ & ~bytes & top) >> 2U;
}

constexpr ShortName inLowerCase(const ShortName& name) {
    return {inLowerCase(name.low), inLowerCase(name.high)};
}

}  // namespace torvel
