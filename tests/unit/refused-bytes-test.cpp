// A line is lexed when it is converted only if the lexer cannot refuse it: what it refuses must be suspected.

#include <gtest/gtest.h>

#include <string>

#include "src/base/parse-exception.h"
#include "src/lex/lexer.h"
#include "src/preprocess/line-splitter.h"
#include "tests/support/program-text.h"

namespace torvel::test {

namespace {

bool isRefusedByLexer(const ProgramText& source) {
    try {
        lexText(source.program, AxisNames(), source.text(), source.position());
    } catch (const ParseException&) {
        return true;
    }
    return false;
}

}  // namespace

TEST(RefusedBytes, AreSuspectedWhereverTheyStand) {
    for (int byte = 1; byte < 256; ++byte) {
        const bool beginsAString = byte == '"';
        for (const std::size_t length : {1U, 2U, 15U, 16U, 17U, 31U, 32U, 33U, 50U}) {
            for (std::size_t at = 0; at < length; ++at) {
                std::string code(length, 'x');
                code[at] = static_cast<char>(byte);
                const ProgramText source(code);
                const bool isSuspected = mayBeRefused(source.program.text.view(source.text()));
                // Two that are rare are looked at together with their neighbours.
                const bool isSuspectedInVain = byte == '|' || byte == '~';
                if (!beginsAString) {
                    ASSERT_EQ(isSuspected, isSuspectedInVain || isRefusedByLexer(source))
                        << "byte " << byte << " at " << at << " of " << length;
                }
            }
        }
    }
}

/// What the splitter tells of a line is what the lexer would make of its code.
TEST(RefusedBytes, AreToldWhereTheLineIsSplit) {
    for (int byte = 1; byte < 256; ++byte) {
        for (const std::size_t length : {1U, 2U, 15U, 16U, 17U, 33U}) {
            for (std::size_t at = 0; at < length && byte != '"'; ++at) {
                std::string code(length, 'x');
                code[at] = static_cast<char>(byte);
                ProgramText source(code);
                LineSplitter splitter(source.program, *source.inclusion);
                ScannedLine line;
                ASSERT_TRUE(splitter.next(line));
                ASSERT_EQ(line.codeText, source.program.text.view(line.code));
                ASSERT_EQ(line.hasOddBytes, mayBeRefused(line.codeText))
                    << "byte " << byte << " at " << at << " of " << length;
            }
        }
    }
}

TEST(RefusedBytes, OfStringsAndCommentsAndOtherLinesDoNotCount) {
    ProgramText source(
        "$a = \"{\\?`\x01\" ; {\n{\nHOME X // ?\nHOME /* { */ Y\n? /* x */ HOME X\nHOME");
    LineSplitter splitter(source.program, *source.inclusion);
    std::string odd;
    for (ScannedLine line; splitter.next(line);) {
        odd += line.hasOddBytes ? '1' : '0';
    }
    EXPECT_EQ(odd, "010010");
}

TEST(RefusedBytes, BehindTheCodeDoNotCount) {
    const ProgramText source("HOME X ; a comment {");
    EXPECT_FALSE(mayBeRefused(source.program.text.view(source.text().subspan(0, 6))));
    EXPECT_TRUE(mayBeRefused(source.program.text.view(source.text().subspan(0, 8))));
    EXPECT_FALSE(mayBeRefused({}));
}

}  // namespace torvel::test
