// Runs the program itself on the cases of this folder, and on those that only this platform has;
// tests/golden/README.md tells their form.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/case-file.h"
#include "tests/support/case-run.h"
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

class CommandLineTest : public testing::Test {
public:
    CommandLineTest(std::filesystem::path path, bool update)
        : path_(std::move(path)), update_(update) {}

    void TestBody() override {
        const Case test = readCase(path_);
        if (const std::string reason = whyNotHere(test); !reason.empty()) {
            GTEST_SKIP() << reason;
        }
        const Outcome outcome = runCase(test, test.files, runProgram);
        const std::string difference = checkExpectations(path_, test, outcome, update_);
        if (!difference.empty()) {
            ADD_FAILURE_AT(path_.string().c_str(), 1) << difference;
        }
    }

private:
    std::filesystem::path path_;
    bool update_;
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
        visitCases(root, [update](const std::string& subject, const std::string& name,
                                  const std::filesystem::path& path) {
            ++caseCount;
            testing::RegisterTest(
                subject.c_str(), name.c_str(), nullptr, nullptr, path.string().c_str(), 1,
                [path, update]() -> testing::Test* { return new CommandLineTest(path, update); });
        });
    }
    return RUN_ALL_TESTS();
}
