// The commands of docs/many-programs.md for torvel-migrate: eight folders converted by GNU Parallel and reported together.

#include <gtest/gtest.h>

#include "tests/migrate/other-program.h"
#include "tests/migrate/page-commands.h"
#include "tests/support/temporary-directory.h"

namespace torvel::migrate::test {

TEST(ManyProgramsPage, EightFoldersByParallel) {
    if (!runs({"parallel", "--version"})) {
        TORVEL_TEST_NEEDS("parallel");
    }
    const torvel::test::TemporaryDirectory directory;
    for (int line = 1; line <= 8; ++line) {
        const std::filesystem::path folder =
            directory.path() / "programs" / ("line" + std::to_string(line));
        torvel::test::writeFile(folder / "shared.inc", "DVAR $a\n");
        for (int i = 0; i < 5; ++i) {
            torvel::test::writeFile(folder / ("p" + std::to_string(i) + ".pgm"),
                                    "#include \"shared.inc\"\nG1 X1\n$a = 1e3\n");
        }
    }
    torvel::test::writeFile(directory.path() / "programs/line3/p4.pgm", "PROBE X\n");
    const std::vector<PageStep> steps = stepsOfPage(
        torvel::test::readFile(std::string(TORVEL_SOURCE_DIR "/docs/many-programs.md")));
    ASSERT_EQ(steps.size(), 3U);
    for (const PageStep& step : steps) {
        expectShown(step, directory.path());
    }
    const std::string report = torvel::test::readFile(directory.path() / "plant.csv");
    EXPECT_NE(report.find("programs/line8/p4.pgm"), std::string::npos) << report;
}

}  // namespace torvel::migrate::test
