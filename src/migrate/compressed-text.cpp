#include "src/migrate/compressed-text.h"

#include <libdeflate.h>

#include <cstdint>
#include <new>
#include <stdexcept>
#include <utility>

#include "src/migrate/packed-numbers.h"

namespace torvel::migrate {

namespace {

/// More than a byte of the format is unpacked to.
constexpr std::uint64_t greatestRatio = 1100;

/// The fastest level that makes texts smaller: more would take as much time as the conversion.
constexpr int level = 1;

}  // namespace

struct Compressor::State {
    State() : compressor(libdeflate_alloc_compressor(level)) {
        if (compressor == nullptr) {
            throw std::bad_alloc();
        }
    }
    State(const State&) = delete;
    State& operator=(const State&) = delete;
    ~State() { libdeflate_free_compressor(compressor); }

    libdeflate_compressor* compressor;
    /// Where texts are compressed before it is known how long they become.
    std::string room;
};

Compressor::Compressor() : state_(std::make_unique<State>()) {}

Compressor::~Compressor() = default;

std::string Compressor::compressed(std::string_view text) {
    std::string& room = state_->room;
    const std::size_t bound = libdeflate_zlib_compress_bound(state_->compressor, text.size());
    if (room.size() < bound) {
        room.resize(bound);
    }
    const std::size_t length = libdeflate_zlib_compress(state_->compressor, text.data(),
                                                        text.size(), room.data(), room.size());
    if (length == 0) {
        throw std::logic_error("A text does not fit where it was said to fit.");
    }
    std::string bytes;
    appendNumber(bytes, text.size());
    bytes.reserve(bytes.size() + length);
    bytes.append(room, 0, length);
    forgetLargeRoom();
    return bytes;
}

void Compressor::forgetLargeRoom() {
    constexpr std::size_t largest = std::size_t{1} << 20U;
    if (state_->room.size() > largest) {
        state_->room = std::string();
    }
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
    const std::unique_ptr<libdeflate_decompressor, decltype(&libdeflate_free_decompressor)>
        decompressor(libdeflate_alloc_decompressor(), libdeflate_free_decompressor);
    if (!decompressor) {
        throw std::bad_alloc();
    }
    std::string text(*length, '\0');
    std::size_t read = 0;
    // Without a place for its length the text has to be exactly as long as it says.
    const libdeflate_result result = libdeflate_zlib_decompress_ex(
        decompressor.get(), bytes.data(), bytes.size(), text.data(), text.size(), &read, nullptr);
    return result == LIBDEFLATE_SUCCESS && read == bytes.size() ? std::optional(std::move(text))
                                                                : std::nullopt;
}

}  // namespace torvel::migrate
