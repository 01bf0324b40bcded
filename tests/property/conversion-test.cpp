// What holds for every program that converts.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <thread>

#include "src/app/command.h"
#include "src/preprocess/preprocessor.h"
#include "tests/property/programs.h"
#include "tests/support/line-by-line.h"
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

/// A sample that was preprocessed, to be converted line by line.
class PreparedSample {
public:
    explicit PreparedSample(const SampleProgram& sample) {
        layOut(sample, directory_.path());
        preprocessProgram(program_, (directory_.path() / sample.program).string(), axes_, limits_);
    }

    Program& program() { return program_; }
    LineByLine conversion() const { return LineByLine(program_, axes_, limits_); }

private:
    TemporaryDirectory directory_;
    AxisNames axes_;
    Limits limits_;
    Program program_;
};

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
    const PreparedSample first(samplePrograms()[0]);
    const PreparedSample second(samplePrograms()[1]);
    LineByLine one = first.conversion();
    LineByLine two = second.conversion();
    bool goesOn = true;
    while (goesOn) {
        goesOn = one.step();
        goesOn = two.step() || goesOn;
    }
    EXPECT_EQ(conversionDifference(one, first.conversion().finish()), "");
    EXPECT_EQ(conversionDifference(two, second.conversion().finish()), "");
}

TEST(Conversion, EveryLineOfSourceGivesOneStatement) {
    for (const SampleProgram& sample : samplePrograms()) {
        SCOPED_TRACE(sample.name);
        PreparedSample prepared(sample);
        EXPECT_EQ(sourceLineFault(prepared.program()), "");
        LineByLine program = prepared.conversion();
        EXPECT_EQ(outputFault(program.finish()), "");
        const Conversion conversion = convert(sample);
        EXPECT_EQ(textDifference(program.output(), conversion.output), "");
        EXPECT_EQ(textDifference(program.logText(), conversion.log), "");
    }
}

TEST(Conversion, EveryMarkerHasItsMessage) {
    for (const SampleProgram& sample : samplePrograms()) {
        SCOPED_TRACE(sample.name);
        const PreparedSample prepared(sample);
        LineByLine program = prepared.conversion();
        EXPECT_EQ(messageFault(program.finish()), "");
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
