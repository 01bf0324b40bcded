// However the lines of a program are shared out to threads, its output, its messages and its findings are the
// same.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "bench/corpus.h"
#include "src/app/conversion.h"
#include "src/checks/finding-telling.h"
#include "src/preprocess/preprocessor.h"
#include "tests/support/case-run.h"
#include "tests/support/temporary-directory.h"
#include "tests/support/text-difference.h"

namespace torvel::test {

namespace {

namespace fs = std::filesystem;

/// A generated program of every family of lines.
class GeneratedProgram {
public:
    GeneratedProgram() {
        bench::CorpusOptions options{60'000, 11, {}};
        for (const std::string_view family : bench::corpusFamilies()) {
            options.families.emplace_back(family);
        }
        const bench::Corpus files = bench::generateCorpus(options);
        for (const bench::CorpusFile& file : files) {
            writeFile(directory_.path() / file.path, file.text);
        }
        path_ = (directory_.path() / files.front().path).string();
    }

    std::size_t lineCount() const {
        Program program;
        CheckRecord record;
        read(program, record, {});
        return program.lines.size();
    }

    struct Conversion {
        std::string output;
        /// The messages as the log has them.
        std::string log;
        /// The findings, a line each.
        std::string findings;
    };

    /// In parts of so many lines, which are converted while further ones are read or when all are.
    enum class Begin : std::uint8_t { whileReading, afterReading };
    Conversion convert(std::size_t partSize, const WorkSharing& sharing, Begin begin) const {
        Program program;
        program.lines.setPartSize(partSize);
        CheckRecord record;
        MessageLog log;
        ConversionContext context{program, axes_, limits_, log, {}, 0, &record};
        ProgramConversion converting(context, sharing);
        read(program, record,
             begin == Begin::whileReading ? [&](const ProgramPart& part) { converting.add(part); }
                                          : PartTaker());
        OutputFile output;
        const fs::path path = directory_.path() / "output";
        EXPECT_TRUE(output.open(path));
        converting.write(output);
        EXPECT_TRUE(output.close());
        Conversion conversion{readFile(path), {}, {}};
        tellFindings(program, record, log,
                     [&](const Finding& finding) { conversion.findings += checkLine(finding); });
        for (const ConversionMessage& message : log) {
            conversion.log += formatDiagnostic(message.position, message.text) + '\n';
        }
        return conversion;
    }

private:
    void read(Program& program, CheckRecord& record, const PartTaker& taker) const {
        preprocessProgram(program, path_, axes_, limits_, predefinedConstants(), fileSystemSource(),
                          &record, taker);
    }

    TemporaryDirectory directory_;
    std::string path_;
    AxisNames axes_;
    Limits limits_;
};

}  // namespace

TEST(WorkSharing, ChangesNothing) {
    const GeneratedProgram program;
    const std::size_t lines = program.lineCount();
    ASSERT_GT(lines, 1'000U);
    using Begin = GeneratedProgram::Begin;
    const GeneratedProgram::Conversion whole = program.convert(lines, {0U}, Begin::afterReading);
    EXPECT_NE(whole.output.find("\n\t"), std::string::npos) << "no line stands in a block";
    EXPECT_GT(std::count(whole.log.begin(), whole.log.end(), '\n'), 100);
    EXPECT_GT(std::count(whole.findings.begin(), whole.findings.end(), '\n'), 100);
    // A part of no lines counts as one of one line.
    for (const std::size_t linesPerPart :
         {std::size_t{0}, std::size_t{1}, std::size_t{2}, std::size_t{7}, std::size_t{64},
          lines / 2, lines - 1, lines + 1}) {
        for (const unsigned helpers : {0U, 1U, 3U}) {
            for (const Begin begin : {Begin::whileReading, Begin::afterReading}) {
                SCOPED_TRACE(std::to_string(linesPerPart) + " lines in a part, " +
                             std::to_string(helpers) + " helpers" +
                             (begin == Begin::whileReading ? ", while reading" : ""));
                const GeneratedProgram::Conversion shared =
                    program.convert(linesPerPart, {helpers}, begin);
                EXPECT_EQ(textDifference(whole.output, shared.output), "");
                EXPECT_EQ(textDifference(whole.log, shared.log), "");
                EXPECT_EQ(textDifference(whole.findings, shared.findings), "");
            }
        }
    }
}

TEST(WorkSharing, ByTheProcessorsThatThereAre) {
    const GeneratedProgram program;
    using Begin = GeneratedProgram::Begin;
    const GeneratedProgram::Conversion whole =
        program.convert(program.lineCount(), {0U}, Begin::afterReading);
    const GeneratedProgram::Conversion shared = program.convert(16, {}, Begin::whileReading);
    EXPECT_EQ(textDifference(whole.output, shared.output), "");
    EXPECT_EQ(textDifference(whole.log, shared.log), "");
    EXPECT_EQ(textDifference(whole.findings, shared.findings), "");
}

}  // namespace torvel::test
