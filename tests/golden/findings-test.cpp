// findings.txt: what the cases without a part `expect checks` have that is converted and yet needs a look. Most of
// them were written for other things, so this tells where a check says more or less than it did. With --update of
// the golden cases the list is written anew; each line that changes is read against the check's rule.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "tests/support/case-file.h"
#include "tests/support/case-run.h"
#include "tests/support/platform.h"
#include "tests/support/temporary-directory.h"
#include "tests/support/text-difference.h"

namespace torvel::test {

namespace {

std::string findingsOfCases(const std::filesystem::path& root) {
    std::string list;
    visitCases(
        root, [&](const std::string&, const std::string&, const std::filesystem::path& path) {
            const Case test = readCase(path);
            if (test.expected.checks || !whyNotHere(test).empty()) {
                return;
            }
            const std::string checks = runCase(test, test.files, runForChecks).checks.value_or("");
            const std::string name = path.parent_path().filename() / path.stem();
            for (const std::string_view line : splitLines(checks)) {
                list += name + ' ' + std::string(line) + '\n';
            }
        });
    return list;
}

}  // namespace

TEST(GoldenCases, HaveTheFindingsThatWereRead) {
    const std::filesystem::path root = std::filesystem::path(TORVEL_SOURCE_DIR) / "tests/golden";
    const std::string findings = findingsOfCases(root);
    if (std::getenv("TORVEL_UPDATE_CASES") != nullptr) {
        writeFile(root / "findings.txt", findings);
    }
    EXPECT_EQ(textDifference(readFile(root / "findings.txt"), findings), "");
}

}  // namespace torvel::test
