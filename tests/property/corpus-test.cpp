// The generated programs that benchmarks measure are made of what they are said to be made of.

#include <gtest/gtest.h>

#include "bench/corpus-shares.h"
#include "bench/include-tree.h"
#include "src/app/command.h"
#include "tests/support/temporary-directory.h"

namespace torvel::test {

namespace {

constexpr double percent = 0.01;

/// Lines of the program's output that begin with the marker.
std::size_t refusedLines(const bench::Corpus& corpus) {
    const TemporaryDirectory directory;
    for (const bench::CorpusFile& file : corpus) {
        writeFile(directory.path() / "program" / file.path, file.text);
    }
    const CommandResult result = runCommand(
        {"-o", directory.path().string(), (directory.path() / "program/main.pgm").string()});
    EXPECT_EQ(result.status, 0) << result.standardError;
    const std::string output = readFile(directory.path() / "main.torvel");
    std::size_t refused = 0;
    const std::string marker = "#error_unconvertible";
    for (std::size_t at = output.find(marker); at != std::string::npos;
         at = output.find(marker, at + 1)) {
        ++refused;
    }
    return refused;
}

class SharesOfGeneratedProgram : public testing::TestWithParam<std::size_t> {};

TEST_P(SharesOfGeneratedProgram, AreTheSameAtEverySize) {
    const bench::CorpusShares shares =
        bench::countShares(bench::generateCorpus({GetParam(), 1, {}}));
    EXPECT_NEAR(shares.share(shares.commentLines), 0.20, 1 * percent);
    EXPECT_NEAR(shares.share(shares.linesWithNames), 0.15, 1 * percent);
    EXPECT_EQ(shares.defines, 200U);
}
INSTANTIATE_TEST_SUITE_P(Sizes, SharesOfGeneratedProgram,
                         testing::Values(1'000'000, 3'000'000, 14'000'000));

TEST(GeneratedProgram, OneLineInTwentyIsRefused) {
    const bench::Corpus corpus = bench::generateCorpus({2'000'000, 1, {}});
    const double refused = static_cast<double>(refusedLines(corpus));
    EXPECT_NEAR(refused / static_cast<double>(bench::countShares(corpus).lines), 0.05,
                0.5 * percent);
}

/// Only what is meant to be refused is refused.
TEST(GeneratedProgram, LinesOfOtherFamiliesAreConverted) {
    for (const std::string_view family : bench::corpusFamilies()) {
        if (family == "includes" || family == "unconvertible" || family == "defines") {
            continue;
        }
        const bench::Corpus corpus = bench::generateCorpus({50'000, 1, {std::string(family)}});
        const bool hasDefines = family == "define-uses" || family == "conditionals";
        // One define in eight stands for an expression, which Torvel's cannot.
        EXPECT_EQ(refusedLines(corpus), hasDefines ? 25U : 0U) << family;
    }
}

TEST(GeneratedProgram, EveryLineOfTheUnconvertibleOnesIsRefused) {
    const bench::Corpus corpus = bench::generateCorpus({50'000, 1, {"unconvertible"}});
    EXPECT_EQ(refusedLines(corpus), bench::countShares(corpus).lines);
}

TEST(IncludeTree, IsDeepAndHasFilesThatComeAgain) {
    const bench::Corpus corpus = bench::generateIncludeTree({300'000, 1, {}});
    EXPECT_EQ(refusedLines(corpus), 0U);
    const std::string text = bench::inOneText(corpus);
    const std::size_t bytesOfFiles = bench::countShares(corpus).bytes;
    EXPECT_GT(text.size(), bytesOfFiles * 11 / 10);
    // Two rows of 23 files and the beginning of a third, and eight files for all of them.
    EXPECT_GT(corpus.size(), 1U + 8U + 2U * 23U);
    EXPECT_EQ(text.find("#include"), std::string::npos);
}

}  // namespace

}  // namespace torvel::test
