// Runs the program itself on the cases of this folder, and on those that only this platform has;
// tests/golden/README.md tells their form.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/case-file.h"
#include "tests/support/case-run.h"
#include "tests/support/case-test.h"
#include "tests/support/platform.h"
#include "tests/support/start-program.h"

namespace torvel::test {

namespace {

CommandResult runProgram(const std::vector<std::string>& arguments, const Limits& limits) {
    if (limits.includeDepth != Limits().includeDepth) {
        throw std::runtime_error("the program's limits cannot be changed");
    }
    return startProgram(TORVEL_PROGRAM, arguments);
}

class CommandLineTest : public CaseTest {
public:
    using CaseTest::CaseTest;

    void TestBody() override { runAsItStands(readCase(path()), runProgram); }
};

std::size_t caseCount = 0;

TEST(CommandLineCases, AreFound) {
    EXPECT_GT(caseCount, 0U);
}

TEST(ProgramStart, TellsThatAProgramCannotBeStarted) {
    EXPECT_THROW(startProgram("/nowhere/no-program", {}), std::runtime_error);
}

}  // namespace

}  // namespace torvel::test

int main(int argc, char** argv) {
    using namespace torvel::test;
    testing::InitGoogleTest(&argc, argv);
    const bool update = takeUpdateFlag(argc, argv);
    for (const std::string& folder : commandLineFolders()) {
        const std::filesystem::path root = std::filesystem::path(TORVEL_SOURCE_DIR) / folder;
        caseCount += registerCases<CommandLineTest>(root, update);
    }
    return RUN_ALL_TESTS();
}
