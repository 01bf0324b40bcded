// The tests' own tools: a check that cannot fail is none.

#include <gtest/gtest.h>

#include "tests/support/case-file.h"
#include "tests/support/escapes.h"
#include "tests/support/numbered-comments.h"
#include "tests/support/temporary-directory.h"
#include "tests/support/text-difference.h"

namespace torvel::test {

namespace {

NumberedSources numbered(const std::string& content) {
    return numberComments({{"main.pgm", content}});
}

std::string check(const std::string& source, const char* plain, const char* withNumbers) {
    return checkNumberedOutput(numbered(source), "main.pgm", plain, withNumbers);
}

}  // namespace

TEST(Escapes, AreReadAndWritten) {
    EXPECT_EQ(decodeEscapes(R"(\x41\r\n\t\s\\\q\x4)"), "A\r\n\t \\\\q\\x4");
    EXPECT_EQ(encodeEscapes("a\\\r\n\t\x80"), "a\\\\\\r\n\t\\x80");
    EXPECT_EQ(decodeEscapes(encodeEscapes("\x01\\x41")), "\x01\\x41");
}

TEST(CaseFiles, ExpectationsAreRewrittenAndReadBack) {
    Outcome outcome;
    outcome.status = 1;
    outcome.output = "--- no part\n\x80";
    outcome.standardError = "message\n\n";
    const std::string text =
        withExpectations("head\n--- program a.pgm no-newline\nX\n--- expect log\nold\n", outcome);
    const TemporaryDirectory directory;
    writeFile(directory.path() / "a.case", text);
    const Case test = readCase(directory.path() / "a.case");
    EXPECT_EQ(test.head, "head\n");
    ASSERT_EQ(test.files.size(), 1U);
    EXPECT_EQ(test.files[0].content, "X");
    EXPECT_EQ(test.expected.status, 1);
    EXPECT_EQ(test.expected.output, outcome.output);
    EXPECT_EQ(test.expected.log, std::nullopt);
    EXPECT_EQ(test.expected.standardError, outcome.standardError);
}

TEST(CaseFiles, UnknownPartsAndOptionsAreRefused) {
    const TemporaryDirectory directory;
    writeFile(directory.path() / "part.case", "--- programme a.pgm\n");
    writeFile(directory.path() / "option.case",
              "--- program a.pgm\n--- options\nno-comment because\n");
    writeFile(directory.path() / "reason.case", "--- program a.pgm\n--- options\nno-comments\n");
    EXPECT_THROW(readCase(directory.path() / "part.case"), std::runtime_error);
    EXPECT_THROW(readCase(directory.path() / "option.case"), std::runtime_error);
    EXPECT_THROW(readCase(directory.path() / "reason.case"), std::runtime_error);
}

TEST(TextDifference, ShowsWhatIsMissingAndWhatCameInstead) {
    EXPECT_EQ(textDifference("a\nb\nc\n", "a\nb\nc\n"), "");
    EXPECT_EQ(textDifference("a\nb\nc\nd\n", "a\nx\nc\ny\n"),
              "@ line 1\n  a\n- b\n+ x\n  c\n- d\n+ y\n");
    EXPECT_NE(textDifference("a\n", "a"), "");
}

TEST(NumberedComments, StandWhereALineMayHaveOne) {
    EXPECT_EQ(numbered("A\n\nB ; own\n/* c\nd */ e\n\"f ;\"").files[0].content,
              "A ; #1\n ; #2\nB ; own\n/* c\nd */ e\n\"f ;\" ; #3");
    EXPECT_EQ(
        numbered("#Include \"a\"\n#endif\n#define a \\\nb\nc\n#define d e\n#BEZIER")
            .files[0]
            .content,
        "#Include \"a\" ; #1\n#endif\n#define a \\\nb\nc ; #2\n#define d e ; #3\n#BEZIER ; #4");
    EXPECT_EQ(numbered("\"open\"\"\nA\x01").files[0].content, "\"open\"\"\nA\x01 ; #1");
}

TEST(NumberedComments, RightResultsPass) {
    EXPECT_EQ(check("A\n\nB", "a\n\nb\n", "a // #1\n\t// #2\nb // #3\n"), "");
    EXPECT_EQ(check("A\nB", "#error_unconvertible (main.pgm:1): A\nb\n",
                    "#error_unconvertible (main.pgm:1): A ; #1\nb // #2\n"),
              "");
}

TEST(NumberedComments, WrongResultsFail) {
    EXPECT_NE(check("A\nB", "a\nb\n", "a // #1\nb\n"), "");
    EXPECT_NE(check("A\nB", "a\nb\n", "a // #2\nb // #1\n"), "");
    EXPECT_NE(check("A\nB", "a\nb\n", "a // #1 // #1\nb // #2\n"), "");
    EXPECT_NE(check("A\nB", "a\nb\n", "a // #1\nb // #1\n"), "");
    EXPECT_NE(check("A\nB", "a\nb\n", "a // #1\nb // #2\n\n"), "");
    EXPECT_NE(check("A\nB", "a\nb\n", "a // #1\n"), "");
    EXPECT_NE(check("A\nB", "a\nb\n", "a  // #1\nb // #2\n"), "");
    EXPECT_NE(check("A", "a\n", "a ; #1\n"), "");
    EXPECT_NE(check("A", "#error_unconvertible (main.pgm:1): A\n",
                    "#error_unconvertible (main.pgm:1): A // #1\n"),
              "");
    EXPECT_NE(check("A", "#error_unconvertible (main.pgm:2): A\n",
                    "#error_unconvertible (main.pgm:2): A ; #1\n"),
              "");
    EXPECT_NE(check("#endif\nA", "a\nb\n", "a // #1\nb\n"), "");
}

}  // namespace torvel::test
