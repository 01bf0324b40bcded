#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace torvel::migrate {

/// Whether a compressed text has its check sum with it. One that is kept by its hash needs none.
enum class CheckSum : bool { no, yes };

/// A text as the store keeps it: its length, and a frame of LZ4. Throws std::runtime_error if that cannot be made.
std::string compressed(std::string_view text, CheckSum checkSum);

/// The text that `compressed` was given, now or in an older version, which wrote the format of zlib; nothing if the bytes
/// are of neither kind.
std::optional<std::string> uncompressed(std::string_view bytes);

}  // namespace torvel::migrate
