#include "src/migrate/compressed-text.h"

// Input that zlib does not change.
#define ZLIB_CONST
#include <zlib.h>

#include <algorithm>
#include <cstdint>
#include <new>
#include <utility>

#include "src/migrate/packed-numbers.h"

namespace torvel::migrate {

namespace {

/// More than zlib makes of a byte.
constexpr std::uint64_t greatestRatio = 1100;

/// What zlib is given and gives at a time.
constexpr std::size_t mostAtOnce = std::size_t{1} << 30U;

}  // namespace

struct Compressor::State {
    z_stream stream{};
};

Compressor::Compressor() : state_(std::make_unique<State>()) {
    // The fastest level: more would take as much time as the conversion.
    if (deflateInit(&state_->stream, 1) != Z_OK) {
        throw std::bad_alloc();
    }
}

Compressor::~Compressor() {
    deflateEnd(&state_->stream);
}

std::string Compressor::compressed(std::string_view text) {
    z_stream& stream = state_->stream;
    deflateReset(&stream);
    std::string bytes;
    appendNumber(bytes, text.size());
    const std::size_t head = bytes.size();
    bytes.resize(head + deflateBound(&stream, static_cast<uLong>(text.size())));
    // zlib counts with 32 bits what it takes and gives at a time.
    std::size_t written = head;
    int code = Z_OK;
    while (code == Z_OK) {
        const std::string_view piece = text.substr(0, mostAtOnce);
        const std::size_t room = std::min(bytes.size() - written, mostAtOnce);
        stream.next_in = reinterpret_cast<const Bytef*>(piece.data());
        stream.avail_in = static_cast<uInt>(piece.size());
        stream.next_out = reinterpret_cast<Bytef*>(bytes.data() + written);
        stream.avail_out = static_cast<uInt>(room);
        code = deflate(&stream, piece.size() == text.size() ? Z_FINISH : Z_NO_FLUSH);
        text.remove_prefix(piece.size() - stream.avail_in);
        written += room - stream.avail_out;
    }
    if (code != Z_STREAM_END) {
        throw std::bad_alloc();
    }
    bytes.resize(written);
    bytes.shrink_to_fit();
    return bytes;
}

Compressors::Lent Compressors::borrow() {
    std::unique_ptr<Compressor> compressor;
    {
        const std::lock_guard lock(mutex_);
        if (!free_.empty()) {
            compressor = std::move(free_.back());
            free_.pop_back();
        }
    }
    if (!compressor) {
        compressor = std::make_unique<Compressor>();
    }
    return {compressor.release(), [this](Compressor* back) {
                std::unique_ptr<Compressor> owned(back);
                const std::lock_guard lock(mutex_);
                free_.push_back(std::move(owned));
            }};
}

std::string compressed(std::string_view text) {
    return Compressor().compressed(text);
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
