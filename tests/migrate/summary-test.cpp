// What the terminal shows: texts written by hand.

#include "src/migrate/summary.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "src/migrate/duration-text.h"
#include "src/migrate/finding-names.h"
#include "src/migrate/text-decoding.h"
#include "src/migrate/text-layout.h"
#include "tests/migrate/report-example.h"
#include "tests/support/text-difference.h"

namespace torvel::migrate::test {

namespace {

ReportTotals totals(const Report& report) {
    return totalsOf(report, Places(report));
}

std::string summary(const Report& report, const SummaryView& view = {}) {
    return summaryText(report, totals(report), view);
}

std::string status(const Report& report, const SummaryView& view = {}) {
    return statusText(report, totals(report), view);
}

/// Programs of six folders with one to six lines to rewrite.
Report sixFolders() {
    std::vector<ReportProgram> programs;
    for (std::uint32_t i = 1; i <= 6; ++i) {
        const std::string name = "f" + std::to_string(i) + "/a.pgm";
        std::vector<ReportFinding> findings;
        for (std::uint32_t line = 1; line <= i; ++line) {
            findings.push_back(rewrite(name, line, "$a = = " + std::to_string(line)));
        }
        programs.push_back(converted(name, 1000, 1000 - i, findings));
    }
    return reportOf(programs);
}

}  // namespace

TEST(Summary, ThePlant) {
    EXPECT_EQ(summary(plant(), {80, false, {"converted/report.html"}}),
              R"(5 programs in 3 folders
  2 converted
  1 could not be read
  2 not converted: another program has the same output
  1 with an output that was edited by hand
  15 lines of code, 13 of them converted (86 %)

Left to do                                    in sources  in outputs
  sources to fix                                       1           1
  lines to rewrite                                     1           1
  lines to look at                                     1           2
  finished by hand                                     1           1

Of these, converted lines that                in sources  in outputs
  may move otherwise (moves)                           1           2

The folders with most work                      programs  left to do
  line1                                                2           3
  line2                                                1           1

How long it may take
  1 source to fix, 10 to 60 minutes each
  1 line to rewrite, 10 to 40 minutes each
  1 line to look at, 2 to 10 minutes each (2 in the outputs)
  together 22 to 110 minutes
  or 24 to 120 minutes if included files are finished in each output

To be known
  top.pgm and top.prg have the same output.

The report is in
  converted/report.html
)");
}

TEST(Summary, NoPrograms) {
    EXPECT_EQ(summary(reportOf({})), R"(0 programs in 0 folders
  0 converted

Nothing is left to do
)");
}

TEST(Summary, AllIsFinished) {
    ReportFinding finished = rewrite("a.pgm", 1, "x");
    finished.isOpen = false;
    EXPECT_EQ(summary(reportOf({converted("a.pgm", 1000, 999, {finished})})),
              R"(1 program in 1 folder
  1 converted
  1,000 lines of code, 999 of them converted (more than 99 %)

Left to do                                    in sources  in outputs
  nothing                                              0           0
  finished by hand                                     1           1
)");
}

TEST(Summary, FoldersThatAreNotShown) {
    EXPECT_EQ(summary(sixFolders()), R"(6 programs in 6 folders
  6 converted
  6,000 lines of code, 5,979 of them converted (more than 99 %)

Left to do                                    in sources  in outputs
  lines to rewrite                                    21          21

The folders with most work                      programs  left to do
  f6                                                   1           6
  f5                                                   1           5
  f4                                                   1           4
  f3                                                   1           3
  f2                                                   1           2
  and 1 more with 1 finding

How long it may take
  21 lines to rewrite, 10 to 40 minutes each
  together 3 to 14 hours (up to 2 person-days of 8 hours)
)");
}

TEST(Summary, ANarrowTerminal) {
    Report report = sixFolders();
    report.notices = {"one", "two", "three", "four", "five", "six", "seven"};
    const std::string text =
        summary(report, {40, false, {"converted/a-report-with-a-long-name.html"}});
    for (const std::string_view line : torvel::test::splitLines(text)) {
        // Only what is to be copied is longer.
        EXPECT_TRUE(characterCount(line) <= 40 ||
                    line == "  converted/a-report-with-a-long-name.html")
            << line;
    }
    EXPECT_NE(text.find("  five\n  and 2 more\n"), std::string::npos);
    EXPECT_NE(text.find("The folders with most work\n                    programs  left to do\n"
                        "  f6                       1           6\n"),
              std::string::npos);
    // Narrower is told as if it were 40.
    EXPECT_EQ(summary(sixFolders(), {3, false, {}}), summary(sixFolders(), {40, false, {}}));
}

TEST(Summary, LongNamesAreCutInTheirMiddle) {
    const std::string folder = std::string(60, 'a') + "/" + std::string(60, 'b');
    const std::string text = summary(
        reportOf({converted(folder + "/x.pgm", 1, 0, {rewrite(folder + "/x.pgm", 1, "x")})}));
    // 41 characters: a third in front of the ellipsis, two thirds behind it.
    EXPECT_NE(
        text.find("\n  " + std::string(13, 'a') + "…" + std::string(27, 'b') + "            1"),
        std::string::npos)
        << text;
}

TEST(Summary, Colour) {
    const std::string text = summary(plant(), {80, true, {}});
    EXPECT_TRUE(text.starts_with("\x1B[1m5 programs in 3 folders\x1B[0m\n"));
    EXPECT_NE(text.find("\x1B[31m  may move otherwise (moves)"), std::string::npos);
    // Without the signs it is the same text.
    std::string plain = text;
    for (const std::string sign : {"\x1B[1m", "\x1B[31m", "\x1B[0m"}) {
        for (std::size_t at = 0; (at = plain.find(sign)) != std::string::npos;) {
            plain.erase(at, sign.size());
        }
    }
    EXPECT_EQ(plain, summary(plant()));
}

TEST(Summary, HostileNames) {
    ReportProgram program = converted(hostileName(), 1, 0, {rewrite(hostileName(), 1, "x")});
    program.program = "a\x1B[2J\n/\xB0.pgm";
    program.status = ProgramStatus::unreadable;
    Report report = reportOf({program});
    report.notices = {"'a\x1B[2J\n' is odd."};
    for (const std::string& text : {summary(report), status(report)}) {
        EXPECT_EQ(text.find('\x1B'), std::string::npos);
    }
    EXPECT_NE(summary(report).find("  a␛[2J␊   "), std::string::npos);
    EXPECT_NE(status(report).find("    a␛[2J␊/°.pgm\n"), std::string::npos);
}

TEST(Status, ThePlant) {
    Report report = plant();
    report.runs.insert(report.runs.begin(), {"0.9.0", 1600000000, 1600000001, 5, 5, 15, 12, 1234});
    EXPECT_EQ(status(report), R"(5 programs in 3 folders
  2 converted
  1 could not be read
    line2/broken.pgm
  2 not converted: another program has the same output
    top.pgm, top.prg
  1 with an output that was edited by hand
    line1/second.pgm
  15 lines of code, 13 of them converted (86 %)
  The last run began at 2023-11-14 22:13 UTC with version 1.0.0.
  2 runs, 1,234 open findings after the first, 4 after the last

Left to do                                    in sources  in outputs
  sources to fix                                       1           1
  lines to rewrite                                     1           1
  lines to look at                                     1           2
  finished by hand                                     1           1

Of these, converted lines that                in sources  in outputs
  may move otherwise (moves)                           1           2
)");
}

TEST(Status, RunsThatWereCutOffCountNothing) {
    Report report = plant();
    const RunRow whole{"0.9.0", 1600000000, 1600000001, 5, 5, 15, 12, 1234};
    const RunRow cutOff{"0.9.0", 1600000100, 0, 5, 5, 15, 12, 0};
    report.runs = {cutOff, whole, cutOff};
    std::string text = status(report);
    EXPECT_NE(text.find("with version 0.9.0 and was cut off.\n"), std::string::npos) << text;
    EXPECT_EQ(text.find("after the first"), std::string::npos) << text;
    report.runs = {cutOff, whole, {"0.9.1", 1600000200, 1600000201, 5, 5, 15, 12, 7}, cutOff};
    text = status(report);
    EXPECT_NE(text.find("\n  2 runs, 1,234 open findings after the first, 7 after the last\n"),
              std::string::npos)
        << text;
}

TEST(Status, ManyPrograms) {
    std::vector<ReportProgram> programs;
    for (std::uint32_t i = 10; i < 30; ++i) {
        programs.push_back(converted("p" + std::to_string(i) + ".pgm", 1, 1, {}));
        programs.back().outputState = OutputState::conflict;
    }
    Report report = reportOf(programs);
    EXPECT_EQ(status(report), R"(20 programs in 1 folder
  20 converted
  20 with edits that wait to be brought together with a newer output
    p10.pgm, p11.pgm, p12.pgm and 17 more
  20 lines of code, 20 of them converted (100 %)
  There was no run yet.

Nothing is left to do
)");
}

TEST(Status, NamesThatDoNotFit) {
    std::vector<ReportProgram> programs;
    for (const char letter : {'a', 'b', 'c'}) {
        programs.push_back(converted(std::string(30, letter) + ".pgm", 1, 1, {}));
        programs.back().outputState = OutputState::deleted;
    }
    const Report report = reportOf(programs);
    // Two of them with 34 characters, a comma and a blank do not fit into 56.
    EXPECT_NE(status(report).find("\n    " + std::string(30, 'a') + ".pgm and 2 more\n"),
              std::string::npos);
    EXPECT_NE(status(report, {40, false, {}}).find("\n    aaaaa…aaaaaa.pgm and 2 more\n"),
              std::string::npos)
        << status(report, {40, false, {}});
}

TEST(Status, FitsOnAScreen) {
    // Everything that can be the matter, with findings of each kind.
    std::vector<ReportProgram> programs;
    for (const OutputState state :
         {OutputState::edited, OutputState::conflict, OutputState::deleted, OutputState::foreign,
          OutputState::notWritten, OutputState::none}) {
        const std::string name = std::string(outputStateName(state)) + ".pgm";
        programs.push_back(converted(name, 1, 1, {}));
        programs.back().outputState = state;
        for (const FindingTodo todo : todos) {
            for (const Severity severity : severities) {
                ReportFinding finding = rewrite(name, 1, "x");
                finding.row.todo = todo;
                finding.row.severity = severity;
                programs.back().findings.push_back(finding);
            }
        }
    }
    programs[0].status = ProgramStatus::unreadable;
    programs[1].status = ProgramStatus::collides;
    Report report = reportOf(programs);
    report.runs = plant().runs;
    const std::string text = status(report);
    EXPECT_LE(std::count(text.begin(), text.end(), '\n'), 30);
}

TEST(DurationText, Ranges) {
    EXPECT_EQ(durationText({0, 0}), "0 minutes");
    EXPECT_EQ(durationText({1, 1}), "1 minute");
    EXPECT_EQ(durationText({22, 110}), "22 to 110 minutes");
    EXPECT_EQ(durationText({0.4, 2.2}), "up to 3 minutes");
    EXPECT_EQ(durationText({22, 121}), "up to 3 hours");
    EXPECT_EQ(durationText({61, 480}), "1 to 8 hours");
    EXPECT_EQ(durationText({250, 490}), "4 to 9 hours (0.5 to 1.5 person-days of 8 hours)");
    // 20 to 80 hours; 2.5 to 10 days.
    EXPECT_EQ(durationText({1200, 4800}), "20 to 80 hours (2.5 to 10 person-days of 8 hours)");
    // 205.7 to 822.9 hours: two digits count. 25.7 to 102.9 days.
    EXPECT_EQ(durationText({12345, 49371}), "200 to 830 hours (25 to 110 person-days of 8 hours)");
    EXPECT_EQ(durationText({7200000, 7200000}), "120,000 hours (15,000 person-days of 8 hours)");
}

TEST(DurationText, Shares) {
    EXPECT_EQ(shareText(0, 10), "0 %");
    EXPECT_EQ(shareText(1, 1000), "less than 1 %");
    EXPECT_EQ(shareText(13, 15), "86 %");
    EXPECT_EQ(shareText(99, 100), "99 %");
    EXPECT_EQ(shareText(999, 1000), "more than 99 %");
    EXPECT_EQ(shareText(10, 10), "100 %");
}

TEST(DurationText, Dates) {
    EXPECT_EQ(dateText(0), "1970-01-01 00:00 UTC");
    EXPECT_EQ(dateText(1709164799), "2024-02-28 23:59 UTC");
    EXPECT_EQ(dateText(1709164800), "2024-02-29 00:00 UTC");
}

TEST(TextLayout, Numbers) {
    EXPECT_EQ(grouped(0), "0");
    EXPECT_EQ(grouped(999), "999");
    EXPECT_EQ(grouped(1000), "1,000");
    EXPECT_EQ(grouped(1234567), "1,234,567");
    EXPECT_EQ(counted(1, "line", "lines"), "1 line");
    EXPECT_EQ(counted(0, "line", "lines"), "0 lines");
}

TEST(TextLayout, Wrapping) {
    EXPECT_EQ(wrapped("one two three", 7), "one two\nthree\n");
    EXPECT_EQ(wrapped("one two three", 6, "- ", "  "), "- one\n  two\n  three\n");
    EXPECT_EQ(wrapped("°°° °°°", 7), "°°° °°°\n");
    EXPECT_EQ(wrapped("", 7), "\n");
    EXPECT_EQ(shortenedPath("abcdefgh", 8), "abcdefgh");
    EXPECT_EQ(shortenedPath("abcdefghi", 8), "ab…efghi");
}

}  // namespace torvel::migrate::test
