#pragma once

#include <cstdint>

#include "src/base/byte-block.h"

namespace torvel {

/// Which of the bytes may begin no token, and which are of a further set. "|" and "~", which are rare and do begin one,
/// are among them: with their neighbours they take one comparison.
template <char... further>
std::uint32_t bytesOfNoToken(const ByteBlock& bytes) {
    return bytes.outsideOr<'z', '?', '\\', '`', further...>();
}

}  // namespace torvel
