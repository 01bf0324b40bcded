#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace torvel::migrate {

/// A text as the store keeps it: its length, and its bytes in the format of zlib.
std::string compressed(std::string_view text);

/// The text that `compressed` was given; nothing if the bytes are not of that kind.
std::optional<std::string> uncompressed(std::string_view bytes);

}  // namespace torvel::migrate
