#include "src/migrate/compressed-text.h"

#include <zlib.h>

#include <cstdint>
#include <new>

#include "src/migrate/packed-numbers.h"

namespace torvel::migrate {

namespace {

/// More than zlib makes of a byte.
constexpr std::uint64_t greatestRatio = 1100;

}  // namespace

std::string compressed(std::string_view text) {
    std::string bytes;
    appendNumber(bytes, text.size());
    const std::size_t head = bytes.size();
    uLongf size = compressBound(static_cast<uLong>(text.size()));
    bytes.resize(head + size);
    // The fastest level: more would cost as much time as the conversion.
    const int code =
        compress2(reinterpret_cast<Bytef*>(bytes.data() + head), &size,
                  reinterpret_cast<const Bytef*>(text.data()), static_cast<uLong>(text.size()), 1);
    if (code != Z_OK) {
        throw std::bad_alloc();
    }
    bytes.resize(head + size);
    bytes.shrink_to_fit();
    return bytes;
}

std::optional<std::string> uncompressed(std::string_view bytes) {
    const std::optional<std::uint64_t> length = takeNumber(bytes);
    if (!length || *length / greatestRatio > bytes.size()) {
        return std::nullopt;
    }
    std::string text(*length, '\0');
    uLongf size = static_cast<uLongf>(text.size());
    const int code =
        uncompress(reinterpret_cast<Bytef*>(text.data()), &size,
                   reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uLong>(bytes.size()));
    if (code != Z_OK || size != text.size()) {
        return std::nullopt;
    }
    return text;
}

}  // namespace torvel::migrate
