#pragma once

#include <cstddef>
#include <memory>

namespace torvel {

/// Room for bytes that are written before they are read. What std::make_unique_for_overwrite does, which not every
/// standard library has.
inline std::unique_ptr<char[]> uninitializedBytes(std::size_t count) {
    return std::unique_ptr<char[]>(new char[count]);
}

}  // namespace torvel
