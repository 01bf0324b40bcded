// A run that gets too little memory ends in "Out of memory.", whatever the bound: from the least with
// which the process comes to life up to what the run needs. Sanitizers do not live with such bounds, so
// the plain program runs.

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <utility>

#include "tests/limits/conversions.h"
#include "tests/limits/run-program.h"
#include "tests/support/temporary-directory.h"

namespace torvel::test {

namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t kibibyte = 1024;
/// More than any of the programs needs.
constexpr std::uint64_t enough = 65'536 * kibibyte;

/// The least memory, up to a page, with which the process comes as far as to its own messages.
std::uint64_t leastMemory() {
    static const std::uint64_t least = [] {
        std::uint64_t tooLittle = 0;
        std::uint64_t works = enough;
        while (works - tooLittle > 4 * kibibyte) {
            const std::uint64_t middle = (tooLittle + works) / 2;
            const ProgramEnd end = runProgram({.program = TORVEL_PLAIN_PROGRAM, .memory = middle});
            (end.status == 1 ? works : tooLittle) = middle;
        }
        return works;
    }();
    return least;
}

/// Runs main.pgm with more and more memory until it is converted, and checks every run on the way.
void sweep(const std::string& program, const std::string& parameterFile, std::uint64_t step) {
    const TemporaryDirectory directory;
    const fs::path& folder = directory.path();
    ProgramStart start{
        .arguments = {"main.pgm"}, .program = TORVEL_PLAIN_PROGRAM, .directory = folder};
    writeFile(folder / "main.pgm", program);
    if (!parameterFile.empty()) {
        writeFile(folder / "axes.xml", parameterFile);
        start.arguments = {"-p", "axes.xml", "main.pgm"};
    }
    int failures = 0;
    int begun = 0;
    std::optional<ProgramEnd> end;
    for (std::uint64_t memory = leastMemory(); memory < enough; memory += step) {
        SCOPED_TRACE(std::to_string(memory / kibibyte) + " KiB");
        fs::remove(folder / "main.torvel");
        fs::remove(folder / "main.log");
        start.memory = memory;
        end = runProgram(start);
        if (end->status == 0) {
            break;
        }
        ++failures;
        ASSERT_EQ(endOf(*end), "status 1");
        ASSERT_EQ(end->standardError, "Out of memory.\n");
        for (const char* name : {"main.torvel", "main.log"}) {
            if (fs::exists(folder / name)) {
                ++begun;
                ASSERT_EQ(fs::file_size(folder / name), 0U) << name;
            }
        }
    }
    ASSERT_EQ(endOf(*end), "status 0") << end->standardError;
    EXPECT_GT(failures, 5);
    testing::Test::RecordProperty("runs_that_failed", failures);
    testing::Test::RecordProperty("results_begun", begun);
    EXPECT_EQ(readFile(folder / "main.pgm"), program);
    if (!parameterFile.empty()) {
        EXPECT_EQ(readFile(folder / "axes.xml"), parameterFile);
    }

    // What was converted with just enough is what is converted with plenty.
    const std::string output = readFile(folder / "main.torvel");
    const std::string log = readFile(folder / "main.log");
    start.memory = std::nullopt;
    ASSERT_EQ(endOf(runProgram(start)), "status 0");
    EXPECT_EQ(firstDifference(readFile(folder / "main.torvel"), output), "");
    EXPECT_EQ(firstDifference(readFile(folder / "main.log"), log), "");
}

TEST(Memory, TooLittleForLines) {
    sweep(repeated("MOVEINC X 10 5 ; to the gauge\n", 20'000), "", 12 * kibibyte);
}

TEST(Memory, TooLittleForDefines) {
    std::string program = "#define A0 $x + $y\n";
    for (int i = 1; i < 3'000; ++i) {
        const std::string number = std::to_string(i);
        program += "#define A" + number + " A" + std::to_string(i - 1) + "\n#define B" + number +
                   " 5\n$z = A" + number + " * B" + number + '\n';
    }
    sweep(program, "", 12 * kibibyte);
}

TEST(Memory, TooLittleForMessages) {
    sweep(repeated("PROBE X\nHOME Q\n", 5'000), "", 12 * kibibyte);
}

/// Expressions as deep as they may be, when the output has been begun: it is the stack that needs room.
TEST(Memory, TooLittleForTheStack) {
    std::string program = repeated("$a = 1 ; one\n", 5'000);
    for (const auto& [open, close] : {std::pair{"ABS(", ")"}, {"$v[", "]"}, {"$BO[", "]"}}) {
        program += "$y = " + repeated(open, 256) + "$x" + repeated(close, 256) + '\n';
    }
    sweep(program + repeated("$a = 1 ; one\n", 5'000), "", 4 * kibibyte);
}

TEST(Memory, TooLittleForTheParameterFile) {
    std::string axes;
    for (int i = 0; i < 2'000; ++i) {
        axes += "<Axis><P n=\"AxisName\">Q" + std::to_string(i) + "</P></Axis>";
    }
    sweep("HOME Q7\n", "<M><Parameters><Axes>" + axes + "</Axes></Parameters></M>", 8 * kibibyte);
}

}  // namespace

}  // namespace torvel::test
