// The limits of src/limits.h as the program has them: at the bound a program passes, behind it the run
// ends in the message. Cases of tests/golden/limits show the same with lower limits.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/limits/conversions.h"
#include "tests/limits/run-program.h"
#include "tests/support/temporary-directory.h"

namespace torvel::test {

namespace {

constexpr std::size_t mebibyte = std::size_t{1} << 20U;

/// A program and `depth - 1` files that include each other.
Outcome convertIncludes(std::size_t depth) {
    std::vector<CaseEntry> files;
    for (std::size_t i = 1; i < depth; ++i) {
        const bool isLast = i + 1 == depth;
        files.push_back({"f" + std::to_string(i) + ".pgm",
                         isLast ? "$a = 1" : "#include \"f" + std::to_string(i + 1) + ".pgm\""});
    }
    return convertText("#include \"f1.pgm\"", files);
}

std::string lines(std::size_t from, std::size_t to, const char* end) {
    std::string text;
    for (std::size_t i = from; i != to; from < to ? ++i : --i) {
        text +=
            "// #include \"f" + std::to_string(from < to ? i : i - 1) + ".pgm\" // " + end + '\n';
    }
    return text;
}

TEST(Bounds, IncludesUpToTheDepth) {
    for (const std::size_t depth : {30U, 31U}) {
        const Outcome outcome = convertIncludes(depth);
        EXPECT_EQ(outcome.status, 0) << outcome.standardError;
        EXPECT_EQ(outcome.output, lines(1, depth, "start") + "$a = 1\n" + lines(depth, 1, "end"));
    }
}

TEST(Bounds, IncludesBehindTheDepth) {
    for (const std::size_t depth : {32U, 33U}) {
        const Outcome outcome = convertIncludes(depth);
        EXPECT_EQ(outcome.status, 1);
        std::string expected = "f30.pgm:1: Too many nested #includes seen.\nIn file included ";
        for (int i = 29; i > 0; --i) {
            expected += "from f" + std::to_string(i) + ".pgm:1,\n                 ";
        }
        EXPECT_EQ(outcome.standardError, expected + "from main.pgm:1\n\n");
        EXPECT_FALSE(outcome.output);
        EXPECT_FALSE(outcome.log);
    }
}

TEST(Bounds, IncludedFiles) {
    constexpr std::size_t most = 100'000;
    const std::vector<CaseEntry> file = {{"a.pgm", ""}};
    const std::string include = "#include \"a.pgm\"\n";
    const std::string written = "// #include \"a.pgm\" // start\n\n// #include \"a.pgm\" // end\n";
    for (const std::size_t count : {most - 1, most}) {
        const Outcome outcome = convertText(repeated(include, count), file);
        EXPECT_EQ(outcome.status, 0) << outcome.standardError;
        EXPECT_EQ(firstDifference(repeated(written, count) + '\n', outcome.output.value_or("")),
                  "");
    }
    const Outcome outcome = convertText(repeated(include, most + 1), file);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.standardError, "main.pgm:100001: The program includes too many files.\n\n");
    EXPECT_FALSE(outcome.output);
}

/// Every file includes the next one twice.
TEST(Bounds, IncludesThatDouble) {
    std::vector<CaseEntry> files;
    for (int i = 1; i <= 30; ++i) {
        const std::string next = "#include \"f" + std::to_string(i + 1) + ".pgm\"\n";
        files.push_back({"f" + std::to_string(i) + ".pgm", i < 30 ? next + next : "$a = 1\n"});
    }
    const Outcome outcome = convertText("#include \"f1.pgm\"\n", files);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.standardError.find(": The program includes too many files.\n"),
              std::string::npos)
        << outcome.standardError;
    EXPECT_FALSE(outcome.output);
}

TEST(Bounds, ExpansionOfADefine) {
    for (const std::size_t bytes : {mebibyte - 1, mebibyte}) {
        const std::string define = "#define A ! " + std::string(bytes - 2, 'x');
        const Outcome outcome = convertText(define);
        EXPECT_EQ(outcome.status, 0) << outcome.standardError;
        EXPECT_EQ(
            firstDifference("#error_unconvertible " + define + '\n', outcome.output.value_or("")),
            "");
    }
    const Outcome outcome = convertText("#define A ! " + std::string(mebibyte - 1, 'x'));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.standardError, "main.pgm:1: The expansion of a define is too large.\n\n");
    EXPECT_FALSE(outcome.output);
}

TEST(Bounds, ExpansionOfALine) {
    // 1 KiB, of the kind that Torvel does not keep.
    const std::string define = "#define A " + repeated("+ $x", 256) + '\n';
    for (const std::size_t uses : {1023U, 1024U}) {
        const Outcome outcome = convertText(define + "$y = $x" + repeated(" A", uses));
        EXPECT_EQ(outcome.status, 0) << outcome.standardError;
        EXPECT_EQ(firstDifference("#error_unconvertible " + define + "$y = $x" +
                                      repeated(" + $x", 256 * uses) + '\n',
                                  outcome.output.value_or("")),
                  "");
    }
    const Outcome outcome =
        convertText(define + "#define ONE 1\n$y = $x" + repeated(" A", 1024) + " + ONE");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.standardError, "main.pgm:3: The expansion of a define is too large.\n\n");
    EXPECT_FALSE(outcome.output);
}

TEST(Bounds, NestingThroughDefines) {
    for (const std::size_t depth : {255U, 256U, 257U}) {
        std::string program = "#define A0 ! $x\n";
        for (std::size_t i = 1; i < depth; ++i) {
            program += "#define A" + std::to_string(i) + " ! A" + std::to_string(i - 1) + '\n';
        }
        const std::string line = "$y = A" + std::to_string(depth - 1);
        const Outcome outcome = convertText(program + line);
        ASSERT_EQ(outcome.status, 0) << outcome.standardError;
        const std::string place = "main.pgm:" + std::to_string(depth + 1);
        const std::string last = depth <= 256
                                     ? "\n$y = " + std::string(depth, '!') + "$x\n"
                                     : "\n#error_unconvertible (" + place + "): " + line + '\n';
        EXPECT_TRUE(outcome.output->ends_with(last))
            << outcome.output->substr(outcome.output->size() - last.size());
        EXPECT_EQ(outcome.log,
                  depth <= 256 ? "" : place + ": The expression is nested too deeply.\n\n");
    }
}

/// A file without content takes no room on the disk, whatever its size.
ProgramEnd runOnHollowFile(const std::string& name, std::uint64_t bytes,
                           const std::vector<std::string>& arguments) {
    const TemporaryDirectory directory;
    writeFile(directory.path() / "main.pgm", "$a = 1\n");
    writeFile(directory.path() / name, "");
    std::filesystem::resize_file(directory.path() / name, bytes);
    const ProgramEnd end = runProgram({.arguments = arguments, .directory = directory.path()});
    EXPECT_EQ(std::filesystem::file_size(directory.path() / name), bytes);
    EXPECT_FALSE(std::filesystem::exists(directory.path() / "main.torvel"));
    return end;
}

TEST(Bounds, ProgramText) {
    constexpr std::uint64_t most = std::uint64_t{1} << 32U;
    for (const std::uint64_t bytes : {most, most + 1, most * 1000}) {
        const ProgramEnd end = runOnHollowFile("large.pgm", bytes, {"large.pgm"});
        EXPECT_EQ(endOf(end), "status 1");
        EXPECT_EQ(end.standardError, "The program is too large.\n\n");
    }
}

TEST(Bounds, ParameterFile) {
    constexpr std::uint64_t most = std::uint64_t{64} << 20U;
    const ProgramEnd within = runOnHollowFile("axes.xml", most, {"-p", "axes.xml", "main.pgm"});
    EXPECT_EQ(endOf(within), "status 1");
    EXPECT_EQ(within.standardError, "Failed to load or parse the parameter file.\n");
    for (const std::uint64_t bytes : {most + 1, most * 1000}) {
        const ProgramEnd end = runOnHollowFile("axes.xml", bytes, {"-p", "axes.xml", "main.pgm"});
        EXPECT_EQ(endOf(end), "status 1");
        EXPECT_EQ(end.standardError, "The parameter file is too large.\n");
    }
}

}  // namespace

}  // namespace torvel::test
