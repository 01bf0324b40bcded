// Folders whose links are resolved once: the paths are those that the system gives.

#include "src/base/known-folders.h"

#include <gtest/gtest.h>

#include "tests/support/temporary-directory.h"

namespace torvel::test {

TEST(KnownFolders, PathsAreThoseOfTheSystem) {
    namespace fs = std::filesystem;
    const TemporaryDirectory directory;
    const fs::path& root = directory.path();
    writeFile(root / "real/sub/a.pgm", "");
    writeFile(root / "other/b.pgm", "");
    fs::create_directory_symlink(root / "real", root / "link");
    fs::create_symlink(root / "other/b.pgm", root / "real/sub/b.pgm");
    fs::create_symlink("nowhere", root / "real/sub/lost.pgm");
    FileSource source = fileSystemSource();
    int asked = 0;
    source.find = [&asked](const NativePath& path) {
        ++asked;
        return findFile(path);
    };
    KnownFolders folders;
    const FileSource known = withKnownFolders(source, folders);
    for (int round = 0; round < 2; ++round) {
        for (const char* const name :
             {"real/sub/a.pgm", "link/sub/a.pgm", "link/sub/b.pgm", "link/sub/lost.pgm",
              "link/sub/none.pgm", "none/a.pgm", "link/sub/../sub/a.pgm", "link/sub/..",
              "link/sub/", "link", "."}) {
            const NativePath path = root / name;
            const FoundFile found = known.find(path);
            EXPECT_EQ(found.path.native(), canonicalPath(path).native()) << name;
            EXPECT_EQ(found.kind, fileKind(path)) << name;
        }
    }
    EXPECT_EQ(known.find("a.pgm").path, canonicalPath("a.pgm"));
    // A file of a folder that is known is not gone through again, by whichever way.
    asked = 0;
    EXPECT_EQ(known.find(root / "link/sub/a.pgm").path, root / "real/sub/a.pgm");
    EXPECT_EQ(known.find(root / "real/sub/a.pgm").path, root / "real/sub/a.pgm");
    EXPECT_EQ(asked, 0);
    // What has become a link since then is one.
    fs::remove(root / "real/sub/a.pgm");
    fs::create_symlink(root / "other/b.pgm", root / "real/sub/a.pgm");
    EXPECT_EQ(known.find(root / "link/sub/a.pgm").path, root / "other/b.pgm");
}

}  // namespace torvel::test
