#pragma once

#include <bit>
#include <cstdint>
#include <string_view>

#include "src/base/byte-block.h"
#include "src/preprocess/define-table.h"
#include "src/preprocess/name-cuts.h"

namespace torvel {

// Where names of defines may begin and end in a text, told for thirty-two bytes at once by what isCut() says of the
// classes of two bytes. The text stands in a TextStore. Names begin with a letter, "_" or "$".

/// The places of a text at which a string begins, or with the bytes that are there some name.
class NameStarts {
public:
    NameStarts(std::string_view text, const NameLengths& lengths)
        : lengths_(lengths),
          end_(text.data() + text.size()),
          block_(text.data()),
          dollars_(lengths.begins['$'] ? ~std::uint32_t{0} : 0) {
        if (!text.empty()) {
            look();
        }
    }

    /// The place at hand; the end: there are no more. That a cut is in front of it is not certain.
    const char* find() {
        while (true) {
            for (; starts_ != 0; stepOver()) {
                const char* const start = block_ + std::countr_zero(starts_);
                if (lengths_.mayBegin(start) || *start == '"') {
                    return start;
                }
            }
            if (end_ - block_ <= size) {
                return end_;
            }
            block_ += size;
            look();
        }
    }

    /// Goes on behind the place at hand, or at `from` if that is not in front of it.
    void stepOver() { starts_ &= starts_ - 1; }
    void moveTo(const char* from) {
        const std::ptrdiff_t distance = from - block_;
        if (distance >= size) {
            block_ = from;
            starts_ = 0;
            if (from < end_) {
                look();
            }
        } else if (distance > 0) {
            starts_ &= ~std::uint32_t{0} << distance;
        }
    }

private:
    static constexpr std::ptrdiff_t size = 2 * std::ptrdiff_t{ByteBlock::size};

    void look() {
        const ByteBlock first(block_);
        std::uint32_t words = first.lettersOr<'_', '$'>();
        std::uint32_t dollars = first.equal('$');
        std::uint32_t quotes = first.equal('"');
        const std::ptrdiff_t left = end_ - block_;
        if (left > static_cast<std::ptrdiff_t>(ByteBlock::size)) {
            const ByteBlock second(block_ + ByteBlock::size);
            words |= second.lettersOr<'_', '$'>() << ByteBlock::size;
            dollars |= second.equal('$') << ByteBlock::size;
            quotes |= second.equal('"') << ByteBlock::size;
        }
        starts_ = (words & ~(words << 1U) & ~dollars) | (dollars & dollars_) | quotes;
        if (left < size) {
            starts_ &= (std::uint32_t{1} << left) - 1;
        }
    }

    const NameLengths& lengths_;
    const char* end_;
    const char* block_;
    /// Of the places with "$" those that count.
    std::uint32_t dollars_;
    std::uint32_t starts_ = 0;
};

/// What is known of the bytes behind a place, bit n for the distance of n bytes.
struct CutDistances {
    static constexpr std::size_t known = 2 * ByteBlock::size;

    /// Where cuts are, the end of the text being one.
    std::uint64_t cuts = 0;
    /// What is no farther away than the next blank or quote, and no farther than the end.
    std::uint64_t inWord = 0;
};

/// The cuts behind `start`, which is in front of `end`.
inline CutDistances cutsBehind(const char* start, const char* end) {
    const ByteBlock first(start);
    std::uint32_t letters = first.letters();
    std::uint32_t digits = first.digits();
    std::uint32_t underscores = first.equal('_');
    std::uint32_t dollars = first.equal('$');
    std::uint64_t gaps = first.oneOf<' ', '"'>();
    const std::ptrdiff_t left = end - start;
    if (left > static_cast<std::ptrdiff_t>(ByteBlock::size)) {
        const ByteBlock second(start + ByteBlock::size);
        letters |= second.letters() << ByteBlock::size;
        digits |= second.digits() << ByteBlock::size;
        underscores |= second.equal('_') << ByteBlock::size;
        dollars |= second.equal('$') << ByteBlock::size;
        gaps |= second.oneOf<' ', '"'>() << ByteBlock::size;
    }
    // What goes on with the byte in front of it is no cut.
    const std::uint32_t inFrontOfLetter = letters | underscores | dollars;
    const std::uint32_t inFrontOfDigit = digits | underscores | dollars;
    const std::uint32_t joined =
        (letters & (inFrontOfLetter << 1U)) | (digits & (inFrontOfDigit << 1U)) |
        (underscores & ((inFrontOfLetter | digits) << 1U)) | (dollars & (dollars << 1U));
    std::uint64_t cuts = static_cast<std::uint32_t>(~joined);
    if (left < static_cast<std::ptrdiff_t>(CutDistances::known)) {
        const std::uint64_t atEnd = std::uint64_t{1} << left;
        cuts |= atEnd;
        gaps |= atEnd;
    }
    return {cuts, gaps ^ (gaps - 1)};
}

}  // namespace torvel
