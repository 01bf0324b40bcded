#pragma once

#include <bit>

#include "src/base/byte-block.h"

namespace torvel {

/// The first byte from `from` on that is one of `set`. There must be one, in a text of a TextStore or in the
/// NUL bytes behind it, which are read in blocks.
template <char... set>
const char* findByte(const char* from) {
    while (true) {
        const std::uint32_t hits = ByteBlock(from).oneOf<set...>();
        if (hits != 0) {
            return from + std::countr_zero(hits);
        }
        from += ByteBlock::size;
    }
}

}  // namespace torvel
