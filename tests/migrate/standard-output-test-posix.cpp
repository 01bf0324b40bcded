// What the program does when its standard output takes nothing.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>

#include "tests/support/temporary-directory.h"

namespace torvel::migrate::test {

namespace {

namespace fs = std::filesystem;

int status(const fs::path& folder, const std::string& command) {
    const std::string whole = "cd '" + folder.string() + "' && { " + command + "; }";
    return WEXITSTATUS(std::system(whole.c_str()));
}

/// Runs the program in a folder, its standard output led to `output`, standard error to a file called "said".
int migrate(const fs::path& folder, const std::string& arguments, const std::string& output) {
    return status(folder, "'" TORVEL_MIGRATE "' " + arguments + " 2>said >" + output);
}

}  // namespace

TEST(StandardOutput, WhatCannotBeWrittenIsToldAndFails) {
    if (!fs::exists("/dev/full")) {
        GTEST_SKIP() << "there is no /dev/full";
    }
    const torvel::test::TemporaryDirectory directory;
    torvel::test::writeFile(directory.path() / "programs/a.pgm", "PROBE X\n");
    for (const char* const arguments :
         {"convert programs", "status", "report --json -", "report --csv -", "accept",
          "explain value-cut", "explain --list", "--help", "status --help", "--version"}) {
        EXPECT_EQ(migrate(directory.path(), arguments, "/dev/full"), 1) << arguments;
        EXPECT_EQ(torvel::test::readFile(directory.path() / "said"),
                  "torvel-migrate: The standard output could not be written (No space left on "
                  "device): make sure that what it leads to has room.\n")
            << arguments;
        EXPECT_EQ(migrate(directory.path(), arguments, "/dev/null"), 0) << arguments;
        EXPECT_EQ(torvel::test::readFile(directory.path() / "said"), "") << arguments;
    }
    // What needs no standard output is done all the same.
    EXPECT_EQ(migrate(directory.path(), "convert programs --quiet", "/dev/full"), 0);
}

}  // namespace torvel::migrate::test
