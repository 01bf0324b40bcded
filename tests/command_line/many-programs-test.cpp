// The bash loop of docs/many-programs.md, taken from the page, on a small shelf of programs.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/support/escapes.h"
#include "tests/support/many-programs.h"
#include "tests/support/start-program.h"
#include "tests/support/temporary-directory.h"

namespace torvel::test {

namespace {

namespace fs = std::filesystem;

/// Runs a script in `folder`, the program being on the path.
CommandResult runScript(const fs::path& folder, const std::string& script) {
    writeFile(folder / "convert-all", script);
    return startProgram("/bin/bash",
                        {"-c", "cd \"$0\" && PATH=\"$1:$PATH\" exec bash ./convert-all",
                         folder.string(), fs::path(TORVEL_PROGRAM).parent_path().string()});
}

TEST(ManyPrograms, BashLoopConvertsAShelf) {
    const TemporaryDirectory folder;
    writeShelf(folder.path());
    const CommandResult result = runScript(folder.path(), loopOfPage("bash"));

    EXPECT_EQ(result.standardOutput,
              "failed: programs/laser/broken.pgm\n"
              "left out: programs/mill one/inc/feeds.pgm\n"
              "left out: programs/mill one/inc/tool.pgm\n");
    const std::string missing = (folder.path() / "programs/laser/nowhere.inc").string();
    EXPECT_EQ(result.standardError, "broken.pgm:1: '" + missing + "' does not exist.\n\n");
    const fs::path results = folder.path() / "results";
    EXPECT_EQ(filesBelow(results), resultsOfShelf());
    EXPECT_EQ(readFile(results / "ool.torvel"), "Home(U)\n\n");
    EXPECT_EQ(readFile(results / "laser/main.torvel"),
              "#error_unconvertible (main.pgm:1): HOME STAGE\n\n");
    const std::string included = readFile(results / "mill one/main.torvel");
    EXPECT_NE(included.find("\nF10\n"), std::string::npos) << included;
    EXPECT_NE(included.find("\nHome(Y)\n"), std::string::npos) << included;
    EXPECT_NE(included.find("\nHome(X)\n"), std::string::npos) << included;
}

TEST(ManyPrograms, BashLoopTakesTheParameterFile) {
    const TemporaryDirectory folder;
    writeShelf(folder.path());
    const std::string options = "options=(-p machine.xml)";
    EXPECT_NE(readFile(fs::path(TORVEL_SOURCE_DIR) / "docs/many-programs.md").find(options),
              std::string::npos);
    runScript(folder.path(), replaceAll(loopOfPage("bash"), "options=()", options));
    EXPECT_EQ(readFile(folder.path() / "results/laser/main.torvel"), "Home(STAGE)\n\n");
}

/// Names of included files are found in any case, behind any line end, and whole.
TEST(ManyPrograms, BashLoopFindsIncludesHoweverTheyAreWritten) {
    const TemporaryDirectory folder;
    const fs::path programs = folder.path() / "programs";
    writeFile(programs / "main.PGM", "HOME X\r#INCLUDE \"inc\\Tool.pgm\"\rHOME \xB5\r");
    writeFile(programs / "second.pgm", "; #include \"ool.pgm\"\nHOME X\n");
    writeFile(programs / "ool.pgm", "HOME X\n");
    writeFile(programs / "inc/Tool.pgm", "HOME Y\n");
    const CommandResult result = runScript(folder.path(), loopOfPage("bash"));
    EXPECT_EQ(result.standardOutput,
              "left out: programs/inc/Tool.pgm\n"
              "failed: programs/main.PGM\n");
    EXPECT_EQ(filesBelow(folder.path() / "results"),
              (std::vector<std::string>{"ool.log", "ool.torvel", "second.log", "second.torvel"}));
}

}  // namespace

}  // namespace torvel::test
