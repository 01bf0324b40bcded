#pragma once

#include <bit>
#include <cstdint>

#include "src/base/byte-block.h"
#include "src/lex/refused-bytes.h"

namespace torvel {

/// Goes through a text of a TextStore from sign to sign: the bytes that end a line, begin a comment or are quotes,
/// and those that may begin no token. Each block of bytes is looked at once, however many lines are in it.
class SignSearch {
public:
    explicit SignSearch(const char* begin) : block_(begin) { look(); }

    /// The next sign. There must be one: a NUL stands behind the text.
    const char* next() {
        while (signs_ == 0) {
            block_ += size;
            look();
        }
        const char* const sign = block_ + std::countr_zero(signs_);
        signs_ &= signs_ - 1;
        return sign;
    }

    /// The next sign that ends a line.
    const char* nextLineEnd() {
        const char* at = next();
        while (*at != '\n' && *at != '\r' && *at != '\0') {
            at = next();
        }
        return at;
    }

    /// Goes on at `at`.
    void moveTo(const char* at) {
        block_ = at;
        look();
    }

private:
    static constexpr std::size_t size = 2 * ByteBlock::size;

    static std::uint32_t signsOf(const ByteBlock& bytes) {
        return bytesOfNoToken<'"', ';', '\'', '/'>(bytes);
    }
    void look() {
        signs_ = signsOf(ByteBlock(block_)) | signsOf(ByteBlock(block_ + ByteBlock::size))
                                                  << ByteBlock::size;
    }

    const char* block_;
    /// Those of the block behind the last one.
    std::uint32_t signs_ = 0;
};

}  // namespace torvel
