// Edits of a person and a new generation, brought together by lines.

#include "src/migrate/merge.h"

#include <gtest/gtest.h>

#include "src/migrate/line-changes.h"
#include "src/migrate/text-lines.h"

namespace torvel::migrate::test {

namespace {

/// The merge of texts that it can bring together.
std::string merged(std::string_view base, std::string_view edited, std::string_view generated) {
    const MergedText result = mergeByLines(base, edited, generated);
    EXPECT_FALSE(result.hasConflicts) << result.text;
    return result.text;
}

/// The merge of texts that it cannot bring together.
std::string conflict(std::string_view base, std::string_view edited, std::string_view generated) {
    const MergedText result = mergeByLines(base, edited, generated);
    EXPECT_TRUE(result.hasConflicts) << result.text;
    EXPECT_TRUE(hasConflictMarkers(result.text));
    return result.text;
}

}  // namespace

TEST(Merge, OneSideChanged) {
    EXPECT_EQ(merged("a\nb\nc\n", "a\nB\nc\n", "a\nb\nc\n"), "a\nB\nc\n");
    EXPECT_EQ(merged("a\nb\nc\n", "a\nb\nc\n", "a\nB\nc\n"), "a\nB\nc\n");
    EXPECT_EQ(merged("a\nb\nc\n", "a\nb\nc\n", "a\nb\nc\n"), "a\nb\nc\n");
    EXPECT_EQ(merged("a\n", "", "a\n"), "");
    EXPECT_EQ(merged("", "", "a\n"), "a\n");
    EXPECT_EQ(merged("", "a\n", ""), "a\n");
    EXPECT_EQ(merged("", "", ""), "");
}

TEST(Merge, BothChangedLinesThatDoNotTouch) {
    EXPECT_EQ(merged("a\nb\nc\n", "A\nb\nc\n", "a\nb\nC\n"), "A\nb\nC\n");
    EXPECT_EQ(merged("a\nb\nc\nd\n", "a\nx\ny\nb\nc\nd\n", "a\nb\nc\n"), "a\nx\ny\nb\nc\n");
    EXPECT_EQ(merged("a\nb\nc\n", "b\nc\n", "a\nb\nc\nd\n"), "b\nc\nd\n");
}

TEST(Merge, EqualChangesAreTakenOnce) {
    EXPECT_EQ(merged("a\nb\nc\n", "a\nX\nc\n", "a\nX\nc\n"), "a\nX\nc\n");
    EXPECT_EQ(merged("a\nc\n", "a\nb\nc\n", "a\nb\nc\n"), "a\nb\nc\n");
    EXPECT_EQ(merged("a\nb\nc\n", "a\nc\n", "a\nc\n"), "a\nc\n");
    EXPECT_EQ(merged("", "a\r\n", "a\n"), "a\r\n");
}

TEST(Merge, BothChangedOneLine) {
    EXPECT_EQ(conflict("a\nb\nc\n", "a\nB1\nc\n", "a\nB2\nc\n"),
              "a\n"
              "<<<<<<< edited\n"
              "B1\n"
              "||||||| last generated\n"
              "b\n"
              "=======\n"
              "B2\n"
              ">>>>>>> newly generated\n"
              "c\n");
}

TEST(Merge, NeighbouringLinesAreAConflict) {
    EXPECT_EQ(conflict("a\nb\nc\nd\n", "a\nB\nc\nd\n", "a\nb\nC\nd\n"),
              "a\n"
              "<<<<<<< edited\n"
              "B\n"
              "c\n"
              "||||||| last generated\n"
              "b\n"
              "c\n"
              "=======\n"
              "b\n"
              "C\n"
              ">>>>>>> newly generated\n"
              "d\n");
    // A line inserted in front of one that the other side took away.
    EXPECT_EQ(conflict("a\nb\nc\n", "a\nnew\nb\nc\n", "a\nc\n"),
              "a\n"
              "<<<<<<< edited\n"
              "new\n"
              "b\n"
              "||||||| last generated\n"
              "b\n"
              "=======\n"
              ">>>>>>> newly generated\n"
              "c\n");
    // Different lines inserted in one place.
    EXPECT_EQ(conflict("a\nb\n", "a\nx\nb\n", "a\ny\nb\n"),
              "a\n"
              "<<<<<<< edited\n"
              "x\n"
              "||||||| last generated\n"
              "=======\n"
              "y\n"
              ">>>>>>> newly generated\n"
              "b\n");
}

TEST(Merge, ARegionGrowsOverAllThatTouches) {
    // The edit of lines 2 and 3 touches the new line 4, which touches the edit of line 5.
    EXPECT_EQ(conflict("a\nb\nc\nd\ne\nf\n", "a\nB\nC\nd\nE\nf\n", "a\nb\nc\nD\ne\nf\n"),
              "a\n"
              "<<<<<<< edited\n"
              "B\n"
              "C\n"
              "d\n"
              "E\n"
              "||||||| last generated\n"
              "b\n"
              "c\n"
              "d\n"
              "e\n"
              "=======\n"
              "b\n"
              "c\n"
              "D\n"
              "e\n"
              ">>>>>>> newly generated\n"
              "f\n");
}

TEST(Merge, AMarkersPositionIsNoChange) {
    // A line was inserted at the top of the source; the person has rewritten one of two lines.
    EXPECT_EQ(merged("G1 X1\n"
                     "#error_unconvertible (part.pgm:2): PROBE X\n"
                     "G1 X2\n"
                     "\t#error_unconvertible (part.pgm:4): PROBE Y\n",
                     "G1 X1\n"
                     "Probe(X)\n"
                     "G1 X2\n"
                     "\t#error_unconvertible (part.pgm:4): PROBE Y\n",
                     "// new\n"
                     "G1 X1\n"
                     "#error_unconvertible (part.pgm:3): PROBE X\n"
                     "G1 X2\n"
                     "\t#error_unconvertible (part.pgm:5): PROBE Y\n"),
              "// new\n"
              "G1 X1\n"
              "Probe(X)\n"
              "G1 X2\n"
              "\t#error_unconvertible (part.pgm:5): PROBE Y\n");
    // The author's text changed: that is a change.
    EXPECT_EQ(conflict("#error_unconvertible (part.pgm:2): PROBE X\n", "Probe(X)\n",
                       "#error_unconvertible (part.pgm:2): PROBE Y\n"),
              "<<<<<<< edited\n"
              "Probe(X)\n"
              "||||||| last generated\n"
              "#error_unconvertible (part.pgm:2): PROBE X\n"
              "=======\n"
              "#error_unconvertible (part.pgm:2): PROBE Y\n"
              ">>>>>>> newly generated\n");
}

TEST(Merge, WhatAPositionIs) {
    const auto textsOf = [](std::string_view line) {
        const LineWithoutPosition parts = withoutPosition(line);
        return std::string(parts.front) + "|" + std::string(parts.behind);
    };
    EXPECT_EQ(textsOf("#error_unconvertible (a.pgm:12): G1 (x:3): y"),
              "#error_unconvertible |G1 (x:3): y");
    EXPECT_EQ(textsOf("\t\t#error_unconvertible (a (1).pgm:1): X"), "\t\t#error_unconvertible |X");
    EXPECT_EQ(textsOf("#error_unconvertible (a: b): (1).pgm:1): X"), "#error_unconvertible |X");
    EXPECT_EQ(textsOf("#error_unconvertible ():1): X"), "#error_unconvertible |X");
    EXPECT_EQ(textsOf("#error_unconvertible (a.pgm:1): "), "#error_unconvertible |");
    for (const std::string_view line :
         {"#error_unconvertible #define A 1e3", "#error_unconvertible", "#error_unconvertible (a",
          "#error_unconvertible (a.pgm:): X", "#error_unconvertible (a.pgm): X", "(a.pgm:1): X",
          "x #error_unconvertible (a.pgm:1): X", ""}) {
        EXPECT_EQ(textsOf(line), std::string(line) + "|");
    }
}

TEST(Merge, LineEndsOfTheEditedTextAreKept) {
    // The file was saved with CR LF: no edit. New lines end as the ones around them.
    EXPECT_EQ(merged("a\nb\n", "a\r\nb\r\n", "new\na\nb\nlast\n"), "new\r\na\r\nb\r\nlast\r\n");
    EXPECT_EQ(merged("a\nb\nc\n", "a\r\nB\r\nc\r\n", "a\nb\nc\nd\n"), "a\r\nB\r\nc\r\nd\r\n");
    // Line by line where they are mixed.
    EXPECT_EQ(merged("a\nb\nc\nd\n", "a\nb\r\nc\nd\n", "a\nB\nc\nD\nE\n"), "a\nB\r\nc\nD\nE\n");
    EXPECT_EQ(conflict("a\n", "A\r\n", "x\n"),
              "<<<<<<< edited\r\n"
              "A\r\n"
              "||||||| last generated\r\n"
              "a\r\n"
              "=======\r\n"
              "x\r\n"
              ">>>>>>> newly generated\r\n");
}

TEST(Merge, AMissingLastLineEndIsNoEdit) {
    EXPECT_EQ(merged("a\nb\n", "a\nb", "A\nb\n"), "A\nb");
    EXPECT_EQ(merged("a\nb\n", "a\nb", "a\nb\nc\n"), "a\nb\nc");
    EXPECT_EQ(merged("a\r\nb\r\n", "a\r\nb", "a\r\nb\r\nc\r\n"), "a\r\nb\r\nc");
    EXPECT_EQ(merged("a\n", "a", "b\n"), "b");
    EXPECT_EQ(merged("a\nb\nc\n", "x\nb\nc", "a\nb\nc\n"), "x\nb\nc");
}

TEST(Merge, LoneCarriageReturnsAreText) {
    EXPECT_EQ(linesOf("a\rb\r").size(), 1U);
    EXPECT_EQ(linesOf("\r\n\r\r\n")[1].text, "\r");
    EXPECT_EQ(merged("a\rb\r", "a\rb\r", "c\rd\r"), "c\rd\r");
    EXPECT_TRUE(mergeByLines("a\rb\r", "x\rb\r", "a\ry\r").hasConflicts);
}

TEST(Merge, HostileBytes) {
    using std::string_literals::operator""s;
    EXPECT_EQ(merged("a\0b\nc\nd\n"s, "a\0B\nc\nd\n"s, "a\0b\nc\n\0\n"s), "a\0B\nc\n\0\n"s);
    const std::string megabyte(1'000'000, 'x');
    EXPECT_EQ(merged(megabyte + "1\nm\nz\n", megabyte + "2\nm\nz\n", megabyte + "1\nm\nZ"),
              megabyte + "2\nm\nZ\n");
    const std::string feeds(10'000, '\n');
    EXPECT_EQ(merged(feeds, feeds, feeds + "a\n"), feeds + "a\n");
}

TEST(LineChanges, WhatOneSideHasOnly) {
    using Numbers = std::vector<std::uint32_t>;
    using Changes = std::vector<LineChange>;
    EXPECT_EQ(changesBetween(Numbers{1, 2, 3}, Numbers{1, 2, 3}), Changes{});
    EXPECT_EQ(changesBetween(Numbers{}, Numbers{1}), (Changes{{0, 0, 0, 1}}));
    EXPECT_EQ(changesBetween(Numbers{1, 2, 3, 4, 5}, Numbers{1, 9, 3, 5}),
              (Changes{{1, 2, 1, 2}, {3, 4, 3, 3}}));
    EXPECT_EQ(changesBetween(Numbers{1, 2, 3}, Numbers{0, 1, 3, 7}),
              (Changes{{0, 0, 0, 1}, {1, 2, 2, 2}, {3, 3, 3, 4}}));
}

}  // namespace torvel::migrate::test
