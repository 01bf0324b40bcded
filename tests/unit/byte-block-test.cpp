// Sixteen bytes that are compared at once say the same as the bytes one by one.

#include <gtest/gtest.h>

#include <array>

#include "src/base/byte-block.h"

namespace torvel::test {

TEST(ByteBlock, TellsOfEachByteWhatThePlainBlockTells) {
    for (int byte = 0; byte < 256; ++byte) {
        for (unsigned at = 0; at < ByteBlock::size; ++at) {
            std::array<char, ByteBlock::size> bytes{};
            bytes.fill(at % 2 == 0 ? 'a' : '.');
            bytes[at] = static_cast<char>(byte);
            const ByteBlock block(bytes.data());
            const PlainByteBlock plain(bytes.data());
            const std::uint32_t bit = std::uint32_t{1} << at;
            EXPECT_EQ(block.equal(static_cast<char>(byte)) & bit, bit) << byte;
            EXPECT_EQ(block.equal('_'), plain.equal('_')) << byte;
            EXPECT_EQ(block.letters(), plain.letters()) << byte;
            EXPECT_EQ(block.digits(), plain.digits()) << byte;
            EXPECT_EQ(block.wordCharacters(), plain.wordCharacters()) << byte;
            EXPECT_EQ((block.outsideOr<'z', '?'>()), (plain.outsideOr<'z', '?'>())) << byte;
            EXPECT_EQ((block.lettersOr<'_', '$'>()), (plain.lettersOr<'_', '$'>())) << byte;
            EXPECT_EQ((block.oneOf<'"', ';', '\x7F'>()), (plain.oneOf<'"', ';', '\x7F'>())) << byte;
        }
    }
}

TEST(ByteBlock, KnowsTheClassesOfCharacters) {
    const PlainByteBlock block("aZ@[`{09/:_#\t\n\x80 ");
    EXPECT_EQ(block.letters(), 0b11U);
    EXPECT_EQ(block.digits(), 0b1100'0000U);
    EXPECT_EQ(block.wordCharacters(), 0b100'1100'0011U);
    EXPECT_EQ((block.outsideOr<'`', '/'>()), 0b0110'0001'0010'0001U);
}

}  // namespace torvel::test
