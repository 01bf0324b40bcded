#pragma once

#include <cstdint>

#include "src/base/byte-block.h"

namespace torvel {

/// Which of the bytes begin no token, but for control characters and those above 127.
inline std::uint32_t bytesOfNoToken(const ByteBlock& bytes) {
    return bytes.oneOf<'\x7F', '?', '\\', '`', '{', '}'>();
}

}  // namespace torvel
