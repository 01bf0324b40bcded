#include "src/migrate/content-hash.h"

#include <cstdint>
#include <cstring>

#define XXH_INLINE_ALL
#include <xxhash.h>

namespace torvel::migrate {

ContentHash hashOf(std::string_view bytes) {
    XXH128_canonical_t canonical;
    XXH128_canonicalFromHash(&canonical, XXH3_128bits(bytes.data(), bytes.size()));
    ContentHash hash;
    static_assert(sizeof(hash) == sizeof(canonical.digest));
    std::memcpy(hash.data(), canonical.digest, hash.size());
    return hash;
}

std::string hexadecimal(const ContentHash& hash) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (const unsigned char byte : hash) {
        text += digits[byte >> 4U];
        text += digits[byte & 15U];
    }
    return text;
}

void KeyBuilder::add(std::string_view name, std::string_view piece) {
    const auto addWithLength = [this](std::string_view text) {
        std::uint64_t length = text.size();
        for (unsigned i = 0; i < 8; ++i, length >>= 8U) {
            pieces_ += static_cast<char>(length & 255U);
        }
        pieces_ += text;
    };
    addWithLength(name);
    addWithLength(piece);
}

}  // namespace torvel::migrate
