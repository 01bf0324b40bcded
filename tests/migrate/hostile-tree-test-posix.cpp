// Trees that nobody would make on purpose, or somebody would.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <fstream>
#include <thread>

#include "src/migrate/discovery.h"
#include "src/migrate/include-graph.h"
#include "tests/migrate/plant.h"
#include "tests/support/temporary-directory.h"

namespace torvel::migrate::test {

namespace {

namespace fs = std::filesystem;

using List = std::vector<std::string>;

struct Tree {
    Tree() { project.folder = directory.path(), project.sources = {"."}; }

    void write(const std::string& name, std::string_view text = "G1 X1\n") const {
        torvel::test::writeFile(directory.path() / name, text);
    }
    List programs() const {
        List keys;
        for (const FoundProgram& program : findPrograms(project).programs) {
            keys.push_back(program.program);
        }
        return keys;
    }
    List notices() const {
        List list;
        for (const Notice& notice : findPrograms(project).notices) {
            list.push_back(notice.path + ": " + notice.text);
        }
        return list;
    }

    torvel::test::TemporaryDirectory directory;
    Project project;
};

/// Whoever runs the tests as root is somebody else as long as this stands.
class AsNobody {
public:
    AsNobody() {
        if (wasRoot_) {
            EXPECT_EQ(seteuid(65534), 0);
        }
    }
    ~AsNobody() {
        if (wasRoot_) {
            EXPECT_EQ(seteuid(0), 0);
        }
    }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;

private:
    bool wasRoot_ = geteuid() == 0;
};

}  // namespace

TEST(HostileTree, HundredThousandFiles) {
    const Tree tree;
    for (int folder = 0; folder < 100; ++folder) {
        const fs::path path = tree.directory.path() / ("f" + std::to_string(folder));
        fs::create_directory(path);
        for (int file = 0; file < 1000; ++file) {
            std::ofstream(path / ("p" + std::to_string(file) + ".pgm"));
        }
    }
    const Discovery found = findPrograms(tree.project);
    EXPECT_EQ(found.programs.size(), 100000U);
    EXPECT_EQ(found.programs.front().program, "f0/p0.pgm");
    EXPECT_EQ(found.programs.back().program, "f99/p999.pgm");
    EXPECT_TRUE(found.notices.empty());
}

TEST(HostileTree, PathOfFourThousandBytes) {
    const Tree tree;
    std::string name;
    while (tree.directory.path().native().size() + name.size() < 3790) {
        name += std::string(199, 'f') + "/";
    }
    name +=
        std::string(3995 - tree.directory.path().native().size() - 1 - name.size(), 'p') + ".pgm";
    tree.write(name);
    EXPECT_EQ((tree.directory.path() / name).native().size(), 3999U);
    EXPECT_EQ(tree.programs(), List{name});
}

TEST(HostileTree, PathThatTheSystemDoesNotTake) {
    const Tree tree;
    tree.write("a.pgm");
    const fs::path before = fs::current_path();
    fs::current_path(tree.directory.path());
    for (int depth = 0; depth < 30; ++depth) {
        const std::string name(200, 'd');
        ASSERT_EQ(mkdir(name.c_str(), 0700), 0);
        ASSERT_EQ(chdir(name.c_str()), 0);
    }
    std::ofstream("deep.pgm") << "G1 X1\n";
    ASSERT_EQ(chdir(before.c_str()), 0);
    EXPECT_EQ(tree.programs(), List{"a.pgm"});
    const List notices = tree.notices();
    ASSERT_EQ(notices.size(), 1U);
    EXPECT_TRUE(
        notices[0].ends_with(": The folder could not be listed (File name too long): "
                             "programs in it are not converted."))
        << notices[0];
}

TEST(HostileTree, NamesWithAnyBytes) {
    const Tree tree;
    const List names{"\x01\x7F.pgm",      "\n.pgm",           "\"quoted\".pgm",   "'; rm -rf x.pgm",
                     "<b onclick=1>.pgm", "=cmd|' C'!A0.pgm", "\xB0 \xFF\xFE.pgm"};
    for (const std::string& name : names) {
        tree.write(name);
    }
    EXPECT_EQ(tree.programs(), names);
    EXPECT_EQ(findPrograms(tree.project).programs[1].output, "converted/\n.torvel");
    EXPECT_EQ(tree.notices(), List{});
}

TEST(HostileTree, NamesWithBackSlashes) {
    const Tree tree;
    tree.write("a/b.pgm");
    tree.write("a\\b.pgm");
    tree.write("d\\e/c.pgm");
    tree.write("x\\y.txt");
    EXPECT_EQ(tree.programs(), List{"a/b.pgm"});
    EXPECT_EQ(tree.notices(),
              (List{"a\\b.pgm: It is left out, because its name has a back slash. Rename it, if it "
                    "is to be converted.",
                    "d\\e: It is left out, because its name has a back slash. Rename it, if it is "
                    "to be converted."}));
}

TEST(HostileTree, IncludesWithBackSlashes) {
    Plant plant;
    plant.write("inc/part.inc", "G1 X1\n");
    plant.add("main.pgm", "#include \"inc\\part.inc\"\n");
    plant.run();
    plant.run();
    EXPECT_EQ(plant.convertedNow, List());
    // A file of the very name that is written comes first, so it is noticed when there is one.
    plant.write("inc\\part.inc", "G1 Y2\n");
    plant.run();
    EXPECT_EQ(plant.convertedNow, List{"main.pgm"});
    EXPECT_NE(plant.outputs().find("G1 Y2\n"), std::string::npos) << plant.outputs();
    plant.run();
    EXPECT_EQ(plant.convertedNow, List());
    plant.write("inc\\part.inc", "G1 Y3\n");
    plant.run();
    EXPECT_EQ(plant.convertedNow, List{"main.pgm"});
}

TEST(HostileTree, FolderWithoutRights) {
    const Tree tree;
    tree.write("a.pgm");
    tree.write("closed/b.pgm");
    fs::permissions(tree.directory.path(), fs::perms(0777));
    fs::permissions(tree.directory.path() / "closed", fs::perms(0));
    {
        const AsNobody nobody;
        EXPECT_EQ(tree.programs(), List{"a.pgm"});
        EXPECT_EQ(tree.notices(),
                  List{"closed: The folder could not be listed (Permission denied): "
                       "programs in it are not converted."});
        const Discovery found = findPrograms(tree.project);
        EXPECT_TRUE(isUnseen(found, "closed/b.pgm"));
        EXPECT_FALSE(isUnseen(found, "closed.pgm"));
        EXPECT_FALSE(isUnseen(found, "b.pgm"));
    }
    fs::permissions(tree.directory.path() / "closed", fs::perms(0700));
}

TEST(HostileTree, SourceWithoutRights) {
    Tree tree;
    tree.write("closed/b.pgm");
    tree.project.sources = {"closed"};
    fs::permissions(tree.directory.path(), fs::perms(0777));
    fs::permissions(tree.directory.path() / "closed", fs::perms(0));
    {
        const AsNobody nobody;
        try {
            findPrograms(tree.project);
            ADD_FAILURE();
        } catch (const std::runtime_error& error) {
            EXPECT_STREQ(error.what(),
                         "The source 'closed' could not be listed: Permission denied.");
        }
    }
    fs::permissions(tree.directory.path() / "closed", fs::perms(0700));
}

/// It is a program, and its conversion tells that it cannot be read.
TEST(HostileTree, FileWithoutRights) {
    const Tree tree;
    tree.write("a.pgm");
    fs::permissions(tree.directory.path(), fs::perms(0777));
    fs::permissions(tree.directory.path() / "a.pgm", fs::perms(0));
    const AsNobody nobody;
    const Discovery found = findPrograms(tree.project);
    ASSERT_EQ(found.programs.size(), 1U);
    EXPECT_EQ(found.programs[0].content, std::nullopt);
}

TEST(HostileTree, FileThatVanishes) {
    const Tree tree;
    tree.write("a.pgm", "#include \"b.pgm\"\n");
    const IncludeGraph graph =
        readIncludeGraph({{"a.pgm", {}, {}}, {"gone.pgm", {}, {}}}, tree.project.folder, 1);
    ASSERT_EQ(graph.size(), 2U);
    EXPECT_TRUE(graph[0].hash.has_value());
    EXPECT_EQ(graph[1].hash, std::nullopt);
}

TEST(HostileTree, FilesThatChangeWhileTheyAreRead) {
    const Tree tree;
    for (int i = 0; i < 20; ++i) {
        tree.write("p" + std::to_string(i) + ".pgm");
    }
    std::atomic<bool> isDone = false;
    std::thread changer([&] {
        const std::string text = "#include \"p1.pgm\"\n" + std::string(30000, 'x') + "\"\n";
        for (unsigned i = 0; !isDone; ++i) {
            const fs::path path = tree.directory.path() / ("p" + std::to_string(i % 20) + ".pgm");
            std::ofstream(path) << text.substr(0, i * 977 % text.size());
            if (i % 5 == 0) {
                fs::remove(path);
            }
        }
    });
    for (int i = 0; i < 100; ++i) {
        EXPECT_LE(findPrograms(tree.project).programs.size(), 20U);
    }
    isDone = true;
    changer.join();
}

TEST(HostileTree, PipesAndDevices) {
    const Tree tree;
    tree.write("a.pgm", "#include \"pipe.pgm\"\n");
    ASSERT_EQ(mkfifo((tree.directory.path() / "pipe.pgm").c_str(), 0600), 0);
    fs::create_symlink("/dev/zero", tree.directory.path() / "zero.pgm");
    EXPECT_EQ(tree.programs(), List{"a.pgm"});
    EXPECT_EQ(tree.notices(), (List{"pipe.pgm: It is left out, because it is no regular file.",
                                    "zero.pgm: It is left out, because it is no regular file."}));
}

TEST(HostileTree, LongChainOfIncludes) {
    const Tree tree;
    for (int i = 0; i < 5000; ++i) {
        tree.write("p" + std::to_string(i) + ".pgm",
                   "#include \"p" + std::to_string(i + 1) + ".pgm\"\n");
    }
    tree.write("p5000.pgm", "");
    EXPECT_EQ(tree.programs(), List{"p0.pgm"});
}

TEST(HostileTree, ManyFilesInOneCircle) {
    const Tree tree;
    for (int i = 0; i < 2000; ++i) {
        tree.write("p" + std::to_string(i) + ".pgm",
                   "#include \"p" + std::to_string((i + 1) % 2000) + ".pgm\"\n");
    }
    EXPECT_EQ(tree.programs(), List{"p0.pgm"});
    EXPECT_EQ(tree.notices(),
              List{"p0.pgm: The files 'p0.pgm', 'p1.pgm', 'p10.pgm', 'p100.pgm', 'p1000.pgm' and "
                   "1995 more include each other in a circle, so none of them can be read to its "
                   "end. No other file includes one of them: 'p0.pgm' counts as the program."});
}

TEST(HostileTree, ManyIncludesOfOneFile) {
    const Tree tree;
    std::string text;
    for (int i = 0; i < 50000; ++i) {
        text += "#include \"no" + std::to_string(i % 100) + ".pgm\"\n$a = \"open\n";
    }
    tree.write("a.pgm", text);
    EXPECT_EQ(tree.programs(), List{"a.pgm"});
}

}  // namespace torvel::migrate::test
