// Files that cannot be used as they should, and runs that end with them: each in a message, no source
// changed, and no half of a result left.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <string>
#include <thread>

#include "src/app/command.h"
#include "src/base/file-system.h"
#include "tests/limits/conversions.h"
#include "tests/limits/run-program.h"
#include "tests/support/escapes.h"
#include "tests/support/temporary-directory.h"
#include "tests/support/text-difference.h"

namespace torvel::test {

namespace {

namespace fs = std::filesystem;

/// A folder with a program main.pgm, and what runs there.
class Files : public testing::Test {
protected:
    void SetUp() override { writeFile(folder() / "main.pgm", program); }

    const fs::path& folder() const { return directory_.path(); }
    std::string pathOfFolder() const { return folder().string(); }

    ProgramEnd run(ProgramStart start = {.arguments = {"main.pgm"}}) const {
        start.directory = folder();
        return runProgram(start);
    }

    /// The run has failed with that message on standard error, and the program is as it was.
    void expectFailure(const ProgramEnd& end, const std::string& message) const {
        EXPECT_EQ(endOf(end), "status 1");
        EXPECT_EQ(end.standardError, message);
        EXPECT_EQ(readFile(folder() / "main.pgm"), program);
    }
    void expectNoResults() const {
        EXPECT_FALSE(fs::exists(folder() / "main.torvel"));
        EXPECT_FALSE(fs::exists(folder() / "main.log"));
    }
    void makePipe(const char* name) const { ASSERT_EQ(mkfifo((folder() / name).c_str(), 0666), 0); }

    static constexpr const char* program = "$a = 1\n";

private:
    TemporaryDirectory directory_;
};

// A pipe that nobody writes to, or reads, must not be waited for.

TEST_F(Files, PipeAsProgram) {
    makePipe("pipe.pgm");
    expectFailure(run({.arguments = {"pipe.pgm"}}),
                  "'" + pathOfFolder() + "/pipe.pgm' is not a regular file.\n\n");
}

TEST_F(Files, PipeAsInclude) {
    makePipe("pipe.pgm");
    writeFile(folder() / "including.pgm", "#include \"pipe.pgm\"\n");
    expectFailure(run({.arguments = {"including.pgm"}}),
                  "including.pgm:1: '" + pathOfFolder() + "/pipe.pgm' is not a regular file.\n\n");
}

TEST_F(Files, PipeAsParameterFile) {
    makePipe("axes.xml");
    expectFailure(run({.arguments = {"-p", "axes.xml", "main.pgm"}}),
                  "Failed to load or parse the parameter file.\n");
    expectNoResults();
}

TEST_F(Files, PipeThatTakesThePlaceOfAFile) {
    makePipe("pipe.pgm");
    InputFile file;
    EXPECT_FALSE(file.open(folder() / "pipe.pgm"));
}

TEST_F(Files, PipeAsOutputWithoutReader) {
    makePipe("main.torvel");
    expectFailure(run(), "Could not open './main.torvel' for writing.\n");
}

TEST_F(Files, PipeAsLogWithoutReader) {
    makePipe("main.log");
    expectFailure(run(), "Could not open './main.log' for writing.\n");
    EXPECT_EQ(readFile(folder() / "main.torvel"), "");
}

TEST_F(Files, PipeAsOutputWithReader) {
    makePipe("main.torvel");
    // More than a pipe holds.
    writeFile(folder() / "main.pgm", repeated("$a = 1\n", 50'000));
    std::string received;
    std::thread reader([&] { received = readFile(folder() / "main.torvel"); });
    const ProgramEnd end = run();
    reader.join();
    EXPECT_EQ(endOf(end), "status 0") << end.standardError;
    EXPECT_EQ(firstDifference(repeated("$a = 1\n", 50'000) + '\n', received), "");
}

TEST_F(Files, PipeAsOutputWhoseReaderGoes) {
    makePipe("main.torvel");
    const std::string many = repeated("$a = 1\n", 50'000);
    writeFile(folder() / "main.pgm", many);
    std::thread reader([&] {
        char first = 0;
        const int pipe = open((folder() / "main.torvel").c_str(), O_RDONLY);
        EXPECT_EQ(read(pipe, &first, 1), 1);
        close(pipe);
    });
    const ProgramEnd end = run();
    reader.join();
    EXPECT_EQ(endOf(end), "status 1");
    EXPECT_EQ(end.standardError, "Could not write './main.torvel'.\n");
    EXPECT_EQ(readFile(folder() / "main.pgm"), many);
}

// Permissions; whoever runs the tests as root becomes somebody else for them.

class Permissions : public Files {
protected:
    void SetUp() override {
        Files::SetUp();
        fs::permissions(folder(), fs::perms(0777));
        // Where the one who is nobody gets at it.
        fs::copy_file(TORVEL_PROGRAM, folder() / "converter");
        fs::permissions(folder() / "converter", fs::perms(0755));
    }

    ProgramEnd runRestricted(const std::vector<std::string>& arguments) const {
        return run({.arguments = arguments,
                    .program = (folder() / "converter").string(),
                    .asNobody = canBecomeNobody()});
    }
};

TEST_F(Permissions, ProgramUnreadable) {
    fs::permissions(folder() / "main.pgm", fs::perms(0200));
    const ProgramEnd end = runRestricted({"main.pgm"});
    fs::permissions(folder() / "main.pgm", fs::perms(0600));
    expectFailure(end, "'" + pathOfFolder() + "/main.pgm' could not be opened.\n\n");
    expectNoResults();
}

TEST_F(Permissions, IncludeUnreadable) {
    writeFile(folder() / "part.pgm", "$b = 1\n");
    fs::permissions(folder() / "part.pgm", fs::perms(0));
    writeFile(folder() / "including.pgm", "$a = 1\n#include \"part.pgm\"\n");
    expectFailure(runRestricted({"including.pgm"}),
                  "including.pgm:2: '" + pathOfFolder() + "/part.pgm' could not be opened.\n\n");
}

TEST_F(Permissions, ParameterFileUnreadable) {
    writeFile(folder() / "axes.xml", "<M/>");
    fs::permissions(folder() / "axes.xml", fs::perms(0));
    expectFailure(runRestricted({"-p", "axes.xml", "main.pgm"}),
                  "Failed to load or parse the parameter file.\n");
}

TEST_F(Permissions, FolderUnreadable) {
    writeFile(folder() / "hidden/part.pgm", "$b = 1\n");
    fs::permissions(folder() / "hidden", fs::perms(0));
    const ProgramEnd end = runRestricted({"hidden/part.pgm"});
    fs::permissions(folder() / "hidden", fs::perms(0700));
    expectFailure(end, "'" + pathOfFolder() + "/hidden/part.pgm' does not exist.\n\n");
}

TEST_F(Permissions, OutputFolderReadOnly) {
    fs::create_directory(folder() / "out");
    fs::permissions(folder() / "out", fs::perms(0555));
    expectFailure(runRestricted({"-o", "out", "main.pgm"}),
                  "Could not open 'out/main.torvel' for writing.\n");
    EXPECT_TRUE(fs::is_empty(folder() / "out"));
}

TEST_F(Permissions, OutputReadOnly) {
    writeFile(folder() / "main.torvel", "old text");
    fs::permissions(folder() / "main.torvel", fs::perms(0444));
    expectFailure(runRestricted({"main.pgm"}), "Could not open './main.torvel' for writing.\n");
    EXPECT_EQ(readFile(folder() / "main.torvel"), "old text");
}

TEST_F(Permissions, LogReadOnly) {
    writeFile(folder() / "main.log", "old text");
    fs::permissions(folder() / "main.log", fs::perms(0444));
    expectFailure(runRestricted({"main.pgm"}), "Could not open './main.log' for writing.\n");
    EXPECT_EQ(readFile(folder() / "main.torvel"), "");
    EXPECT_EQ(readFile(folder() / "main.log"), "old text");
}

/// A system that gives no threads: the run does without them.
TEST_F(Permissions, NoThreads) {
    // More lines than one thread converts in one go.
    const std::string many = repeated("$a = 1\n", 30'000);
    writeFile(folder() / "main.pgm", many);
    const ProgramEnd end = run({.arguments = {"main.pgm"},
                                .program = (folder() / "converter").string(),
                                // Looking for lost memory takes a thread.
                                .environment = {{"ASAN_OPTIONS", "detect_leaks=0"}},
                                .withoutThreads = true,
                                .asNobody = canBecomeNobody()});
    EXPECT_EQ(endOf(end), "status 0") << end.standardError;
    EXPECT_EQ(end.standardError, "");
    EXPECT_EQ(firstDifference(many + '\n', readFile(folder() / "main.torvel")), "");
}

/// Less stack than the deepest expression takes, and no right to more.
TEST_F(Files, TooLittleStack) {
    expectFailure(run({.arguments = {"main.pgm"}, .stack = std::uint64_t{1} << 20U}),
                  "Out of memory.\n");
    expectNoResults();
    const ProgramEnd end = run({.arguments = {"main.pgm"}, .stack = std::uint64_t{2} << 20U});
    EXPECT_EQ(endOf(end), "status 0") << end.standardError;
}

// Names without end.

TEST_F(Files, NamesTooLong) {
    const std::string name(300, 'n');
    const std::string path = repeated("d/", 3000) + "x.pgm";
    for (const std::string& each : {name, path}) {
        expectFailure(run({.arguments = {each}}),
                      "'" + pathOfFolder() + '/' + each + "' does not exist.\n\n");
        expectFailure(run({.arguments = {"-o", each, "main.pgm"}}),
                      "The output path '" + each + "' does not exist.\n");
        expectFailure(run({.arguments = {"-p", each, "main.pgm"}}),
                      "Failed to load or parse the parameter file.\n");
        writeFile(folder() / "including.pgm", "#include \"" + each + "\"\n");
        expectFailure(run({.arguments = {"including.pgm"}}),
                      "including.pgm:1: '" + pathOfFolder() + '/' + each + "' does not exist.\n\n");
    }
    expectNoResults();
}

TEST_F(Files, NameOfOutputTooLong) {
    // The longest name that a file may have; ".torvel" is longer than ".pgm".
    const std::string stem(251, 'n');
    writeFile(folder() / (stem + ".pgm"), program);
    expectFailure(run({.arguments = {stem + ".pgm"}}),
                  "Could not open './" + stem + ".torvel' for writing.\n");
}

TEST_F(Files, PathsOfAMillionSteps) {
    struct Steps {
        std::string_view step;
        const char* folder;
    };
    for (const auto& [step, expected] :
         {Steps{"../", ""}, {"./", "{dir}"}, {"x/../", "{dir}"}, {"//", ""}}) {
        SCOPED_TRACE(step);
        const std::string path = repeated(step, 1'000'000) + "missing.pgm";
        const Outcome outcome = convertText("#include \"" + path + "\"\n");
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.standardError,
                  std::string("main.pgm:1: '") + expected + "/missing.pgm' does not exist.\n\n");
    }
}

// A disk without room, shown by a bound on the size of files.

TEST_F(Files, DiskFullWhileWritingOutput) {
    const std::string many = repeated("$a = 1\n", 100'000);
    writeFile(folder() / "main.pgm", many);
    for (const std::uint64_t room : {0U, 1U, 65'536U, 699'999U, 700'000U}) {
        const ProgramEnd end = run({.arguments = {"main.pgm"}, .fileSize = room});
        EXPECT_EQ(endOf(end), "status 1") << room;
        EXPECT_EQ(
            end.standardError,
            room == 0 ? "" : std::string("Could not write './main.torvel'.\n").substr(0, room));
        EXPECT_EQ(readFile(folder() / "main.torvel"), "");
        EXPECT_EQ(readFile(folder() / "main.log"), "");
        EXPECT_EQ(readFile(folder() / "main.pgm"), many);
    }
    const ProgramEnd end = run({.arguments = {"main.pgm"}, .fileSize = 700'001});
    EXPECT_EQ(endOf(end), "status 0") << end.standardError;
    EXPECT_EQ(firstDifference(many + '\n', readFile(folder() / "main.torvel")), "");
}

TEST_F(Files, DiskFullWhileWritingLog) {
    // A line whose message is longer than what stands in the output.
    const std::string many = repeated("DATAACQ X INPUT 1\n", 10'000);
    writeFile(folder() / "main.pgm", many);
    const ProgramEnd whole = run();
    ASSERT_EQ(endOf(whole), "status 0") << whole.standardError;
    const std::string output = readFile(folder() / "main.torvel");
    const std::uint64_t logSize = fs::file_size(folder() / "main.log");
    ASSERT_GT(logSize, output.size());
    const ProgramEnd end = run({.arguments = {"main.pgm"}, .fileSize = logSize - 1});
    EXPECT_EQ(endOf(end), "status 1");
    EXPECT_EQ(end.standardError, "Could not write './main.log'.\n");
    EXPECT_EQ(firstDifference(output, readFile(folder() / "main.torvel")), "");
    EXPECT_EQ(readFile(folder() / "main.log"), "");
    EXPECT_EQ(readFile(folder() / "main.pgm"), many);
}

// Streams and folders that the run was not given.

TEST_F(Files, StandardStreamsClosed) {
    for (const std::vector<int>& closed : {std::vector<int>{1}, {2}, {1, 2}, {0, 1, 2}, {0}}) {
        const ProgramEnd good = run({.arguments = {"main.pgm"}, .closed = closed});
        EXPECT_EQ(endOf(good), "status 0");
        EXPECT_EQ(readFile(folder() / "main.torvel"), "$a = 1\n\n");
        EXPECT_EQ(readFile(folder() / "main.log"), "");
        const ProgramEnd bad = run({.arguments = {"missing.pgm"}, .closed = closed});
        EXPECT_EQ(endOf(bad), "status 1");
        const ProgramEnd none = run({.arguments = {}, .closed = closed});
        EXPECT_EQ(endOf(none), "status 1");
        EXPECT_EQ(readFile(folder() / "main.torvel"), "$a = 1\n\n");
        EXPECT_EQ(readFile(folder() / "main.pgm"), program);
    }
}

TEST_F(Files, StandardStreamsFull) {
    const ProgramEnd end =
        run({.arguments = {}, .standardOutput = "/dev/full", .standardError = "/dev/full"});
    EXPECT_EQ(endOf(end), "status 1");
}

TEST_F(Files, WorkingDirectoryRemoved) {
    const std::string path = pathOfFolder() + "/main.pgm";
    const ProgramEnd relative = run({.arguments = {"main.pgm"}, .inRemovedDirectory = true});
    expectFailure(relative, "'main.pgm' does not exist.\n\n");
    expectFailure(run({.arguments = {path}, .inRemovedDirectory = true}),
                  "Could not open './main.torvel' for writing.\n");
    const ProgramEnd absolute =
        run({.arguments = {"-o", pathOfFolder(), path}, .inRemovedDirectory = true});
    EXPECT_EQ(endOf(absolute), "status 0") << absolute.standardError;
    EXPECT_EQ(readFile(folder() / "main.torvel"), "$a = 1\n\n");
}

/// A program that others write while it is read: what is read is converted, whatever it is.
TEST_F(Files, ProgramThatShrinksWhileItIsRead) {
    const fs::path path = folder() / "changing.pgm";
    const std::string line = "$a = 1\n";
    const std::string whole = repeated(line, 20'000);
    std::atomic<bool> isOver = false;
    writeFile(path, whole);
    std::thread writer([&] {
        const int file = open(path.c_str(), O_WRONLY);
        for (std::size_t i = 0; !isOver; ++i) {
            EXPECT_EQ(ftruncate(file, static_cast<off_t>(i * 997 % whole.size())), 0);
            EXPECT_EQ(pwrite(file, whole.data(), whole.size(), 0),
                      static_cast<ssize_t>(whole.size()));
        }
        close(file);
    });
    for (int i = 0; i < 20; ++i) {
        const CommandResult result = runCommand({"-o", pathOfFolder(), path.string()});
        EXPECT_EQ(result.status, 0) << result.standardError;
        // What cannot be told: where it was cut. Every line is the program's, but the last one.
        const std::string output = readFile(folder() / "changing.torvel");
        const std::vector<std::string_view> lines = splitLines(output);
        for (std::size_t number = 0; number + 1 < lines.size(); ++number) {
            ASSERT_EQ(lines[number], "$a = 1") << number;
        }
    }
    isOver = true;
    writer.join();
}

// Bytes.

std::string encoded(char c) {
    return std::string(1, c);
}

/// Bytes that begin nothing in Brannic: the rest is letters, digits, blanks, line ends and signs.
bool beginsNothing(unsigned char c) {
    constexpr std::string_view meaningful = " \t\r\n_#\"$()[],.:@^~!%/=*+-|&<>;'";
    const bool isWord = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    return c != 0 && !isWord && meaningful.find(static_cast<char>(c)) == std::string_view::npos;
}

TEST(Bytes, EveryByteAtTheBeginningOfALine) {
    int unknown = 0;
    for (int value = 0; value < 256; ++value) {
        SCOPED_TRACE(value);
        const auto byte = static_cast<unsigned char>(value);
        const Outcome outcome = convertText("$a = 1\n" + encoded(static_cast<char>(byte)) + '\n');
        if (beginsNothing(byte)) {
            ++unknown;
            EXPECT_EQ(outcome.status, 1);
            EXPECT_EQ(outcome.standardError,
                      "main.pgm:2: Unknown token seen: '" + encoded(static_cast<char>(byte)) +
                          "' (" + std::to_string(value < 128 ? value : value - 256) + ")\n\n");
        } else if (byte == '"') {
            EXPECT_EQ(outcome.status, 1);
            EXPECT_EQ(outcome.standardError, "main.pgm:2: Unterminated string literal.\n\n");
        } else {
            EXPECT_EQ(outcome.status, 0) << outcome.standardError;
            EXPECT_TRUE(outcome.output.value_or("").starts_with("$a = 1\n"));
        }
    }
    // Above ASCII 128; 28 of its control characters; \ ? ` { } and the last one.
    EXPECT_EQ(unknown, 128 + 28 + 6);
}

/// Bytes that end a line or a file, or stand at the end of a comment to be trimmed.
bool endsLine(unsigned char c) {
    return c == 0 || c == '\n' || c == '\r';
}

TEST(Bytes, EveryByteInCommentsAndStrings) {
    for (int value = 0; value < 256; ++value) {
        SCOPED_TRACE(value);
        const auto byte = static_cast<unsigned char>(value);
        const std::string text = "x" + encoded(static_cast<char>(byte)) + "x";
        const Outcome comment = convertText("$a = 1 ; " + text);
        const Outcome string = convertText("$STRGLOB[0] = \"" + text + "\"");
        EXPECT_EQ(comment.status, 0);
        if (endsLine(byte)) {
            EXPECT_TRUE(comment.output.value_or("").starts_with("$a = 1 // x\n"));
        } else {
            EXPECT_EQ(comment.output, "$a = 1 // " + text + '\n');
        }
        if (endsLine(byte) || byte == '"') {
            EXPECT_EQ(string.status, 1);
            EXPECT_EQ(string.standardError, "main.pgm:1: Unterminated string literal.\n\n");
        } else {
            EXPECT_EQ(string.status, 0) << string.standardError;
            EXPECT_EQ(string.output, "$sglobal[0] = \"" + text + "\"\n");
        }
    }
}

TEST(Bytes, EveryByteInDirectivesAndPaths) {
    for (const std::string lead : {"#", "#define ", "#define A", "#macro M(", "#include \""}) {
        for (int value = 0; value < 256; ++value) {
            const std::string line = lead + encoded(static_cast<char>(value)) + "1";
            SCOPED_TRACE(encodeEscapes(line));
            const Outcome outcome = convertText(line);
            EXPECT_TRUE(outcome.status == 0 || outcome.status == 1);
            EXPECT_EQ(outcome.status == 1, !outcome.standardError.empty());
            EXPECT_EQ(outcome.status == 0, outcome.output.has_value());
        }
    }
}

}  // namespace

}  // namespace torvel::test
