#include "src/migrate/compressed-text.h"

#include <lz4frame.h>
#include <zlib.h>

#include <cstdint>
#include <limits>
#include <memory>
#include <new>
#include <stdexcept>
#include <utility>

#include "src/base/uninitialized-bytes.h"
#include "src/migrate/packed-numbers.h"

namespace torvel::migrate {

namespace {

/// More than a byte of either format is unpacked to.
constexpr std::uint64_t greatestRatio = 1100;

/// What the format of zlib begins with. A frame of LZ4 begins with a 4.
constexpr char firstOfZlib = 0x78;

bool unpackZlib(std::string_view bytes, std::string& text) {
    constexpr std::uint64_t longest = std::numeric_limits<uLong>::max();
    if (text.size() > longest || bytes.size() > longest) {
        return false;
    }
    auto length = static_cast<uLong>(text.size());
    auto read = static_cast<uLong>(bytes.size());
    const int result = uncompress2(reinterpret_cast<Bytef*>(text.data()), &length,
                                   reinterpret_cast<const Bytef*>(bytes.data()), &read);
    return result == Z_OK && length == text.size() && read == bytes.size();
}

bool unpackFrame(std::string_view bytes, std::string& text) {
    LZ4F_dctx* made = nullptr;
    if (LZ4F_isError(LZ4F_createDecompressionContext(&made, LZ4F_VERSION)) != 0) {
        throw std::bad_alloc();
    }
    const std::unique_ptr<LZ4F_dctx, decltype(&LZ4F_freeDecompressionContext)> context(
        made, LZ4F_freeDecompressionContext);
    std::size_t length = text.size();
    std::size_t read = bytes.size();
    const std::size_t left =
        LZ4F_decompress(context.get(), text.data(), &length, bytes.data(), &read, nullptr);
    return left == 0 && length == text.size() && read == bytes.size();
}

}  // namespace

std::string compressed(std::string_view text, CheckSum checkSum) {
    LZ4F_preferences_t preferences = LZ4F_INIT_PREFERENCES;
    preferences.frameInfo.contentChecksumFlag =
        checkSum == CheckSum::yes ? LZ4F_contentChecksumEnabled : LZ4F_noContentChecksum;
    const std::size_t bound = LZ4F_compressFrameBound(text.size(), &preferences);
    const std::unique_ptr<char[]> frame = uninitializedBytes(bound);
    const std::size_t length =
        LZ4F_compressFrame(frame.get(), bound, text.data(), text.size(), &preferences);
    if (LZ4F_isError(length) != 0) {
        throw std::runtime_error("A text cannot be compressed: " +
                                 std::string(LZ4F_getErrorName(length)));
    }
    std::string bytes;
    appendNumber(bytes, text.size());
    bytes.reserve(bytes.size() + length);
    return bytes.append(frame.get(), length);
}

std::optional<std::string> uncompressed(std::string_view bytes) {
    const std::optional<std::uint64_t> length = takeNumber(bytes);
    if (!length || *length / greatestRatio > bytes.size()) {
        return std::nullopt;
    }
    std::string text(*length, '\0');
    const bool isOfZlib = bytes.starts_with(firstOfZlib);
    return (isOfZlib ? unpackZlib(bytes, text) : unpackFrame(bytes, text))
               ? std::optional(std::move(text))
               : std::nullopt;
}

}  // namespace torvel::migrate
