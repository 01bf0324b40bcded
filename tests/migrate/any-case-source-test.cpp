// Includes whose path exists in one other case only.

#include "src/migrate/any-case-source.h"

#include <gtest/gtest.h>

#include "tests/support/temporary-directory.h"

namespace torvel::migrate::test {

namespace {

/// A folder whose includes are asked for.
struct Folder {
    explicit Folder(const std::vector<std::string>& files) {
        for (const std::string& file : files) {
            torvel::test::writeFile(directory.path() / file, "");
        }
    }
    /// What an include of a file in `from` leads to, relative to the folder.
    std::string lead(std::string_view text, const std::string& from = ".") {
        told.clear();
        const FileSource source =
            anyCaseSource(fileSystemSource(), listings, [this](const OtherCase& otherCase) {
                told += displayPath(otherCase.written, directory.path()) + " ->";
                for (const NativePath& file : otherCase.files) {
                    told += " " + displayPath(file, directory.path());
                }
            });
        const NativePath path = source.includedPath(canonicalPath(directory.path() / from), text);
        const std::string shown = displayPath(source.find(path).path, directory.path());
        return fileKind(path) == FileKind::regular ? shown : shown + " (missing)";
    }

    torvel::test::TemporaryDirectory directory;
    FolderListings listings;
    std::string told;
};

}  // namespace

TEST(AnyCase, ThePathAsItIsWrittenComesFirst) {
    Folder folder({"inc/Tool.pgm", "inc/TOOL.PGM"});
    EXPECT_EQ(folder.lead("inc/Tool.pgm"), "inc/Tool.pgm");
    EXPECT_EQ(folder.told, "");
    EXPECT_EQ(folder.lead("inc\\TOOL.PGM"), "inc/TOOL.PGM");
    EXPECT_EQ(folder.told, "");
}

TEST(AnyCase, OneFileInAnotherCaseIsTakenAndTold) {
    Folder folder({"Inc/tool.pgm", "line/main.pgm"});
    EXPECT_EQ(folder.lead("INC\\TOOL.PGM"), "Inc/tool.pgm");
    EXPECT_EQ(folder.told, "INC/TOOL.PGM -> Inc/tool.pgm");
    EXPECT_EQ(folder.lead("..\\inc/./Tool.pgm", "line"), "Inc/tool.pgm");
    EXPECT_EQ(folder.told, "inc/Tool.pgm -> Inc/tool.pgm");
    const std::string absolute = (folder.directory.path() / "inc/TOOL.pgm").string();
    EXPECT_EQ(folder.lead(absolute), "Inc/tool.pgm");
}

TEST(AnyCase, FoldersInTwoCasesAreBothLookedInto) {
    Folder folder({"inc/a.pgm", "INC/B.PGM"});
    EXPECT_EQ(folder.lead("Inc/b.pgm"), "INC/B.PGM");
    EXPECT_EQ(folder.told, "Inc/b.pgm -> INC/B.PGM");
    // The folder is there as it is written, the file is not.
    EXPECT_EQ(folder.lead("inc/b.pgm"), "INC/B.PGM");
}

TEST(AnyCase, OfSeveralNoneIsTaken) {
    Folder folder({"tool.pgm", "TOOL.pgm"});
    EXPECT_EQ(folder.lead("Tool.pgm"), "Tool.pgm (missing)");
    EXPECT_EQ(folder.told, "Tool.pgm -> TOOL.pgm tool.pgm");
}

TEST(AnyCase, WhatIsNotThereIsNotTold) {
    Folder folder({"a.pgm", "D/x"});
    EXPECT_EQ(folder.lead("b.pgm"), "b.pgm (missing)");
    EXPECT_EQ(folder.lead("no/such/a.pgm"), "no/such/a.pgm (missing)");
    EXPECT_EQ(folder.lead("d"), "d (missing)");  // a folder is no file to take
    EXPECT_EQ(folder.lead("C:\\plant\\a.pgm"), "C:/plant/a.pgm (missing)");
    std::string longPath;
    for (int i = 0; i < 100000; ++i) {
        longPath += "a/../";
    }
    folder.lead(longPath + "A.pgm");
    EXPECT_EQ(folder.told, "");
}

}  // namespace torvel::migrate::test
