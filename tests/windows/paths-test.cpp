// Paths as Windows has them. The program's code page is the system's; these tests hold whatever it is.

#include <gtest/gtest.h>

#include <string>

#include "src/base/file-system.h"

namespace torvel::test {

namespace {

std::string stemOf(std::string_view path) {
    return std::string(fileStem(lastComponent(path)));
}

TEST(Paths, StemIsTheNameWithoutDriveDirectoriesAndExtension) {
    EXPECT_EQ(stemOf(R"(C:\progs\Part1.pgm)"), "Part1");
    EXPECT_EQ(stemOf("C:/progs/a.b.pgm"), "a.b");
    EXPECT_EQ(stemOf(R"(..\progs/Part1.pgm)"), "Part1");
    EXPECT_EQ(stemOf("Part1"), "Part1");
}

TEST(Paths, StemOfADriveRelativePathHasNoDrive) {
    EXPECT_EQ(stemOf("C:Part1.pgm"), "Part1");
    EXPECT_EQ(stemOf("c:.pgm"), ".pgm");
}

TEST(Paths, StemHasNoStreamSuffix) {
    EXPECT_EQ(stemOf("Part1.pgm:data"), "Part1");
    EXPECT_EQ(stemOf(R"(C:\progs\Part1.pgm:data)"), "Part1");
    EXPECT_EQ(stemOf("C:Part1.pgm:data.x:$DATA"), "Part1");
    EXPECT_EQ(stemOf(R"(C:\progs\P:data)"), "P");
}

TEST(Paths, DiagnosticsShowForwardSlashes) {
    EXPECT_EQ(displayPath(LR"(C:\progs\inc\a.pgm)", LR"(C:\progs)"), "inc/a.pgm");
    EXPECT_EQ(displayPath(LR"(C:\lib\a.pgm)", LR"(C:\progs\mill)"), "../../lib/a.pgm");
}

TEST(Paths, FilesOfAnotherDriveAreShownByTheirWholePath) {
    EXPECT_EQ(displayPath(LR"(D:\lib\a.pgm)", LR"(C:\progs)"), "D:/lib/a.pgm");
    EXPECT_EQ(displayPath(LR"(\\server\share\a.pgm)", LR"(C:\progs)"), "//server/share/a.pgm");
}

TEST(Paths, IncludesStartAtTheIncludingFile) {
    const NativePath directory = LR"(C:\progs)";
    EXPECT_EQ(includedPath(directory, R"(inc\a.pgm)").native(), LR"(C:\progs\inc\a.pgm)");
    EXPECT_EQ(includedPath(directory, R"(D:\a.pgm)").native(), LR"(D:\a.pgm)");
    EXPECT_EQ(includedPath(directory, R"(\lib\a.pgm)").native(), LR"(C:\lib\a.pgm)");
    EXPECT_EQ(includedPath(directory, R"(\\server\share\a.pgm)").native(),
              LR"(\\server\share\a.pgm)");
    EXPECT_EQ(includedPath(directory, "//server/share/a.pgm").native(), L"//server/share/a.pgm");
}

TEST(Paths, NarrowAndWideFormsBelongTogether) {
    const std::string text = R"(C:\progs\a b.pgm)";
    EXPECT_EQ(nativePath(text).native(), LR"(C:\progs\a b.pgm)");
    EXPECT_EQ(narrowPath(nativePath(text)), text);
    EXPECT_EQ(narrowPath(nativePath("")), "");
}

TEST(Paths, CanonicalPathsHaveNoSteps) {
    EXPECT_EQ(canonicalPath(LR"(C:\none\.\a\..\b.pgm)").native(), LR"(C:\none\b.pgm)");
    EXPECT_EQ(canonicalPath(LR"(C:\WINDOWS\none.pgm)").native().substr(3, 7), L"windows");
}

TEST(Paths, KindsOfFiles) {
    EXPECT_EQ(fileKind(LR"(C:\)"), FileKind::directory);
    EXPECT_EQ(fileKind(LR"(C:\windows)"), FileKind::directory);
    EXPECT_EQ(fileKind(LR"(C:\windows\system32\kernel32.dll)"), FileKind::regular);
    EXPECT_EQ(fileKind(LR"(C:\none\none)"), FileKind::missing);
    EXPECT_EQ(fileKind(L"NUL"), FileKind::other);
    EXPECT_EQ(fileKind(L""), FileKind::missing);
}

TEST(Paths, WriteThatFailsIsSeen) {
    const NativePath full =
        LR"(Z:\dev\full)";  // there is one where Wine shows the folders of Linux
    OutputFile file;
    if (fileKind(full) != FileKind::other || !file.open(full)) {
        GTEST_SKIP() << "no device that is always full";
    }
    file.write("text");
    EXPECT_FALSE(file.close());
}

}  // namespace

}  // namespace torvel::test
