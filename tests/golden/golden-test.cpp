// Runs the golden cases in this process; README.md in this folder tells their form and what is tested.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "src/app/command.h"
#include "tests/support/case-file.h"
#include "tests/support/case-run.h"
#include "tests/support/escapes.h"
#include "tests/support/numbered-comments.h"
#include "tests/support/platform.h"

namespace torvel::test {

namespace {

class GoldenTest : public testing::Test {
public:
    GoldenTest(std::filesystem::path path, bool update) : path_(std::move(path)), update_(update) {}

    void TestBody() override {
        const Case test = readCase(path_);
        if (const std::string reason = whyNotHere(test); !reason.empty()) {
            GTEST_SKIP() << reason;
        }
        const Outcome outcome = runCase(test, test.files, runCommand);
        const std::string difference = checkExpectations(path_, test, outcome, update_);
        if (!difference.empty()) {
            ADD_FAILURE_AT(path_.string().c_str(), 1) << difference;
            return;
        }
        if (!test.linefeedsOnly) {
            runWithLineEnds(test, outcome, "\r\n", "CR LF");
            runWithLineEnds(test, outcome, "\r", "CR");
        }
        if (!test.withoutComments) {
            runWithComments(test, outcome);
        }
    }

private:
    void runWithLineEnds(const Case& test, const Outcome& plain, const char* lineEnd,
                         const char* name) {
        std::vector<CaseEntry> files = test.files;
        for (CaseEntry& file : files) {
            if (isSourceText(file.path)) {
                file.content = replaceAll(file.content, "\n", lineEnd);
            }
        }
        Outcome outcome = runCase(test, files, runCommand);
        outcome.files = plain.files;  // these may be sources
        const std::string difference = outcomeDifference(plain, outcome);
        if (!difference.empty()) {
            ADD_FAILURE_AT(path_.string().c_str(), 1) << "with " << name << " line ends:\n"
                                                      << difference;
        }
    }

    void runWithComments(const Case& test, const Outcome& plain) {
        const NumberedSources sources = numberComments(test.files);
        Outcome outcome = runCase(test, sources.files, runCommand);
        std::string fault;
        if (plain.output && outcome.output && plain.status == 0) {
            const std::string program = replaceAll(test.arguments.back(), "{dir}/", "");
            fault = checkNumberedOutput(sources, program, *plain.output, *outcome.output);
        }
        outcome.output = plain.output;
        outcome.files = plain.files;
        fault += outcomeDifference(plain, outcome);
        if (!fault.empty()) {
            ADD_FAILURE_AT(path_.string().c_str(), 1) << "with a comment at every line:\n" << fault;
        }
    }

    std::filesystem::path path_;
    bool update_;
};

std::size_t caseCount = 0;

TEST(GoldenCases, AreFound) {
    EXPECT_GT(caseCount, 0U);
}

}  // namespace

}  // namespace torvel::test

int main(int argc, char** argv) {
    using namespace torvel::test;
    testing::InitGoogleTest(&argc, argv);
    const bool update = takeUpdateFlag(argc, argv);
    const std::filesystem::path root = std::filesystem::path(TORVEL_SOURCE_DIR) / "tests/golden";
    visitCases(root, [update](const std::string& subject, const std::string& name,
                              const std::filesystem::path& path) {
        ++caseCount;
        testing::RegisterTest(
            subject.c_str(), name.c_str(), nullptr, nullptr, path.string().c_str(), 1,
            [path, update]() -> testing::Test* { return new GoldenTest(path, update); });
    });
    return RUN_ALL_TESTS();
}
