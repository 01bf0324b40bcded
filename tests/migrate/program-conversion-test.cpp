// One program as torvel-migrate converts it: the texts that BrannicToTorvel64 would write, and what is told of them.

#include "src/migrate/program-conversion.h"

#include <gtest/gtest.h>

#include <fstream>

#include "tests/support/temporary-directory.h"

namespace torvel::migrate::test {

namespace {

/// A project folder with files.
class Folder {
public:
    void write(const std::string& name, std::string_view text) const {
        const NativePath path = directory_.path() / name;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << text;
    }
    ProgramResult convert(const std::string& name) const {
        const NativePath folder = canonicalPath(directory_.path());
        return convertOne(folder / name, {folder, fileSystemSource(), AxisNames(), {}});
    }

private:
    torvel::test::TemporaryDirectory directory_;
};

}  // namespace

TEST(ProgramConversion, TextsLinesAndInputs) {
    const Folder folder;
    folder.write("a/main.pgm", "; head\n#include \"../shared/inc.pgm\"\nG1 X1 ; go\n$a = = $b\n");
    folder.write("shared/inc.pgm", "DVAR $a, $b\n\n");
    const ProgramResult result = folder.convert("a/main.pgm");

    EXPECT_EQ(result.program, "a/main.pgm");
    EXPECT_EQ(result.status, ProgramStatus::converted);
    EXPECT_EQ(result.outputText,
              "// head\n"
              "// #include \"../shared/inc.pgm\" // start\n"
              "var $a\n"
              "var $b\n"
              "\n"
              "\n"
              "// #include \"../shared/inc.pgm\" // end\n"
              "G1 X1 // go\n"
              "#error_unconvertible (main.pgm:4): $a = = $b\n"
              "\n");
    // The #include, the motion and the assignment of the program, and the declaration.
    EXPECT_EQ(result.lines, 4U);
    EXPECT_EQ(result.convertedLines, 3U);
    const std::vector<Input> inputs{
        {"a/main.pgm", hashOf("; head\n#include \"../shared/inc.pgm\"\nG1 X1 ; go\n$a = = $b\n")},
        {"shared/inc.pgm", hashOf("DVAR $a, $b\n\n")}};
    EXPECT_EQ(result.inputs, inputs);
    ASSERT_EQ(result.files.size(), 2U);
    EXPECT_EQ(result.files[1].path, "shared/inc.pgm");
    EXPECT_EQ(result.files[1].text, "DVAR $a, $b\n\n");
}

TEST(ProgramConversion, FindingOfAnIncludedFile) {
    const Folder folder;
    folder.write("main.pgm", "G1 X1\n#include \"inc.pgm\"\n");
    folder.write("inc.pgm", "DVAR $a\r\n\t$a = 1e3\r\n");
    const ProgramResult result = folder.convert("main.pgm");

    ASSERT_EQ(result.findings.size(), 1U);
    const FindingRow& row = result.findings[0];
    EXPECT_EQ(row.file, "inc.pgm");
    EXPECT_EQ(row.line, 2U);
    EXPECT_EQ(row.code, "value-cut");
    EXPECT_EQ(row.severity, Severity::moves);
    EXPECT_EQ(row.todo, FindingTodo::look);
    EXPECT_EQ(row.lineText, "\t$a = 1e3");
    EXPECT_EQ(row.outputLine, 4U);
    EXPECT_EQ(row.outputLineCount, 1U);
    EXPECT_EQ(row.includedFrom, (std::vector<IncludedFrom>{{"main.pgm", 2}}));
    // Two lines of the program, three of the file (the last one empty) with the comment that ends it, one more of
    // the program.
    const std::vector<MappedLine> map{{0, 1, 0, 1, true}, {0, 2, 0, 1, true}, {1, 1, 1, 1, true},
                                      {1, 2, 1, 1, true}, {1, 3, 1, 1, true}, {1, 3, 1, 1, true},
                                      {0, 3, 0, 1, true}};
    EXPECT_EQ(result.lineMap, map);
}

TEST(ProgramConversion, LinesEndInAnyWay) {
    const Folder folder;
    folder.write("main.pgm", "G1 X1\r$a = 1e3\r\n$b = 2e3\n$c = 3e3\r");
    const ProgramResult result = folder.convert("main.pgm");

    ASSERT_EQ(result.findings.size(), 3U);
    EXPECT_EQ(result.findings[0].lineText, "$a = 1e3");
    EXPECT_EQ(result.findings[0].line, 2U);
    EXPECT_EQ(result.findings[1].lineText, "$b = 2e3");
    EXPECT_EQ(result.findings[1].line, 3U);
    EXPECT_EQ(result.findings[2].lineText, "$c = 3e3");
    EXPECT_EQ(result.findings[2].line, 4U);
}

TEST(ProgramConversion, WhatIsNotThere) {
    const Folder folder;
    folder.write("main.pgm", "#include \"missing.pgm\"\n");
    const ProgramResult result = folder.convert("main.pgm");

    EXPECT_EQ(result.status, ProgramStatus::unreadable);
    ASSERT_EQ(result.findings.size(), 1U);
    EXPECT_EQ(result.findings[0].todo, FindingTodo::fixSource);
    EXPECT_EQ(result.findings[0].file, "main.pgm");
    EXPECT_EQ(result.findings[0].line, 1U);
    ASSERT_EQ(result.inputs.size(), 2U);
    EXPECT_EQ(result.inputs[1], (Input{"missing.pgm", std::nullopt}));
    EXPECT_EQ(result.outputText, "");
}

}  // namespace torvel::migrate::test
