// `explain`: the entries of the two pages as they are inside the program.

#include "src/migrate/explain.h"

#include <gtest/gtest.h>

#include "src/migrate/embedded-pages.h"
#include "src/migrate/explanations.h"
#include "src/migrate/program-faults.h"
#include "src/migrate/text-decoding.h"
#include "tests/support/check-rows.h"
#include "tests/support/message-rows.h"
#include "tests/support/temporary-directory.h"
#include "tests/support/text-difference.h"

namespace torvel::migrate::test {

namespace {

/// No program gives this message, so the page does not have it.
constexpr std::string_view withoutEntry = "unknown-exception";

std::string joined(std::span<const std::string_view> pieces) {
    std::string text;
    for (const std::string_view piece : pieces) {
        EXPECT_TRUE(piece.ends_with('\n'));
        text += piece;
    }
    return text;
}

}  // namespace

TEST(Explain, ThePagesAreInside) {
    const std::string docs = TORVEL_SOURCE_DIR "/docs/";
    EXPECT_EQ(joined(messagesPage()), torvel::test::readFile(docs + "messages.md"));
    EXPECT_EQ(joined(checksPage()), torvel::test::readFile(docs + "checks.md"));
    EXPECT_EQ(joined(plantPage()), torvel::test::readFile(docs + "plant-findings.md"));
}

TEST(Explain, EveryCodeHasAnEntry) {
    std::size_t count = 0;
    for (const auto& row : torvel::test::messageRows()) {
        if (row.code == withoutEntry) {
            continue;
        }
        ++count;
        const auto entry = explanations().find(row.code);
        ASSERT_NE(entry, explanations().end()) << row.code;
        EXPECT_FALSE(entry->second.body.empty()) << row.code;
        EXPECT_FALSE(entry->second.sectionText.empty()) << row.code;
    }
    for (const auto& row : torvel::test::checkRows()) {
        ++count;
        const auto entry = explanations().find(row.code);
        ASSERT_NE(entry, explanations().end()) << row.code;
        EXPECT_EQ(entry->second.title, row.title);
        EXPECT_FALSE(entry->second.body.empty()) << row.code;
    }
    for (const std::string_view code : programFaults) {
        ++count;
        const auto entry = explanations().find(code);
        ASSERT_NE(entry, explanations().end()) << code;
        EXPECT_FALSE(entry->second.body.empty()) << code;
        EXPECT_FALSE(entry->second.sectionText.empty()) << code;
    }
    EXPECT_EQ(explanations().size(), count) << "an entry that nothing has as its code";
}

TEST(Explain, AMessage) {
    EXPECT_EQ(explainedCode("setup-axis-ramp-value-placeholder", 60),
              R"(SetupAxisRampValue() requires that other arguments are
specified.

SetupAxisRampValue() sets mode and value for acceleration
and deceleration together; the statement gives one half, or
the mode without a value. Fill in the other half. If both
halves are to be the same, the short call is enough:

Torvel:
    SetupAxisRampValue(X, RampMode.Rate, 500)

Brannic:
    RAMP RATE ACCEL X 500

Converted, to be completed by hand:
The line is converted, and the call in the output holds a
comment such as /* $rampValueDecel */ in the place of each
argument that the Brannic statement does not carry. Put a
value in the place of every comment; until then the Torvel
program does not compile.
)");
}

TEST(Explain, AProgramThatIsNotConverted) {
    EXPECT_EQ(explainedCode("parameters-unreadable", 70),
              R"(Failed to load or parse the parameter file.

The machine's parameter file is not there, cannot be read, or is none.
The programs of that machine are not converted, since the numbers of
their axes would be wrong. The finding names the file. Give the right
one, as parameters in migration.toml or with -p, or export it from the
controller again.

Command line:
    torvel-migrate convert programs -o converted -p machine.xml

Not converted: to be settled in the plant:
The program has no output until this is settled. The others are
converted all the same, and the next run converts it.
)");
}

TEST(Explain, ACheckInAnyCase) {
    const std::optional<std::string> text = explainedCode("Setter-Operator", 80);
    ASSERT_TRUE(text.has_value());
    EXPECT_EQ(*text, R"(A compound operator became a plain assignment.

moves. Torvel sets this target by a call, which sets the value that stands
behind the operator. Read the old value in the call: DigitalOutputSet(X, 1,
DigitalOutputGet(X, 1) + 1).

Brannic:
    $DO[1].X += 1
    $a += 1

Torvel:
    DigitalOutputSet(X, 1, 1)
    $a += 1

Findings:
    main.pgm:1:1-11 setter-operator

Moves: another motion, axis, value or order.
)");
}

TEST(Explain, CodesThatDoNotExist) {
    EXPECT_EQ(explainedCode("value-cutt", 80), std::nullopt);
    EXPECT_EQ(unknownCodeMessage("value-cutt"),
              "There is no message or check with the code 'value-cutt'. Did you mean value-cut?");
    // A message's text leads to its code.
    EXPECT_EQ(similarCodes("numeric expression."),
              (std::vector<std::string>{"numeric-expression-expected"}));
    EXPECT_EQ(unknownCodeMessage("q\nq"),
              "There is no message or check with the code 'q␊q'. `torvel-migrate explain --list` "
              "shows all.");
    EXPECT_EQ(similarCodes(std::string(1U << 20U, 'a')), std::vector<std::string>());
    EXPECT_EQ(similarCodes(""), std::vector<std::string>());
}

TEST(Explain, TheListHasEveryCode) {
    const std::string list = listOfCodes(80);
    for (const auto& row : torvel::test::messageRows()) {
        const bool isListed = list.find("\n  " + std::string(row.code) + '\n') != std::string::npos;
        EXPECT_EQ(isListed, row.code != withoutEntry) << row.code;
    }
    for (const auto& row : torvel::test::checkRows()) {
        EXPECT_NE(list.find("\n  " + std::string(row.code) + "\n      "), std::string::npos);
    }
}

TEST(Explain, LinesAreAsWideAsTheTerminal) {
    for (const auto& [code, explanation] : explanations()) {
        const std::string text = plainMarkdown(explanation.body, 70);
        bool isProse = true;
        for (const std::string_view line : torvel::test::splitLines(text)) {
            isProse = !line.starts_with("    ") && !line.starts_with('|');
            EXPECT_TRUE(!isProse || characterCount(line) <= 70) << code << ": " << line;
        }
    }
}

TEST(Explain, MarkdownAsPlainText) {
    EXPECT_EQ(plainMarkdown(
                  "**Bold** and `a * b`.\n\n- one\n  goes on\n- two\n\n| a | b |\n|---|---|\n", 20),
              "Bold and a * b.\n\n- one goes on\n- two\n\n| a | b |\n|---|---|\n");
    EXPECT_EQ(plainMarkdown("```brannic main.pgm escaped\n\\x00\n\n*\n```\n", 20),
              "Brannic, main.pgm (\\xHH is a byte):\n    \\x00\n\n    *\n");
    EXPECT_EQ(plainMarkdown("", 20), "\n");
}

TEST(Explain, EntriesOfAPage) {
    const Explanations entries = explanationsOf(
        "# Page\n\n## First\n\n<!-- class: x -->\n\nAbout [it](#there).\n\nMore.\n\n### One\n\n"
        "<a id=\"one\"></a>\n\nText `[a](b)` [c](d).\n\n```torvel\n### no heading\n<!-- here "
        "-->\n```\n\n"
        "## Second\n\n### Without a code\n\nText.\n");
    ASSERT_EQ(entries.size(), 1U);
    const Explanation& entry = entries.at("one");
    EXPECT_EQ(entry.title, "One");
    EXPECT_EQ(entry.body, "Text `[a](b)` c.\n\n```torvel\n### no heading\n<!-- here -->\n```");
    EXPECT_EQ(entry.section, "First");
    EXPECT_EQ(entry.sectionText, "About it.");
}

}  // namespace torvel::migrate::test
