// Texts of numbers by the C library, which is all that WebAssembly has, are those of std::from_chars and std::to_chars.

#include "src/base/real-text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "tests/support/real-text-samples.h"

namespace torvel::test {

namespace {

/// NaN as one value: its bits tell nothing in a text.
std::uint64_t outcomeOf(const std::optional<double>& value) {
    if (!value) {
        return UINT64_MAX;  // of a NaN
    }
    return std::isnan(*value) ? UINT64_MAX - 1 : bitsOf(*value);
}

void expectSame(const std::string& text, RealDigits digits) {
    ASSERT_EQ(outcomeOf(realOf(text, digits)), outcomeOf(realOfByC(text, digits)))
        << text << (digits == RealDigits::hexadecimal ? " as hexadecimal" : "");
}

}  // namespace

TEST(RealText, NumbersAreReadTheSame) {
    forEachRealText(1'000'000, [](const std::string& text) {
        expectSame(text, RealDigits::decimal);
        expectSame(text, RealDigits::hexadecimal);
    });
}

TEST(RealText, TheEndsOfTheRange) {
    EXPECT_EQ(realOfByC("1e400", RealDigits::decimal), std::nullopt);
    EXPECT_EQ(realOfByC("1e-400", RealDigits::decimal), std::nullopt);
    EXPECT_EQ(realOfByC("0e400", RealDigits::decimal), 0.0);
    EXPECT_EQ(realOfByC("0.000e-400", RealDigits::decimal), 0.0);
    EXPECT_EQ(realOfByC("4.9e-324", RealDigits::decimal), 4.9e-324);
    EXPECT_EQ(realOfByC("1.8p3", RealDigits::hexadecimal), 12.0);
    EXPECT_EQ(realOfByC("1p1024", RealDigits::hexadecimal), std::nullopt);
    EXPECT_EQ(realOfByC("1p-1080", RealDigits::hexadecimal), std::nullopt);
    EXPECT_EQ(realOfByC("0p5000", RealDigits::hexadecimal), 0.0);
    EXPECT_EQ(realOfByC("0x1", RealDigits::decimal), std::nullopt);
    EXPECT_EQ(realOfByC("0x1", RealDigits::hexadecimal), std::nullopt);
    EXPECT_EQ(realOfByC(" 1", RealDigits::decimal), std::nullopt);
    EXPECT_EQ(realOfByC("+1", RealDigits::decimal), std::nullopt);
    EXPECT_EQ(realOfByC("", RealDigits::decimal), std::nullopt);
    EXPECT_EQ(realOfByC("1p-1074", RealDigits::hexadecimal), 4.9e-324);
    EXPECT_EQ(realOfByC("1p-1075", RealDigits::hexadecimal), std::nullopt);
    EXPECT_EQ(realOfByC("1.8p-1075", RealDigits::hexadecimal), 4.9e-324);
    for (const char* text : {"1e400",
                             "1e-400",
                             "0e400",
                             "0.000e-400",
                             "4.9e-324",
                             "1.8p3",
                             "1p1024",
                             "1p-1080",
                             "0p5000",
                             "1p-1075",
                             "1.00000000000000000001p-1075",
                             "1.8p-1075",
                             "1p",
                             "1p+",
                             "1p99999999999999999999",
                             "0p99999999999999999999",
                             "1p-99999999999999999999",
                             "1.1.1",
                             "1f.p1",
                             "0x1",
                             " 1",
                             "+1",
                             "-1",
                             "--1",
                             "- 1",
                             "",
                             ".",
                             "e5",
                             ".e5",
                             "1e",
                             "1e+",
                             "1.",
                             "inf",
                             "-inf",
                             "INFINITY",
                             "infinit",
                             "nan",
                             "NAN(12)",
                             "nan(",
                             "in",
                             "n",
                             "1_0",
                             "1,5"}) {
        expectSame(text, RealDigits::decimal);
        expectSame(text, RealDigits::hexadecimal);
    }
}

TEST(RealText, NumbersAreWrittenTheSame) {
    RealText left;
    RealText right;
    for (std::uint32_t number = 0; number < 1'000'000; ++number) {
        const double value = realSample(number);
        if (std::isnan(value)) {
            continue;
        }
        const std::string_view expected(left.data(), writeReal(value, left));
        ASSERT_EQ(expected, std::string_view(right.data(), writeRealByC(value, right)));
    }
}

}  // namespace torvel::test
