// Where findings come from and what is left to do: told from what became of the line.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "src/app/command.h"
#include "tests/support/temporary-directory.h"

namespace torvel::test {

namespace {

std::string nameOf(FindingOrigin origin) {
    switch (origin) {
        case FindingOrigin::message: return "message";
        case FindingOrigin::check: return "check";
        default: return "define";
    }
}

std::string nameOf(FindingTodo todo) {
    switch (todo) {
        case FindingTodo::rewrite: return "rewrite";
        case FindingTodo::complete: return "complete";
        case FindingTodo::look: return "look";
        default: return "fix the source";
    }
}

/// The findings of a program, "line code origin todo" each, further lines behind them.
std::vector<std::string> findingsOf(const std::string& program) {
    const TemporaryDirectory directory;
    writeFile(directory.path() / "main.pgm", program);
    std::vector<std::string> findings;
    runCommandForFindings(
        {"-o", directory.path().string(), (directory.path() / "main.pgm").string()}, {},
        [&](const Finding& finding) {
            std::string text = std::to_string(finding.position.lineNumber) + ' ' +
                               std::string(finding.code) + ' ' + nameOf(finding.origin) + ' ' +
                               nameOf(finding.todo);
            for (const std::uint32_t line : finding.lines) {
                text += ' ' + std::to_string(line);
            }
            findings.push_back(text);
        });
    return findings;
}

using List = std::vector<std::string>;

}  // namespace

TEST(Findings, MessagesAreOnesToRewriteToCompleteOrToLookAt) {
    EXPECT_EQ(findingsOf("PROBE X\nRAMP MODE RATE\nRETURN 1\nHOME X\n"),
              (List{"1 probe-unsupported message rewrite",
                    "2 setup-coordinated-ramp-value-placeholder message complete",
                    "3 return-motion message look"}));
}

TEST(Findings, ChecksOfACompletedLineAreToCompleteToo) {
    EXPECT_EQ(findingsOf("RAMP TIME ACCEL -(1-3)\n"),
              (List{"1 setup-coordinated-ramp-value-placeholder message complete",
                    "1 double-minus check complete"}));
}

TEST(Findings, APlaceholderInAStringIsNone) {
    EXPECT_EQ(findingsOf("$a = STRCMP(\"/* $x */\", $STRGLOB[0], 1)\n"),
              List{"1 string-compare check look"});
}

TEST(Findings, ADefineThatIsNotKeptIsOneWithoutAMessage) {
    EXPECT_EQ(findingsOf("#define STEP 1 + 2\n#define FEED 5\n"),
              List{"1 define-not-kept define rewrite"});
}

TEST(Findings, AMacroThatIsNotKeptIsToRewrite) {
    EXPECT_EQ(findingsOf("#macro TOUCH($d) PROBE $d\n"),
              List{"1 probe-unsupported message rewrite"});
}

TEST(Findings, AProgramThatCannotBeReadIsToFix) {
    EXPECT_EQ(findingsOf("HOME X\n$a = \"open\n"),
              List{"2 string-not-terminated message fix the source"});
    EXPECT_EQ(findingsOf("#include \"nowhere.pgm\"\n"),
              List{"1 file-missing message fix the source"});
}

TEST(Findings, DroppedCommentsOfAFileAreOne) {
    EXPECT_EQ(findingsOf("/* a */ /* b */\nHOME X\n/* c\n*/\n#endif_not /* d */\n").front(),
              "1 comment-dropped check look 1 3 5");
}

TEST(Findings, AProgramReadUpToANulCharacterIsToLookAt) {
    EXPECT_EQ(findingsOf(std::string("HOME X\n\0HOME Y\n", 15)),
              List{"2 nul-character message look"});
}

TEST(Findings, OfTheWholeProgramSayWhichNameTheyAreAbout) {
    const TemporaryDirectory directory;
    writeFile(directory.path() / "main.pgm", "GOTO N7\nIF $a\n");
    std::vector<std::string> texts;
    runCommandForFindings(
        {"-o", directory.path().string(), (directory.path() / "main.pgm").string()}, {},
        [&](const Finding& finding) { texts.emplace_back(finding.text); });
    EXPECT_EQ(texts, (List{"A jump or call has no target in the output, or two. N7",
                           "A block is not closed, or closed without being opened."}));
}

/// The ways through the conditionals are more than can be counted; the passes follow all of them at once.
TEST(Findings, AnyNumberOfConditionals) {
    constexpr std::size_t conditionals = 20'000;
    std::string inARow;
    std::string inEachOther;
    for (std::size_t i = 0; i < conditionals; ++i) {
        inARow +=
            "#ifdef SIM\n#define SPEED 1\nIF $a\n#else\n#define SPEED 2\nIF $b\n#endif\nENDIF\nF "
            "SPEED\n";
        inEachOther += "#ifdef SIM\nhere: HOME X\n";
    }
    EXPECT_EQ(findingsOf(inARow).size(), conditionals);
    for (std::size_t i = 0; i < conditionals; ++i) {
        inEachOther += "#endif\n";
    }
    // Every label but the first is one that the way has met.
    EXPECT_EQ(findingsOf(inEachOther).size(), conditionals - 1);
}

/// A name is followed through the conditionals around it, so far that no branch that excludes it meets it.
TEST(Findings, NamesInsideManyConditionals) {
    constexpr std::size_t conditionals = 3000;
    std::string program;
    for (std::size_t i = 0; i < conditionals; ++i) {
        program += "#ifdef SIM\n#define D" + std::to_string(i) + " 1\n";
    }
    program += "here: HOME X\n";
    for (std::size_t i = 0; i < conditionals; ++i) {
        program += "#else\nhere: HOME Y\n#endif\n";
    }
    EXPECT_EQ(findingsOf(program), List{});
}

}  // namespace torvel::test
