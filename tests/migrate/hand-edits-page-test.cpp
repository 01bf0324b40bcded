// docs/hand-edits.md: its example comes out as the page shows it.

#include <gtest/gtest.h>

#include <sstream>

#include "src/migrate/open-findings.h"
#include "src/migrate/outputs.h"
#include "src/migrate/program-conversion.h"
#include "tests/support/temporary-directory.h"

namespace torvel::migrate::test {

namespace {

using torvel::test::readFile;
using torvel::test::writeFile;

std::string pageText() {
    return readFile(std::filesystem::path(TORVEL_SOURCE_DIR) / "docs/hand-edits.md");
}

/// The texts between the fences of a page, without the indentation of a list.
std::vector<std::string> blocksOf(const std::string& page) {
    std::vector<std::string> blocks;
    std::istringstream lines(page);
    std::string line;
    bool isInside = false;
    while (std::getline(lines, line)) {
        const std::size_t indentation = std::min(line.find_first_not_of(' '), line.size());
        if (line.substr(indentation) == "```") {
            isInside = !isInside;
            if (isInside) {
                blocks.emplace_back();
            }
        } else if (isInside) {
            blocks.back() += line.substr(indentation) + '\n';
        }
    }
    return blocks;
}

/// A program and its output, as a run would have them.
class Example {
public:
    std::string generate(std::string source) {
        source.pop_back();  // The last line of the page's programs has no end.
        writeFile(directory_.path() / "part.pgm", source);
        const NativePath folder = canonicalPath(directory_.path());
        result = convertOne(folder / "part.pgm", {folder, fileSystemSource(), AxisNames(), {}});
        return result.outputText;
    }
    /// Puts `generated` in place; it has to live on.
    OutputPlan place(const std::string& generated) {
        OutputPlan plan = planOutput(output(), history, generated, {});
        history = plan.decision.history;
        EXPECT_TRUE(carryOut(plan).isDone);
        history = confirmed(history);
        return plan;
    }
    std::vector<bool> open(const std::string& generated) const {
        return openFindings({generated, generated, readFile(output())}, result.findings);
    }
    NativePath output() const { return directory_.path() / "part.torvel"; }
    NativePath conflict() const { return conflictPath(output()); }

    OutputHistory history;
    ProgramResult result;

private:
    torvel::test::TemporaryDirectory directory_;
};

/// The quotation of the page in one line.
std::string quotation(const std::string& page) {
    std::istringstream lines(page);
    std::string line;
    std::string text;
    while (std::getline(lines, line)) {
        if (line.starts_with("   > ")) {
            text += (text.empty() ? "" : " ") + line.substr(5);
        }
    }
    return text;
}

}  // namespace

TEST(HandEditsPage, TheExampleComesOutAsShown) {
    const std::vector<std::string> blocks = blocksOf(pageText());
    ASSERT_EQ(blocks.size(), 8U);
    const auto& [source, output, edited, withRevision, merged, withY, conflict, result] = std::tie(
        blocks[0], blocks[1], blocks[2], blocks[3], blocks[4], blocks[5], blocks[6], blocks[7]);
    Example example;
    const std::string first = example.generate(source);
    example.place(first);
    EXPECT_EQ(readFile(example.output()), output);
    EXPECT_EQ(example.open(first), (std::vector{true, true}));

    writeFile(example.output(), edited);
    EXPECT_EQ(example.open(first), (std::vector{false, false}));
    const std::string second = example.generate(withRevision);
    EXPECT_EQ(example.place(second).decision.action, OutputAction::writeMerged);
    EXPECT_EQ(readFile(example.output()), merged);
    EXPECT_EQ(example.open(second), (std::vector{false, false}));

    const std::string third = example.generate(withY);
    const OutputPlan plan = example.place(third);
    EXPECT_EQ(plan.decision.action, OutputAction::writeConflict);
    const std::string folder = (example.output().parent_path() / "").string();
    EXPECT_EQ(plan.message, folder + quotation(pageText()));
    EXPECT_EQ(readFile(example.output()), merged);
    EXPECT_EQ(readFile(example.conflict()), conflict);
    EXPECT_EQ(openFindings({third, second, merged}, example.result.findings),
              (std::vector{false, true}));

    writeFile(example.conflict(), result);
    std::filesystem::rename(example.conflict(), example.output());
    EXPECT_EQ(example.place(third).decision.action, OutputAction::nothing);
    EXPECT_EQ(readFile(example.output()), result);
    EXPECT_EQ(example.history.base, third);
    EXPECT_FALSE(example.history.conflict);
    EXPECT_EQ(example.open(third), (std::vector{false, false}));
}

}  // namespace torvel::migrate::test
