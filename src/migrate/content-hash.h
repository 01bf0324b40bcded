#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace torvel::migrate {

/// The XXH3 hash of some bytes, 128 bits in their canonical order.
using ContentHash = std::array<unsigned char, 16>;

ContentHash hashOf(std::string_view bytes);

/// 32 hexadecimal digits.
std::string hexadecimal(const ContentHash& hash);

/// Makes one hash of several pieces; each piece has a name and a length of its own, so that none can be taken for
/// another.
class KeyBuilder {
public:
    void add(std::string_view name, std::string_view piece);
    ContentHash key() const { return hashOf(pieces_); }

private:
    std::string pieces_;
};

}  // namespace torvel::migrate
