// What is packed for a page comes back as a browser unpacks it.

#include "src/migrate/html-packing.h"

#include <gtest/gtest.h>

#include "tests/migrate/html-decoding.h"
#include "tests/migrate/report-example.h"

namespace torvel::migrate::test {

namespace {

std::string packed(HtmlPacker& packer, const std::string& text, std::size_t pieceSize) {
    return textFrom([&](const TextSink& sink) {
        packer.pack(
            [&](const TextSink& pieces) {
                for (std::size_t at = 0; at < text.size(); at += pieceSize) {
                    pieces(std::string_view(text).substr(at, pieceSize));
                }
            },
            sink);
    });
}

/// Bytes that cannot be made shorter.
std::string noise(std::size_t size) {
    std::string text;
    std::uint32_t state = 1;
    while (text.size() < size) {
        state = state * 1664525U + 1013904223U;
        text += static_cast<char>(state >> 24U);
    }
    return text;
}

}  // namespace

TEST(HtmlPacking, EveryLengthOfTheLastGroup) {
    HtmlPacker packer;
    for (std::size_t size = 0; size < 50; ++size) {
        const std::string text = noise(size);
        EXPECT_EQ(unpacked(packed(packer, text, 7)), text) << size;
    }
}

TEST(HtmlPacking, LongTextsInPiecesOfAnySize) {
    HtmlPacker packer;
    const std::string text = noise(300000) + std::string(300000, 'x') + "end";
    const std::string base64 = packed(packer, text, text.size());
    EXPECT_LT(base64.size(), 300000U / 3 * 4 + 1500);
    EXPECT_EQ(base64.find_first_of("\r\n <\""), std::string::npos);
    EXPECT_EQ(unpacked(base64), text);
    EXPECT_EQ(unpacked(packed(packer, text, 1000)), text);
    EXPECT_EQ(unpacked(packed(packer, text, 65537)), text);
}

TEST(HtmlPacking, TheSameTextGivesTheSameBytes) {
    HtmlPacker used;
    packed(used, "another text", 100);
    HtmlPacker fresh;
    EXPECT_EQ(packed(used, "a text", 100), packed(fresh, "a text", 2));
}

TEST(HtmlPacking, PiecesAreSmall) {
    HtmlPacker packer;
    std::size_t largest = 0;
    packer.pack([](const TextSink& sink) { sink(noise(2000000)); },
                [&](std::string_view piece) { largest = std::max(largest, piece.size()); });
    EXPECT_LT(largest, 200000U);
}

}  // namespace torvel::migrate::test
