// What a program's bytes say of other files.

#include "src/migrate/include-scan.h"

#include <gtest/gtest.h>

#include <random>

namespace torvel::migrate::test {

namespace {

/// "path:line" of each include.
std::vector<std::string> includes(std::string_view bytes) {
    std::vector<std::string> found;
    for (const WrittenInclude& include : includesOf(bytes)) {
        found.push_back(include.path + ":" + std::to_string(include.line));
    }
    return found;
}

using List = std::vector<std::string>;

}  // namespace

TEST(IncludeScan, DirectivesWithPaths) {
    EXPECT_EQ(includes("#include \"a.pgm\"\n  #INCLUDE\t\"b\\c.pgm\" ; said\n#Include \"d e.pgm\"\r"
                       "#include \"f.pgm\""),
              (List{"a.pgm:1", "b\\c.pgm:2", "d e.pgm:3", "f.pgm:4"}));
}

TEST(IncludeScan, CommentsAndStringsHideThem) {
    EXPECT_EQ(includes("; #include \"a\"\n' #include \"b\"\n// #include \"c\"\n"
                       "/* \n#include \"d\"\n*/ #include \"e\"\nMSGBOX 1 \"#include \"\n"
                       "$a = 1 #include \"f\"\n#includes \"g\"\n#include\"h\"\n#/**/include \"i\""),
              (List{"e:6", "i:11"}));
}

TEST(IncludeScan, ConditionalsHideNothing) {
    EXPECT_EQ(includes("#ifdef A\n#include \"a\"\n#else\n#include \"b\"\n#endif\n"),
              (List{"a:2", "b:4"}));
}

TEST(IncludeScan, BodiesOfDefinesHideThem) {
    EXPECT_EQ(includes("#define A 1 \\\n#include \"a\"\n#macro B() X \\\n#include \"b\" \\\n"
                       "#include \"c\"\n#include \"d\"\n#define C \"\\\"\n#include \"e\"\n"),
              (List{"d:6", "e:8"}));
}

TEST(IncludeScan, FaultsEndNothing) {
    EXPECT_EQ(includes("$a = \"open\n#include \"a\"\n\n$b = \"open\r\n#include \"b\" \"\n"
                       "#include \"c\" rest\n#include d\n#include \"e\"\n/* #include \"f\"\n"),
              (List{"a:2", "c:6", "e:8"}));
}

/// A block comment at the end makes every file one that takes the closer look: includes are the same.
TEST(IncludeScan, TheQuickLookSeesTheSame) {
    const List pieces{"#include \"a\"",
                      "  #include \"b c\" ; x",
                      "#INCLUDE\t\"d\"",
                      "G1 X1",
                      "\n",
                      "\r\n",
                      "\r",
                      "\n",
                      "#include e",
                      "#include \"f\" \"",
                      "$a = 5 # 3",
                      "; #include \"g\"",
                      " ",
                      "\t",
                      "\v",
                      "#define H \\",
                      "#include \"i\" // \"j\"",
                      "#includes \"k\"",
                      "$b = \"#include\"",
                      "\x1A",
                      "\n",
                      "\n#include \"l\"\n",
                      "#include\"m\"",
                      "\xEF\xBB\xBF"};
    std::mt19937 random(7);
    std::size_t plain = 0;
    for (int round = 0; round < 20000; ++round) {
        std::string bytes;
        for (auto count = random() % 9; count > 0; --count) {
            bytes += pieces[random() % pieces.size()];
        }
        const List quick = includes(bytes);
        EXPECT_EQ(quick, includes(bytes + "\n/* */")) << testing::PrintToString(bytes);
        plain += quick.empty() ? 0 : 1;
    }
    EXPECT_GT(plain, 5000U);
}

TEST(IncludeScan, MarksAndNulCharacters) {
    EXPECT_EQ(includes("\xEF\xBB\xBF#include \"a\"\n\x1A"), (List{"a:1"}));
    EXPECT_EQ(includes(std::string_view("#include \"a\"\n\0#include \"b\"\n", 27)), (List{"a:1"}));
    EXPECT_EQ(includes(""), List{});
    EXPECT_EQ(includes("#"), List{});
    EXPECT_EQ(includes("#i"), List{});
}

TEST(IncludeScan, EndOfAProgram) {
    EXPECT_TRUE(endsProgram("G1 X1\nM2\n"));
    EXPECT_TRUE(endsProgram("N990 m030 ; done\n"));
    EXPECT_TRUE(endsProgram("end program"));
    EXPECT_TRUE(endsProgram("END\n"));
    EXPECT_FALSE(endsProgram("M3\nM20\nM200\nEND IF\nENDIF\n; M2\n\"M2\"\nM2X = 1\n"));
    EXPECT_FALSE(endsProgram("DFS stop\n  M30\nENDDFS\n"));
    EXPECT_FALSE(endsProgram("DFS stop\n  END\nEND DFS\n"));
    EXPECT_TRUE(endsProgram("DFS stop\nENDDFS\nM02"));
    EXPECT_FALSE(endsProgram(""));
}

}  // namespace torvel::migrate::test
