// What a run tells about how far it is.

#include "src/migrate/progress.h"

#include <gtest/gtest.h>

namespace torvel::migrate::test {

TEST(ProgressLine, WhatFitsIntoTheWidth) {
    const RunProgress progress{25, 100, Seconds(5)};
    const std::string text = "25 of 100 programs, 5.0 a second, about 15 s left";
    EXPECT_EQ(progressLine(progress, 0), text);
    EXPECT_EQ(progressLine(progress, 200), "[##########..............................] " + text);
    // 49 columns of text, three of the brackets with their blank.
    EXPECT_EQ(progressLine(progress, 64), "[###.........] " + text);
    EXPECT_EQ(progressLine(progress, 61), text);
    EXPECT_EQ(progressLine(progress, 48), "[###..........] 25 of 100 programs, 5.0 a second");
    EXPECT_EQ(progressLine(progress, 20), "25 of 100 programs");
    EXPECT_EQ(progressLine(progress, 10), "");
}

TEST(ProgressLine, TimesAndRates) {
    EXPECT_EQ(progressLine({0, 9, Seconds(0)}, 0), "0 of 9 programs");
    EXPECT_EQ(progressLine({0, 9, Seconds(3)}, 0), "0 of 9 programs");
    EXPECT_EQ(progressLine({9, 9, Seconds(3)}, 0), "9 of 9 programs, 3.0 a second");
    EXPECT_EQ(progressLine({1, 100, Seconds(1)}, 0),
              "1 of 100 programs, 1.0 a second, about 1 min 39 s left");
    EXPECT_EQ(progressLine({20, 20 + 20 * 3660, Seconds(1)}, 0),
              "20 of 73220 programs, 20 a second, about 1 h 01 min left");
    EXPECT_EQ(progressLine({0, 0, Seconds(0)}, 60),
              "[########################################] 0 of 0 programs");
}

namespace {

struct Written {
    Terminal terminal;
    std::string text;
    ProgressTeller teller{[this] { return terminal; },
                          [this](const std::string& more) { text += more; }};
};

}  // namespace

TEST(ProgressTeller, DrawsOneLineOnATerminal) {
    Written written;
    written.terminal = {true, 20, false};
    written.teller.tell({1, 3, Seconds(0)});
    written.teller.tell({2, 3, Seconds(0.05)});  // too soon
    written.terminal.width = 12;                 // the window was made narrower
    written.teller.tell({2, 3, Seconds(0.2)});
    written.teller.tell({3, 3, Seconds(0.21)});  // the last one always
    written.teller.clear();
    written.teller.clear();
    EXPECT_EQ(written.text, "\r1 of 3 programs\x1b[K\r\x1b[K\r\x1b[K\r\x1b[K");
}

TEST(ProgressTeller, WritesALineNowAndThenElsewhere) {
    Written written;
    for (int second = 0; second <= 25; ++second) {
        written.teller.tell({static_cast<std::uint64_t>(second), 25, Seconds(second)});
    }
    written.teller.clear();
    EXPECT_EQ(written.text,
              "10 of 25 programs, 1.0 a second, about 15 s left\n"
              "20 of 25 programs, 1.0 a second, about 5 s left\n"
              "25 of 25 programs, 1.0 a second\n");
}

TEST(ProgressTeller, SaysNothingOfAShortRunElsewhere) {
    Written written;
    written.teller.tell({0, 2, Seconds(0)});
    written.teller.tell({2, 2, Seconds(1)});
    EXPECT_EQ(written.text, "");
}

}  // namespace torvel::migrate::test
