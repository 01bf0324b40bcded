#pragma once

#include <cstdint>

namespace torvel {

/// What a statement does to the nesting of blocks, and so to the indentation.
enum class BlockEffect : std::uint8_t {
    None = 0,
    Opens = 1,
    Closes = 2,
    /// Closes a branch and opens the next.
    Continues = 3,
};

}  // namespace torvel
