// Patterns of paths: what they match, and that no pattern takes long.

#include "src/migrate/path-pattern.h"

#include <gtest/gtest.h>

#include <chrono>

namespace torvel::migrate::test {

namespace {

struct Row {
    const char* pattern;
    const char* path;
    bool matches;
};

class PathPattern : public testing::TestWithParam<Row> {};

}  // namespace

TEST_P(PathPattern, Matches) {
    const Row& row = GetParam();
    EXPECT_EQ(faultOfPattern(row.pattern), std::nullopt) << row.pattern;
    EXPECT_EQ(matchesPattern(row.pattern, row.path), row.matches)
        << row.pattern << " and " << row.path;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, PathPattern,
    testing::Values(Row{"a.pgm", "a.pgm", true}, Row{"a.pgm", "b/a.pgm", false},
                    Row{"a.pgm", "a.pgm.bak", false}, Row{"*.pgm", "a.pgm", true},
                    Row{"*.pgm", ".pgm", true}, Row{"*.pgm", "b/a.pgm", false},
                    Row{"**/*.pgm", "a.pgm", true}, Row{"**/*.pgm", "c/b/a.pgm", true},
                    Row{"**/*.pgm", "../c/a.pgm", true}, Row{"**/*.pgm", "/srv/a.pgm", true},
                    Row{"**/*.pgm", "a.pgm/b", false}, Row{"**/*.pgm", "MAIN.PGM", true},
                    Row{"**/*.PGM", "main.pgm", true}, Row{"Archive/**", "archive/old/a.pgm", true},
                    Row{"archive/**", "archive", true}, Row{"archive/**", "archives/a.pgm", false},
                    Row{"**/old/**", "a/old/b/c.pgm", true}, Row{"**/old/**", "old", true},
                    Row{"**/old/**", "a/older/c.pgm", false},
                    Row{"a/**/b/**/c", "a/x/b/y/z/c", true}, Row{"a/**/b/**/c", "a/b/c", true},
                    Row{"a/**/b/**/c", "a/x/c", false}, Row{"?.pgm", "a.pgm", true},
                    Row{"?.pgm", ".pgm", false}, Row{"?.pgm", "ab.pgm", false},
                    Row{"a?b", "a/b", false}, Row{"[a-c]?.pgm", "b1.pgm", true},
                    Row{"[a-c]1", "B1", true}, Row{"[A-C]1", "b1", true},
                    Row{"[a-c]1", "d1", false}, Row{"[!a-c]1", "d1", true},
                    Row{"[^a-c]1", "a1", false}, Row{"[]x]", "]", true}, Row{"[a-]", "-", true},
                    Row{"[[]", "[", true}, Row{"*a*b", "xaxxb", true}, Row{"*a*b", "xbxxa", false},
                    Row{"a*", "a", true}, Row{"**", "a/b/c", true},
                    Row{"\xB0*",
                        "\xB0"
                        "1",
                        true},
                    Row{"\xE4", "\xC4", false}));

TEST(PathPatterns, AsTheyAreWritten) {
    EXPECT_EQ(tidyPattern("./a\\*.pgm"), "a/*.pgm");
    EXPECT_EQ(tidyPattern("archive/"), "archive");
    EXPECT_EQ(tidyPattern("/"), "/");
    EXPECT_EQ(tidyPattern(""), "");
}

TEST(PathPatterns, Faults) {
    EXPECT_EQ(faultOfPattern(""), "is empty");
    EXPECT_EQ(faultOfPattern("a/[b"), "has a '[' that no ']' closes");
    EXPECT_EQ(faultOfPattern("[]"), "has a '[' that no ']' closes");
    EXPECT_EQ(faultOfPattern("[a/b]"), "has a '[' that no ']' closes");
    EXPECT_EQ(faultOfPattern("**.pgm"),
              "has '**' beside other characters: it stands for whole names, as in '**/*.pgm'");
}

/// Tries of one "*" or "**" inside another would multiply.
TEST(PathPatterns, NoPatternTakesLong) {
    std::string names;
    std::string folders;
    std::string namePattern;
    std::string folderPattern;
    for (int i = 0; i < 50; ++i) {
        namePattern += "*a";
        folderPattern += "**/a/";
    }
    for (int i = 0; i < 2000; ++i) {
        names += 'a';
        folders += "a/";
    }
    const auto began = std::chrono::steady_clock::now();
    EXPECT_FALSE(matchesPattern(namePattern + "b", names));
    EXPECT_FALSE(matchesPattern(folderPattern + "b", folders + "c"));
    EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::seconds(2));
}

}  // namespace torvel::migrate::test
