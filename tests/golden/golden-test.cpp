// Runs the golden cases in this process; README.md in this folder tells their form and what is tested.

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "src/app/command.h"
#include "tests/support/case-file.h"
#include "tests/support/case-run.h"
#include "tests/support/case-test.h"
#include "tests/support/escapes.h"
#include "tests/support/numbered-comments.h"
#include "tests/support/text-difference.h"

namespace torvel::test {

namespace {

/// The checks but those that are about comments.
std::optional<std::string> withoutCommentChecks(const std::optional<std::string>& checks) {
    if (!checks) {
        return checks;
    }
    std::string rest;
    for (const std::string_view line : splitLines(*checks)) {
        if (!line.empty() && !line.ends_with(" comment-dropped") &&
            !line.ends_with(" comment-continues")) {
            rest += std::string(line) + '\n';
        }
    }
    return rest;
}

class GoldenTest : public CaseTest {
public:
    using CaseTest::CaseTest;

    void TestBody() override {
        const Case test = readCase(path());
        const std::optional<Outcome> plain = runAsItStands(test, runForChecks);
        if (!plain) {
            return;
        }
        if (!test.linefeedsOnly) {
            runWithLineEnds(test, *plain, "\r\n", "CR LF");
            runWithLineEnds(test, *plain, "\r", "CR");
        }
        if (!test.withoutComments) {
            runWithComments(test, *plain);
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
        Outcome outcome = runCase(test, files, runForChecks);
        outcome.files = plain.files;  // these may be sources
        const std::string difference = outcomeDifference(plain, outcome);
        if (!difference.empty()) {
            fail("with " + std::string(name) + " line ends:\n" + difference);
        }
    }

    void runWithComments(const Case& test, const Outcome& plain) {
        const NumberedSources sources = numberComments(test.files);
        Outcome outcome = runCase(test, sources.files, runForChecks);
        std::string fault;
        if (plain.output && outcome.output && plain.status == 0) {
            const std::string program = replaceAll(test.arguments.back(), "{dir}/", "");
            fault = checkNumberedOutput(sources, program, *plain.output, *outcome.output);
        }
        outcome.output = plain.output;
        outcome.files = plain.files;
        outcome.checks = withoutCommentChecks(outcome.checks);
        Outcome expected = plain;
        expected.checks = withoutCommentChecks(plain.checks);
        fault += outcomeDifference(expected, outcome);
        if (!fault.empty()) {
            fail("with a comment at every line:\n" + fault);
        }
    }
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
    caseCount = registerCases<GoldenTest>(root, update);
    return RUN_ALL_TESTS();
}
