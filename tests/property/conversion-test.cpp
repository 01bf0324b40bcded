// What holds for every program that converts.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <thread>

#include "src/app/command.h"
#include "src/lex/characters.h"
#include "src/preprocess/preprocessor.h"
#include "src/stmt/statement.h"
#include "tests/property/programs.h"
#include "tests/support/temporary-directory.h"
#include "tests/support/text-difference.h"

namespace torvel::test {

namespace {

namespace fs = std::filesystem;

void layOut(const SampleProgram& sample, const fs::path& folder) {
    for (const CaseEntry& file : sample.files) {
        writeFile(folder / file.path, file.content);
    }
}

struct Conversion {
    int status = 0;
    std::string standardError;
    std::string output;
    std::string log;

    bool operator==(const Conversion&) const = default;
};

Conversion convert(const SampleProgram& sample) {
    const TemporaryDirectory directory;
    layOut(sample, directory.path());
    const fs::path out = directory.path() / "results";
    fs::create_directory(out);
    const CommandResult result =
        runCommand({"-o", out.string(), (directory.path() / sample.program).string()});
    const std::string stem = fs::path(sample.program).stem().string();
    if (result.status != 0) {
        return {result.status, result.standardError, {}, {}};
    }
    return {result.status, result.standardError, readFile(out / (stem + ".torvel")),
            readFile(out / (stem + ".log"))};
}

/// What one line of a program became.
struct ConvertedLine {
    SourcePosition position;
    bool isConverted = false;
    std::string text;
    std::size_t messagesBefore = 0;
    std::size_t messagesAfter = 0;

    std::size_t linesOfText() const {
        const std::string_view written = trimBlanks(text);
        return 1 + static_cast<std::size_t>(std::count(written.begin(), written.end(), '\n'));
    }
};

/// A program that is converted line by line.
class LineByLine {
public:
    explicit LineByLine(const SampleProgram& sample) {
        layOut(sample, directory_.path());
        preprocessProgram(program_, (directory_.path() / sample.program).string(), axes_, limits_);
    }

    /// Converts the next line; false if there is none.
    bool step() {
        const std::size_t number = lines_.size();
        if (number == program_.list.lines.size()) {
            return false;
        }
        ConvertedLine line;
        line.position = program_.list.lines[number].position();
        context_.position = line.position;
        line.messagesBefore = log_.size();
        BlockEffect effect{};
        line.isConverted =
            convertStatement(context_, program_.list.tokensOf(number), line.text, effect);
        line.messagesAfter = log_.size();
        lines_.push_back(line);
        return true;
    }

    LineByLine& finish() {
        while (step()) {
        }
        return *this;
    }

    const std::vector<ConvertedLine>& lines() const { return lines_; }
    const MessageLog& log() const { return log_; }

private:
    TemporaryDirectory directory_;
    AxisNames axes_;
    Limits limits_;
    Program program_;
    MessageLog log_;
    ConversionContext context_{program_, axes_, limits_, log_, {}};
    std::vector<ConvertedLine> lines_;
};

void expectSame(const LineByLine& a, const LineByLine& b) {
    ASSERT_EQ(a.lines().size(), b.lines().size());
    for (std::size_t i = 0; i < a.lines().size(); ++i) {
        EXPECT_EQ(a.lines()[i].isConverted, b.lines()[i].isConverted);
        EXPECT_EQ(a.lines()[i].text, b.lines()[i].text);
    }
    ASSERT_EQ(a.log().size(), b.log().size());
    for (std::size_t i = 0; i < a.log().size(); ++i) {
        EXPECT_EQ(a.log()[i].text, b.log()[i].text);
    }
}

bool isAt(const SourcePosition& a, const SourcePosition& b) {
    return a.inclusion == b.inclusion && a.lineNumber == b.lineNumber;
}

}  // namespace

TEST(Conversion, SamplesAreThere) {
    EXPECT_GT(samplePrograms().size(), 4U);
}

TEST(Conversion, SameInputGivesSameBytes) {
    for (const SampleProgram& sample : samplePrograms()) {
        SCOPED_TRACE(sample.name);
        const Conversion first = convert(sample);
        EXPECT_EQ(first.status, 0) << first.standardError;
        EXPECT_TRUE(first == convert(sample));
    }
}

TEST(Conversion, TwoRunsSideBySideDoNotTouchEachOther) {
    const auto& samples = samplePrograms();
    std::vector<Conversion> alone;
    for (const SampleProgram& sample : samples) {
        alone.push_back(convert(sample));
    }
    std::vector<Conversion> forwards(samples.size());
    std::vector<Conversion> backwards(samples.size());
    std::thread first([&] {
        for (std::size_t i = 0; i < samples.size(); ++i) {
            forwards[i] = convert(samples[i]);
        }
    });
    std::thread second([&] {
        for (std::size_t i = samples.size(); i-- > 0;) {
            backwards[i] = convert(samples[i]);
        }
    });
    first.join();
    second.join();
    for (std::size_t i = 0; i < samples.size(); ++i) {
        SCOPED_TRACE(samples[i].name);
        EXPECT_TRUE(alone[i] == forwards[i]);
        EXPECT_TRUE(alone[i] == backwards[i]);
    }
}

TEST(Conversion, TwoProgramsConvertedInTurnsLineByLine) {
    const SampleProgram& first = samplePrograms()[0];
    const SampleProgram& second = samplePrograms()[1];
    LineByLine one(first);
    LineByLine two(second);
    bool goesOn = true;
    while (goesOn) {
        goesOn = one.step();
        goesOn = two.step() || goesOn;
    }
    expectSame(one, LineByLine(first).finish());
    expectSame(two, LineByLine(second).finish());
}

TEST(Conversion, EveryLineOfSourceGivesOneStatement) {
    for (const SampleProgram& sample : samplePrograms()) {
        SCOPED_TRACE(sample.name);
        LineByLine program(sample);
        std::size_t expected = 0;
        for (const ConvertedLine& line : program.finish().lines()) {
            expected += line.isConverted ? line.linesOfText() : 1;
        }
        const Conversion conversion = convert(sample);
        EXPECT_EQ(splitLines(conversion.output).size(), expected);
    }
}

TEST(Conversion, EveryMarkerHasItsMessage) {
    for (const SampleProgram& sample : samplePrograms()) {
        SCOPED_TRACE(sample.name);
        LineByLine program(sample);
        for (const ConvertedLine& line : program.finish().lines()) {
            for (std::size_t i = line.messagesBefore; i < line.messagesAfter; ++i) {
                EXPECT_TRUE(isAt(program.log()[i].position, line.position))
                    << program.log()[i].text;
            }
            if (!line.isConverted) {
                EXPECT_GT(line.messagesAfter, line.messagesBefore)
                    << "line " << line.position.lineNumber << " is refused without a word";
            }
        }
    }
}

TEST(Conversion, EveryMarkerOfTheOutputHasAMessageAtItsPlace) {
    constexpr std::string_view lead = "#error_unconvertible (";
    for (const SampleProgram& sample : samplePrograms()) {
        SCOPED_TRACE(sample.name);
        const Conversion conversion = convert(sample);
        for (std::string_view line : splitLines(conversion.output)) {
            line.remove_prefix(std::min(line.find_first_not_of('\t'), line.size()));
            if (!line.starts_with(lead)) {
                continue;
            }
            line.remove_prefix(lead.size());
            // The log names the file by its path from the program's folder.
            const std::string place = std::string(line.substr(0, line.find("): "))) + ": ";
            const std::size_t at = ("\n" + conversion.log).find(place);
            EXPECT_NE(at, std::string::npos) << place;
        }
    }
}

}  // namespace torvel::test
