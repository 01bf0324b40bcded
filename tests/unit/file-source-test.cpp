// A program whose files come from memory: the preprocessor asks its source for everything.

#include "src/base/file-source.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "src/base/parse-exception.h"
#include "src/preprocess/preprocessor.h"

namespace torvel::test {

namespace {

/// Files by canonical path, and what was asked for.
struct MemoryFiles {
    std::map<std::string, std::string> contents;
    std::vector<std::string> lookedFor;
    std::vector<std::string> reads;

    FileSource source() {
        return {
            [](const NativePath& directory, std::string_view text) {
                return (directory / nativePath(text)).lexically_normal();
            },
            [this](const NativePath& path) {
                const NativePath normal = path.lexically_normal();
                lookedFor.push_back(normal.generic_string());
                const bool isThere = contents.contains(lookedFor.back());
                return FoundFile{normal, isThere ? FileKind::regular : FileKind::missing};
            },
            [this](const NativePath& path, const MakeRoom& makeRoom) {
                reads.push_back(path.generic_string());
                const std::string& content = contents.at(path.generic_string());
                std::copy(content.begin(), content.end(), makeRoom(content.size()));
                return FileReading{true, false, content.size(), {1, reads.size()}};
            },
        };
    }
};

/// The texts of a program's lines.
std::vector<std::string> linesOf(MemoryFiles& files, const Limits& limits = {}) {
    Program program;
    preprocessProgram(program, "shelf/main.pgm", AxisNames(), limits, predefinedConstants(),
                      files.source());
    std::vector<std::string> texts;
    for (std::size_t line = 0; line < program.lines.size(); ++line) {
        texts.emplace_back(program.text.view(program.lines[line].text));
    }
    return texts;
}

std::string faultOf(MemoryFiles& files, const Limits& limits = {}) {
    try {
        linesOf(files, limits);
    } catch (const ParseException& error) {
        return error.what();
    }
    return "none";
}

}  // namespace

TEST(FileSource, GivesTheProgramAndItsIncludes) {
    MemoryFiles files;
    files.contents["shelf/main.pgm"] = "HOME X\n#include \"inc/part.pgm\"\nHOME Y";
    files.contents["shelf/inc/part.pgm"] = "\xEF\xBB\xBFHOME Z\x1A";
    EXPECT_EQ(linesOf(files), (std::vector<std::string>{"HOME X", "#include \"inc/part.pgm\"",
                                                        "HOME Z", "", "HOME Y"}));
    EXPECT_EQ(files.reads, (std::vector<std::string>{"shelf/main.pgm", "shelf/inc/part.pgm"}));
}

TEST(FileSource, IsAskedOnceForAFileThatComesAgain) {
    MemoryFiles files;
    files.contents["shelf/main.pgm"] = "#include \"part.pgm\"\n#include \"inc/../part.pgm\"";
    files.contents["shelf/part.pgm"] = "HOME Z";
    linesOf(files);
    EXPECT_EQ(files.reads, (std::vector<std::string>{"shelf/main.pgm", "shelf/part.pgm"}));
}

TEST(FileSource, LearnsWhatWasNotFound) {
    MemoryFiles files;
    files.contents["shelf/main.pgm"] = "HOME X\n#include \"gone.pgm\"";
    EXPECT_EQ(faultOf(files), "main.pgm:2: 'shelf/gone.pgm' does not exist.\n");
    EXPECT_EQ(files.lookedFor.back(), "shelf/gone.pgm");
}

TEST(FileSource, IsHeldToTheLimits) {
    MemoryFiles files;
    files.contents["shelf/main.pgm"] = "HOME X";
    Limits limits;
    limits.programText = 5;
    EXPECT_EQ(faultOf(files, limits), "The program is too large.\n");
    limits.programText = 6;
    EXPECT_EQ(faultOf(files, limits), "none");
}

}  // namespace torvel::test
