// Bytes of programs as text, and columns in it.

#include "src/migrate/text-decoding.h"

#include <gtest/gtest.h>

namespace torvel::migrate::test {

TEST(TextDecoding, ValidUtf8StaysAsItIs) {
    EXPECT_EQ(decodedText(""), "");
    EXPECT_EQ(decodedText("G1 X1"), "G1 X1");
    EXPECT_EQ(decodedText("90\xC2\xB0 \xE2\x82\xAC \xF0\x9F\x98\x80"), "90° € 😀");
    EXPECT_EQ(decodedText(std::string_view("a\0b\x1B", 4)), std::string_view("a\0b\x1B", 4));
}

TEST(TextDecoding, LinesAreDecodedByThemselves) {
    EXPECT_EQ(decodedLines(""), "");
    EXPECT_EQ(decodedLines("a\nb"), "a\nb");
    EXPECT_EQ(decodedLines("a\r\nb\rc\n\r\r\n"), "a\nb\nc\n\n\n");
    EXPECT_EQ(decodedLines("°\r\n"), "°\n");
    // The first line is no UTF-8, the second one is.
    EXPECT_EQ(decodedLines("\xB0\n\xC2\xB0\r\n\x80"), "°\n°\n€");
    EXPECT_EQ(decodedText("\xB0\n\xC2\xB0"), "°\nÂ°");
    // A character that a line end cuts is none.
    EXPECT_EQ(decodedLines("\xC2\n\xB0"), "Â\n°");
}

TEST(TextDecoding, AnythingElseIsWindows1252) {
    EXPECT_EQ(decodedText("90\xB0"), "90°");
    EXPECT_EQ(decodedText("\x80\x92\xE4"), "€’ä");
    // One byte that is no UTF-8 makes the whole text Windows-1252.
    EXPECT_EQ(decodedText("\xC2\xB0 \xB0"), "Â° °");
    EXPECT_EQ(decodedText("\x81"), "\xC2\x81");
}

TEST(TextDecoding, FormsThatUtf8Forbids) {
    EXPECT_EQ(decodedText("\xC0\xAF"), "À¯") << "a longer form than needed";
    EXPECT_EQ(decodedText("\xE0\x80\xAF"), "à€¯") << "a longer form than needed";
    EXPECT_EQ(decodedText("\xED\xA0\x80"), "í\xC2\xA0€") << "half of a pair";
    EXPECT_EQ(decodedText("\xF4\x90\x80\x80"), "ô\xC2\x90€€") << "beyond the last character";
    EXPECT_EQ(decodedText("\xE2\x82"), "â‚") << "cut off";
}

TEST(TextDecoding, ColumnsInUnitsOfUtf16) {
    EXPECT_EQ(utf16Columns("G1 X1", {4, 5}), (ColumnRange{4, 5}));
    // Two bytes and one unit: everything behind moves to the left by one.
    EXPECT_EQ(utf16Columns("\xC2\xB0 X1", {4, 5}), (ColumnRange{3, 4}));
    EXPECT_EQ(utf16Columns("\xC2\xB0 X1", {1, 2}), (ColumnRange{1, 1}));
    // Four bytes and two units.
    EXPECT_EQ(utf16Columns("\xF0\x9F\x98\x80 X1", {1, 4}), (ColumnRange{1, 2}));
    EXPECT_EQ(utf16Columns("\xF0\x9F\x98\x80 X1", {6, 7}), (ColumnRange{4, 5}));
    EXPECT_EQ(utf16Columns("\xB0 X1", {3, 4}), (ColumnRange{3, 4})) << "Windows-1252";
}

TEST(TextDecoding, ColumnsThatTheLineDoesNotHave) {
    EXPECT_EQ(utf16Columns("X1", {}), ColumnRange{});
    EXPECT_EQ(utf16Columns("X1", {3, 4}), ColumnRange{});
    EXPECT_EQ(utf16Columns("X1", {2, 9}), (ColumnRange{2, 2}));
    EXPECT_EQ(utf16Columns("", {1, 1}), ColumnRange{});
}

TEST(TextDecoding, ControlCharactersCanBeSeen) {
    EXPECT_EQ(visibleText(std::string_view("a\0\n\x1B[31m\x7F", 9)), "a␀␊␛[31m␡");
    EXPECT_EQ(visibleText("a\tb\nc", "\t\n"), "a\tb\nc");
    EXPECT_EQ(visibleText("\xC2\x9B\xEF\xBF\xBF°"), "��°");
}

TEST(TextDecoding, ShortenedByCharacters) {
    EXPECT_EQ(shortenedText("°°°", 3), "°°°");
    EXPECT_EQ(shortenedText("°°°°", 3), "°°…");
    EXPECT_EQ(shortenedText("", 3), "");
}

}  // namespace torvel::migrate::test
