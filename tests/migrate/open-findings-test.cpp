// The list of what is left, which gets shorter as outputs are finished.

#include "src/migrate/open-findings.h"

#include <gtest/gtest.h>

#include "src/base/output-marks.h"

namespace torvel::migrate::test {

namespace {

FindingRow row(FindingTodo todo, std::uint32_t line, std::uint32_t count = 1) {
    FindingRow finding;
    finding.todo = todo;
    finding.outputLine = line;
    finding.outputLineCount = count;
    return finding;
}

/// A finding for each line of the generated text: "o" for one that is open, "-" for one that is closed.
std::string openLines(std::string_view generated, std::string_view current, FindingTodo todo,
                      std::optional<std::string_view> base = {}) {
    std::vector<FindingRow> rows;
    const auto count =
        static_cast<std::uint32_t>(std::count(generated.begin(), generated.end(), '\n'));
    for (std::uint32_t line = 1; line <= count; ++line) {
        rows.push_back(row(todo, line));
    }
    std::string text;
    for (const bool isOpen : openFindings({generated, base.value_or(generated), current}, rows)) {
        text += isOpen ? 'o' : '-';
    }
    return text;
}

std::string rewrites(std::string_view generated, std::string_view current,
                     std::optional<std::string_view> base = {}) {
    return openLines(generated, current, FindingTodo::rewrite, base);
}

std::string completes(std::string_view generated, std::string_view current) {
    return openLines(generated, current, FindingTodo::complete);
}

constexpr std::string_view threeMarkers =
    "#error_unconvertible (a.pgm:1): PROBE X\n"
    "\t#error_unconvertible (a.pgm:2): PROBE X\n"
    "#error_unconvertible (a.pgm:3): PROBE Y\n";

}  // namespace

TEST(OpenFindings, UnchangedOutput) {
    EXPECT_EQ(rewrites(threeMarkers, threeMarkers), "ooo");
    EXPECT_EQ(
        rewrites("#error_unconvertible #define A 1e3\n", "#error_unconvertible #define A 1e3\r\n"),
        "o");
    EXPECT_TRUE(openFindings({"a\n", "a\n", "b\n"}, {}).empty());
}

TEST(OpenFindings, AMarkerThatWasTakenAway) {
    EXPECT_EQ(rewrites(threeMarkers,
                       "#error_unconvertible (a.pgm:1): PROBE X\n"
                       "\t#error_unconvertible (a.pgm:2): PROBE X\n"
                       "Probe(Y)\n"),
              "oo-");
    EXPECT_EQ(rewrites(threeMarkers, ""), "---");
    // Commented out: the person has decided.
    EXPECT_EQ(rewrites("#error_unconvertible (a.pgm:1): PROBE X\n",
                       "// #error_unconvertible (a.pgm:1): PROBE X\n"),
              "-");
}

TEST(OpenFindings, OfEqualMarkersTheRightOneIsClosed) {
    const std::string generated =
        "G1 X1\n"
        "#error_unconvertible (a.pgm:2): PROBE X\n"
        "G1 X2\n"
        "#error_unconvertible (a.pgm:4): PROBE X\n"
        "G1 X3\n"
        "#error_unconvertible (a.pgm:6): PROBE X\n"
        "G1 X4\n";
    // Of lines without a marker nothing is left that one could look for, so their findings are open.
    EXPECT_EQ(rewrites(generated,
                       "G1 X1\n"
                       "#error_unconvertible (a.pgm:2): PROBE X\n"
                       "G1 X2\n"
                       "Probe(X)\n"
                       "G1 X3\n"
                       "#error_unconvertible (a.pgm:6): PROBE X\n"
                       "G1 X4\n"),
              "ooo-ooo");
    EXPECT_EQ(rewrites(generated, "G1 X1\nG1 X2\nG1 X3\n#error_unconvertible (z:9): PROBE X\n"),
              "o-o-ooo");
    // Nothing but the positions tells which.
    EXPECT_EQ(rewrites("#error_unconvertible (a.pgm:1): PROBE X\n"
                       "#error_unconvertible (a.pgm:2): PROBE X\n"
                       "#error_unconvertible (a.pgm:3): PROBE X\n"
                       "#error_unconvertible (a.pgm:4): PROBE X\n"
                       "#error_unconvertible (a.pgm:5): PROBE X\n",
                       "Probe(X)\n"
                       "#error_unconvertible (a.pgm:2): PROBE X\n"
                       "Probe(X)\n"
                       "Wait(1)\n"
                       "#error_unconvertible (a.pgm:5): PROBE X\n"),
              "-o--o");
    // More of them than there were.
    EXPECT_EQ(rewrites(generated, generated + generated), "ooooooo");
}

TEST(OpenFindings, AMarkerThatWasMovedOrIndented) {
    EXPECT_EQ(rewrites("#error_unconvertible (a.pgm:1): PROBE X\nG1 X1\nG1 X2\n",
                       "G1 X1\nG1 X2\nif $a\n    #error_unconvertible (a.pgm:1): PROBE X\nend\n"),
              "ooo");
}

TEST(OpenFindings, AMarkerWhoseLineWasEditedStillStands) {
    EXPECT_EQ(rewrites("#error_unconvertible (a.pgm:1): PROBE X\n"
                       "#error_unconvertible (a.pgm:2): HOME X\n",
                       "#error_unconvertible (a.pgm:2): HOME X Y // TODO\n"),
              "-o");
}

TEST(OpenFindings, Placeholders) {
    const std::string generated =
        "SetupAxisRampValue([X], RampMode.Rate, /* $rampValue */)\n"
        "G1 X1\n"
        "SetupAxisRampValue([Y], RampMode.Rate, /* $rampValue */)\n"
        "DriveEncoderOutputOn(X, /* $outputChannel */, /* $outputMode */)\n";
    EXPECT_EQ(completes(generated,
                        "SetupAxisRampValue([X], RampMode.Rate, 5)\n"
                        "G1 X1\n"
                        "SetupAxisRampValue([Y], RampMode.Rate, /* $rampValue */)\n"
                        "DriveEncoderOutputOn(X, 0, /* $outputMode */)\n"),
              "-ooo");
    // Both last lines are in one change, and a line came to them.
    EXPECT_EQ(completes(generated,
                        "SetupAxisRampValue([X], RampMode.Rate, 5)\n"
                        "G1 X1\n"
                        "// ramps\n"
                        "SetupAxisRampValue([Y], RampMode.Rate, 7)\n"
                        "DriveEncoderOutputOn(X, 0, /* $outputMode */)\n"),
              "-o-o");
    // The mark of a line that stayed in its place is its own.
    EXPECT_EQ(completes("F(1, /* $a */)\nF(2, /* $a */)\n", "F(2, 0)\nF(1, /* $a */, 3)\n"), "-o");
}

TEST(OpenFindings, WhatIsAPlaceholder) {
    EXPECT_TRUE(hasPlaceholder("F(/* $a */)"));
    EXPECT_TRUE(hasPlaceholder("F(\"x\", /* $a */) // x"));
    EXPECT_TRUE(hasPlaceholder("F() // x\nF(/* $a */)"));
    for (const std::string_view text : {"F(\"/* $a */\")", "F(5) // was /* $a */", "F(/* a */)",
                                        "// \"/* $a", "\"a // \" // /* $", "", "/", "//", "/* "}) {
        EXPECT_FALSE(hasPlaceholder(text)) << text;
    }
    EXPECT_EQ(completes("F(/* $a */) // x\n", "F(5) // was /* $a */\n"), "-");
}

TEST(OpenFindings, AFindingOfSeveralLines) {
    const std::vector<FindingRow> rows{row(FindingTodo::complete, 1, 3),
                                       row(FindingTodo::complete, 1, 1)};
    const std::string generated = "F(/* $a */)\nG()\nH(/* $a */)\n";
    EXPECT_EQ(openFindings({generated, generated, "F(1)\nG()\nH(/* $a */)\n"}, rows),
              (std::vector{true, false}));
    EXPECT_EQ(openFindings({generated, generated, "F(1)\nG()\nH(2)\n"}, rows),
              (std::vector{false, false}));
}

TEST(OpenFindings, WhatNobodyCanCloseInTheOutput) {
    const std::vector<FindingRow> rows{
        row(FindingTodo::look, 1),       row(FindingTodo::fixSource, 0),
        row(FindingTodo::rewrite, 0),    row(FindingTodo::complete, 7, 1),
        row(FindingTodo::rewrite, 1, 0), row(FindingTodo::rewrite, 0xffffffff, 0xffffffff)};
    EXPECT_EQ(openFindings({"a\n", "a\n", ""}, rows), std::vector<bool>(rows.size(), true));
}

TEST(OpenFindings, InAConflictWhatIsNewIsOpen) {
    const std::string base = "#error_unconvertible (a.pgm:1): PROBE X\nG1 X1\n";
    const std::string generated =
        "#error_unconvertible (a.pgm:1): PROBE X\nG1 X1\n#error_unconvertible (a.pgm:3): HOME\n";
    EXPECT_EQ(rewrites(generated, "Probe(X)\nG1 X7\n", base), "-oo");
    EXPECT_EQ(rewrites(generated, "Probe(X)\nG1 X7\n"), "-o-");
}

TEST(OpenFindings, HostileTexts) {
    using std::string_literals::operator""s;
    EXPECT_EQ(rewrites("#error_unconvertible (a\0:1): X\0\n"s, "#error_unconvertible (b:2): X\0"s),
              "o");
    EXPECT_EQ(rewrites(threeMarkers, "\r\r\r"), "---");
    const std::string megabyte(1'000'000, 'x');
    EXPECT_EQ(rewrites("#error_unconvertible (a:1): " + megabyte + "\nb\n",
                       "#error_unconvertible (a:1): " + megabyte + "y"),
              "oo");
    // Very many marks that all changed.
    std::string generated;
    std::string current = "// head\n";
    std::string expected;
    for (int i = 0; i < 3'000; ++i) {
        generated += "F(" + std::to_string(i) + ", /* $a */)\n";
        current += "F(" + std::to_string(i) + ", 1, /* $a */)\n";
        expected += 'o';
    }
    EXPECT_EQ(completes(generated, current), expected);
}

}  // namespace torvel::migrate::test
