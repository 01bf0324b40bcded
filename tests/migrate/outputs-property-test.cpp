// A person, a source that changes, and runs that are cut off, in random order: nothing of anybody is lost.

#include <gtest/gtest.h>

#include <deque>
#include <random>

#include "src/migrate/outputs.h"
#include "src/migrate/text-lines.h"
#include "tests/support/temporary-directory.h"

namespace torvel::migrate::test {

namespace {

using torvel::test::readFile;
using torvel::test::writeFile;
using Lines = std::vector<std::string>;

Lines linesIn(std::string_view text) {
    Lines lines;
    for (const TextLine& line : linesOf(text)) {
        lines.emplace_back(line.text);
    }
    return lines;
}

std::string textOf(const Lines& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += line + '\n';
    }
    return text;
}

/// Where a run ends.
enum class Ending : std::uint8_t {
    beforeStore,
    beforeFiles,
    inPowerCut,
    beforeConfirmation,
    complete
};

/// A program that is converted again and again, with a person who only adds lines to its output.
class Life {
public:
    explicit Life(unsigned seed) : random_(seed) {
        for (int i = 0; i < 12; ++i) {
            source_.push_back(newLine("g"));
        }
    }

    std::size_t below(std::size_t bound) { return random_() % bound; }

    void changeSource() {
        const std::size_t line = below(source_.size());
        if (below(2) == 0) {
            source_[line] = newLine("g");
        } else {
            source_.insert(at(source_, line), newLine("g"));
        }
    }

    void edit() {
        if (!fileKindIsRegular(output())) {
            return;
        }
        Lines lines = linesIn(readFile(output()));
        persons_.push_back(newLine("p"));
        lines.insert(at(lines, below(lines.size() + 1)), persons_.back());
        writeFile(output(), textOf(lines));
    }

    /// The person keeps the lines of both sides.
    void endConflict() {
        if (!fileKindIsRegular(conflictPath(output()))) {
            return;
        }
        // What the person wrote since stands in the output only; the next run makes the conflict file anew.
        if (below(2) == 0) {
            run(Ending::complete);
            if (!fileKindIsRegular(conflictPath(output()))) {
                return;
            }
        } else if (isOutputNewer()) {
            return;
        }
        Lines kept;
        bool isBase = false;
        for (const std::string& line : linesIn(readFile(conflictPath(output())))) {
            isBase = line.starts_with("|||||||") || (isBase && line != "=======");
            const bool isMarker =
                line.starts_with("<<<<<<<") || line == "=======" || line.starts_with(">>>>>>>");
            if (!isBase && !isMarker && std::find(kept.begin(), kept.end(), line) == kept.end()) {
                kept.push_back(line);
            }
        }
        writeFile(conflictPath(output()), textOf(kept));
        std::filesystem::rename(conflictPath(output()), output());
    }

    void run(Ending ending) {
        texts_.push_back(textOf(source_));
        const OutputPlan plan = planOutput(output(), history_, texts_.back(), {});
        ++actions[static_cast<std::size_t>(plan.decision.action)];
        if (ending == Ending::beforeStore) {
            return;
        }
        history_ = plan.decision.history;
        if (ending == Ending::beforeFiles) {
            return;
        }
        EXPECT_TRUE(carryOut(plan).isDone);
        if (ending == Ending::inPowerCut && plan.decision.action == OutputAction::writeGenerated) {
            writeFile(output(), plan.decision.bytes.substr(0, below(plan.decision.bytes.size())));
            run(Ending::complete);
        }
        if (ending == Ending::complete) {
            history_ = confirmed(plan.decision.history);
        }
    }

    void expectPersonsLines() const {
        if (!persons_.empty()) {
            expectLines(persons_);
        }
    }
    void expectSourceLines() const { expectLines(source_); }
    bool isInConflict() const { return fileKindIsRegular(conflictPath(output())); }

    std::array<std::size_t, 8> actions{};

private:
    static bool fileKindIsRegular(const NativePath& path) {
        return fileKind(path) == FileKind::regular;
    }
    static Lines::iterator at(Lines& lines, std::size_t line) {
        return lines.begin() + static_cast<std::ptrdiff_t>(line);
    }
    std::string newLine(const std::string& name) { return name + std::to_string(++count_); }
    NativePath output() const { return directory_.path() / "part.torvel"; }

    /// The output has lines that the conflict file does not know.
    bool isOutputNewer() const {
        const Lines known = linesIn(readFile(conflictPath(output())));
        const Lines lines = linesIn(readFile(output()));
        return std::any_of(lines.begin(), lines.end(), [&](const std::string& line) {
            return std::find(known.begin(), known.end(), line) == known.end();
        });
    }

    void expectLines(const Lines& expected) const {
        const Lines lines = linesIn(readFile(output()));
        for (const std::string& line : expected) {
            EXPECT_EQ(std::count(lines.begin(), lines.end(), line), 1) << line;
        }
    }

    torvel::test::TemporaryDirectory directory_;
    std::mt19937 random_;
    int count_ = 0;
    Lines source_;
    Lines persons_;
    OutputHistory history_;
    /// The texts that the history tells of.
    std::deque<std::string> texts_;
};

}  // namespace

TEST(OutputProperties, NothingOfAnybodyIsLost) {
    std::array<std::size_t, 8> actions{};
    for (unsigned seed = 0; seed < 60 && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        Life life(seed);
        for (int step = 0; step < 40; ++step) {
            switch (life.below(6)) {
                case 0: life.changeSource(); break;
                case 1: life.edit(); break;
                case 2: life.endConflict(); break;
                default: life.run(static_cast<Ending>(life.below(5))); break;
            }
            life.expectPersonsLines();
        }
        // In the end everything comes together.
        life.run(Ending::complete);
        for (int i = 0; i < 10 && life.isInConflict(); ++i) {
            life.endConflict();
            life.run(Ending::complete);
        }
        EXPECT_FALSE(life.isInConflict());
        life.expectPersonsLines();
        life.expectSourceLines();
        std::transform(actions.begin(), actions.end(), life.actions.begin(), actions.begin(),
                       std::plus<>());
    }
    // Each of these came up often enough to tell something.
    for (const OutputAction action : {OutputAction::nothing, OutputAction::writeGenerated,
                                      OutputAction::writeMerged, OutputAction::writeConflict}) {
        EXPECT_GT(actions[static_cast<std::size_t>(action)], 100U) << static_cast<int>(action);
    }
}

}  // namespace torvel::migrate::test
