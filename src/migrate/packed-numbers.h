#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Numbers in as few bytes as they need: seven bits in each, the lowest first, the eighth bit set in all but the last.

namespace torvel::migrate {

inline void appendNumber(std::string& bytes, std::uint64_t number) {
    for (; number >= 128; number >>= 7U) {
        bytes += static_cast<char>((number & 127U) | 128U);
    }
    bytes += static_cast<char>(number);
}

/// Takes a number off the front of `bytes`; nothing if there is none.
inline std::optional<std::uint64_t> takeNumber(std::string_view& bytes) {
    std::uint64_t number = 0;
    for (unsigned shift = 0; shift < 64 && !bytes.empty(); shift += 7) {
        const auto byte = static_cast<unsigned char>(bytes.front());
        bytes.remove_prefix(1);
        number |= std::uint64_t{byte & 127U} << shift;
        if (byte < 128) {
            return number;
        }
    }
    return std::nullopt;
}

}  // namespace torvel::migrate
