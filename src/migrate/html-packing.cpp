#include "src/migrate/html-packing.h"

// Input that zlib does not change.
#define ZLIB_CONST
#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <new>
#include <string>

namespace torvel::migrate {

namespace {

/// docs/report-page.md has what other levels come to.
constexpr int level = 6;
constexpr int windowBits = 15;
constexpr int gzipFormat = 16;
constexpr int memoryLevel = 9;

/// What zlib is given at a time, which it counts with 32 bits.
constexpr std::size_t mostAtOnce = std::size_t{1} << 30U;

/// Writes bytes as base64, three bytes as four characters.
class Base64 {
public:
    explicit Base64(const TextSink& sink) : buffer_(sink) {}

    void write(std::string_view bytes) {
        while (!bytes.empty() && restSize_ != 0) {
            add(bytes[0]);
            bytes.remove_prefix(1);
        }
        std::string text;
        text.reserve(bytes.size() / 3 * 4);
        for (; bytes.size() >= 3; bytes.remove_prefix(3)) {
            append(text, bytes[0], bytes[1], bytes[2]);
        }
        buffer_ << text;
        for (const char byte : bytes) {
            add(byte);
        }
    }

    void finish() {
        if (restSize_ != 0) {
            std::string text;
            append(text, rest_[0], restSize_ == 2 ? rest_[1] : '\0', '\0');
            text.replace(restSize_ + 1, std::string::npos, 3 - restSize_, '=');
            buffer_ << text;
            restSize_ = 0;
        }
        buffer_.finish();
    }

private:
    void add(char byte) {
        rest_[restSize_++] = byte;
        if (restSize_ == rest_.size()) {
            std::string text;
            append(text, rest_[0], rest_[1], rest_[2]);
            buffer_ << text;
            restSize_ = 0;
        }
    }

    static void append(std::string& text, char first, char second, char third) {
        constexpr std::string_view digits =
            "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
        const auto byte = [](char c) { return std::uint32_t{static_cast<unsigned char>(c)}; };
        const std::uint32_t bits = byte(first) << 16U | byte(second) << 8U | byte(third);
        const std::array<char, 4> four = {digits[bits >> 18U], digits[bits >> 12U & 63U],
                                          digits[bits >> 6U & 63U], digits[bits & 63U]};
        text.append(four.data(), four.size());
    }

    TextBuffer buffer_;
    /// Bytes that make no group of three yet.
    std::array<char, 3> rest_{};
    std::size_t restSize_ = 0;
};

}  // namespace

struct HtmlPacker::State {
    z_stream stream{};
    std::array<char, std::size_t{1} << 16U> room{};

    void deflateInto(Base64& base64, std::string_view text, int flush) {
        stream.next_in = reinterpret_cast<const Bytef*>(text.data());
        stream.avail_in = static_cast<uInt>(text.size());
        do {
            stream.next_out = reinterpret_cast<Bytef*>(room.data());
            stream.avail_out = static_cast<uInt>(room.size());
            deflate(&stream, flush);
            base64.write({room.data(), room.size() - stream.avail_out});
        } while (stream.avail_out == 0);
    }
};

HtmlPacker::HtmlPacker() : state_(std::make_unique<State>()) {
    if (deflateInit2(&state_->stream, level, Z_DEFLATED, windowBits + gzipFormat, memoryLevel,
                     Z_DEFAULT_STRATEGY) != Z_OK) {
        throw std::bad_alloc();
    }
}

HtmlPacker::~HtmlPacker() {
    deflateEnd(&state_->stream);
}

void HtmlPacker::pack(const TextWriter& write, const TextSink& sink) {
    deflateReset(&state_->stream);
    Base64 base64(sink);
    write([this, &base64](std::string_view text) {
        for (; !text.empty(); text.remove_prefix(std::min(text.size(), mostAtOnce))) {
            state_->deflateInto(base64, text.substr(0, mostAtOnce), Z_NO_FLUSH);
        }
    });
    state_->deflateInto(base64, {}, Z_FINISH);
    base64.finish();
}

}  // namespace torvel::migrate
