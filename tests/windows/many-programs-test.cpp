// The loop of docs/many-programs.md for the command prompt, taken from the page, on a small shelf of programs.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/escapes.h"
#include "tests/support/many-programs.h"
#include "tests/support/platform.h"
#include "tests/support/start-program.h"
#include "tests/support/temporary-directory.h"

namespace torvel::test {

namespace {

namespace fs = std::filesystem;

/// Runs a batch file in `folder`, the program being beside it.
CommandResult runBatch(const fs::path& folder, const std::string& batch) {
    fs::copy_file(TORVEL_PROGRAM, folder / "BrannicToTorvel64.exe");
    writeFile(folder / "convert-all.cmd", replaceAll(batch, "\n", "\r\n"));
    const fs::path previous = fs::current_path();
    fs::current_path(folder);
    CommandResult result = startProgram(std::getenv("COMSPEC"), {"/c", "convert-all.cmd"});
    fs::current_path(previous);
    return result;
}

TEST(ManyPrograms, LoopConvertsAShelf) {
    const TemporaryDirectory folder;
    writeShelf(folder.path());
    const std::string options = "set options=-p \"%CD%\\machine.xml\"";
    EXPECT_NE(readFile(fs::path(TORVEL_SOURCE_DIR) / "docs/many-programs.md").find(options),
              std::string::npos);
    std::string loop = replaceAll(loopOfPage("bat"), "set \"options=\"", options);
    // Wine's find does not know the option for any case of letters, and takes a text that begins with a
    // slash for an option; the shelf has its names in one case and back slashes in its paths.
    loop = replaceAll(loop, "find /i ", "find ");
    const CommandResult result = runBatch(folder.path(), loop);

    const std::string programs = (folder.path() / "programs").string();
    for (const std::string& line : {"failed: \"" + programs + "\\laser\\broken.pgm\"\n",
                                    "left out: \"" + programs + "\\mill one\\inc\\feeds.pgm\"\n",
                                    "left out: \"" + programs + "\\mill one\\inc\\tool.pgm\"\n"}) {
        EXPECT_NE(result.standardOutput.find(line), std::string::npos)
            << line << result.standardOutput;
    }
    const fs::path results = folder.path() / "results";
    EXPECT_EQ(filesBelow(results), resultsOfShelf());
    EXPECT_EQ(plainLineEnds(readFile(results / "ool.torvel")), "Home(U)\n\n");
    EXPECT_EQ(plainLineEnds(readFile(results / "laser/main.torvel")), "Home(STAGE)\n\n");
    const std::string included = plainLineEnds(readFile(results / "mill one/main.torvel"));
    EXPECT_NE(included.find("\nF10\n"), std::string::npos) << included;
    EXPECT_NE(included.find("\nHome(Y)\n"), std::string::npos) << included;
    EXPECT_NE(included.find("\nHome(X)\n"), std::string::npos) << included;
}

}  // namespace

}  // namespace torvel::test
