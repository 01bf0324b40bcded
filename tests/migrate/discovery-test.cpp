// Which files are programs, where their outputs go, and what is told of the others.

#include "src/migrate/discovery.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "src/migrate/interruption.h"
#include "tests/support/temporary-directory.h"

namespace torvel::migrate::test {

namespace {

namespace fs = std::filesystem;

/// A folder of a project with its sources in "programs".
struct Plant {
    Plant() { project.folder = directory.path(), project.sources = {"programs"}; }

    const Plant& write(const std::string& name, std::string_view text = "G1 X1\n") const {
        torvel::test::writeFile(directory.path() / name, text);
        return *this;
    }
    const Plant& link(const std::string& name, const std::string& target) const {
        fs::create_directories((directory.path() / name).parent_path());
        fs::create_symlink(target, directory.path() / name);
        return *this;
    }
    Discovery find(unsigned threads = 0) const { return findPrograms(project, threads); }

    /// "program -> output" of each program.
    std::vector<std::string> programs() const {
        std::vector<std::string> list;
        for (const FoundProgram& program : find().programs) {
            list.push_back(program.program + " -> " + program.output);
        }
        return list;
    }
    /// "path: text" of each notice.
    std::vector<std::string> notices() const {
        std::vector<std::string> list;
        for (const Notice& notice : find().notices) {
            list.push_back(notice.path + ": " + notice.text);
        }
        return list;
    }
    std::string refusal() const {
        try {
            find();
        } catch (const std::runtime_error& error) {
            return error.what();
        }
        return {};
    }
    ContentHash reachOf(const std::string& key) const {
        for (const FoundProgram& program : find().programs) {
            if (program.program == key) {
                return program.reach;
            }
        }
        ADD_FAILURE() << "no program " << key;
        return {};
    }

    torvel::test::TemporaryDirectory directory;
    Project project;
};

using List = std::vector<std::string>;

}  // namespace

TEST(Discovery, PatternsExcludesAndTheFoldersOfTheSource) {
    Plant plant;
    plant.write("programs/b/main.pgm").write("programs/A.PRG").write("programs/b/notes.txt");
    plant.write("programs/archive/old.pgm").write("other/x.pgm").write("programs/b/skip.pgm");
    plant.project.exclude = {"archive/**", "programs/b/skip.*"};
    EXPECT_EQ(plant.programs(), (List{"programs/A.PRG -> converted/A.torvel",
                                      "programs/b/main.pgm -> converted/b/main.torvel"}));
    EXPECT_EQ(plant.notices(), List{});
}

TEST(Discovery, SeveralSourcesKeepTheFolderAroundThem) {
    Plant plant;
    plant.write("plant/line1/main.pgm").write("plant/line2/main.pgm");
    plant.project.sources = {"plant/line1", "plant/line2/"};
    plant.project.keepExtension = true;
    EXPECT_EQ(plant.programs(), (List{"plant/line1/main.pgm -> converted/line1/main.pgm.torvel",
                                      "plant/line2/main.pgm -> converted/line2/main.pgm.torvel"}));
}

TEST(Discovery, SourcesOutsideOfTheProject) {
    Plant plant;
    plant.write("share/cells/a.pgm").write("project/x");
    plant.project.folder = plant.directory.path() / "project";
    plant.project.sources = {"../share"};
    EXPECT_EQ(plant.programs(), List{"../share/cells/a.pgm -> converted/cells/a.torvel"});
    plant.project.sources = {(plant.directory.path() / "share/cells").string()};
    EXPECT_EQ(plant.programs(), List{"../share/cells/a.pgm -> converted/a.torvel"});
}

TEST(Discovery, AFileAsSource) {
    Plant plant;
    plant.write("programs/main.pgm", "#include \"part.txt\"\n").write("programs/part.txt");
    plant.project.sources = {"programs/part.txt"};
    EXPECT_EQ(plant.programs(), List{"programs/part.txt -> converted/part.torvel"});
}

TEST(Discovery, WhatIsIncludedIsAPart) {
    Plant plant;
    plant.write("programs/main.pgm", "#ifdef NEVER\n#include \"inc/a.pgm\"\n#endif\n");
    plant.write("programs/inc/a.pgm", "#include \"../../shared/b.inc\"\n").write("shared/b.inc");
    plant.write("programs/inc/c.pgm", "; #include \"../main.pgm\"\n");
    const Discovery found = plant.find();
    EXPECT_EQ(plant.programs(), (List{"programs/inc/c.pgm -> converted/inc/c.torvel",
                                      "programs/main.pgm -> converted/main.torvel"}));
    EXPECT_EQ(found.parts, (List{"programs/inc/a.pgm", "shared/b.inc"}));
    ASSERT_EQ(found.programs.size(), 2U);
    EXPECT_EQ(found.programs[0].content, hashOf("; #include \"../main.pgm\"\n"));
    EXPECT_EQ(found.otherFiles.size(), 2U);
    EXPECT_EQ(found.otherFiles.at("shared/b.inc"), hashOf("G1 X1\n"));
}

TEST(Discovery, SpellingsOfBothSystemsLeadToOneFile) {
    Plant plant;
    plant.write("programs/a.pgm", "#include \"..\\shared\\x.pgm\"\n#include \"inc\\..\\y.pgm\"\n");
    plant.write("programs/b.pgm", "#include \"./../shared//x.pgm\"\n#include \"y.pgm\"\n");
    plant.write("programs/y.pgm").write("shared/x.pgm").write("programs/inc/z.pgm");
    EXPECT_EQ(plant.find().parts, (List{"programs/y.pgm", "shared/x.pgm"}));
    EXPECT_EQ(plant.programs().size(), 3U);
    EXPECT_EQ(plant.notices(), List{});
}

TEST(Discovery, APartThatIsAlwaysAProgram) {
    Plant plant;
    plant.write("programs/main.pgm", "#include \"tests/main.pgm\"\n");
    plant.write("programs/tests/main.pgm");
    plant.project.programsAlways = {"tests/main.pgm"};
    EXPECT_EQ(plant.programs(), (List{"programs/main.pgm -> converted/main.torvel",
                                      "programs/tests/main.pgm -> converted/tests/main.torvel"}));
    EXPECT_EQ(plant.find().parts, List{});
    plant.project.programsAlways = {"programs/tests/*", "no/such.pgm"};
    EXPECT_EQ(plant.programs().size(), 2U);
    EXPECT_EQ(plant.notices(),
              List{"no/such.pgm: 'programs_always' names it, and no file that is not excluded is "
                   "called so."});
}

TEST(Discovery, NamedOnTheCommandLine) {
    Plant plant;
    plant.write("programs/main.pgm", "#include \"inc/a.pgm\"\n").write("programs/inc/a.pgm");
    plant.write("programs/inc/b.pgm").write("outside/deep/c.pgm");
    // A folder chooses; what is a part stays one.
    plant.project.named = {"programs/inc"};
    EXPECT_EQ(plant.programs(), List{"programs/inc/b.pgm -> converted/inc/b.torvel"});
    // A file is a program whatever includes it.
    plant.project.named = {"programs/inc/a.pgm"};
    EXPECT_EQ(plant.programs(), List{"programs/inc/a.pgm -> converted/inc/a.torvel"});
    // What lies elsewhere is added.
    plant.project.named = {"outside", "programs/inc/b.pgm"};
    EXPECT_EQ(plant.programs(), (List{"outside/deep/c.pgm -> converted/deep/c.torvel",
                                      "programs/inc/b.pgm -> converted/inc/b.torvel"}));
    // Through a link: the output is where it is without naming.
    plant.link("programs/link", "../outside");
    plant.project.named = {"programs/link/deep/c.pgm"};
    EXPECT_EQ(plant.programs(), List{"outside/deep/c.pgm -> converted/link/deep/c.torvel"});
    fs::remove(plant.directory.path() / "programs/link");
    plant.project.sources.clear();
    plant.project.named = {"programs"};
    EXPECT_EQ(plant.programs(), (List{"programs/inc/b.pgm -> converted/inc/b.torvel",
                                      "programs/main.pgm -> converted/main.torvel"}));
}

TEST(Discovery, NothingNamedAndNothingThere) {
    Plant plant;
    EXPECT_EQ(plant.refusal(), "The source 'programs' is not there.");
    plant.write("programs/a.txt");
    EXPECT_EQ(plant.notices(), List{": No programs were found in the sources; 'programs' tells "
                                    "what counts as one: '**/*.pgm' and '**/*.prg'."});
    plant.project.sources = {"programs/a.txt", "/dev/null"};
    EXPECT_EQ(plant.refusal(), "The source '/dev/null' is neither a folder nor a file.");
    plant.project.sources = {};
    EXPECT_EQ(plant.refusal(),
              "No sources are named. Give the folder of the programs, or 'sources' in "
              "migration.toml.");
}

TEST(Discovery, TheOutputInsideASource) {
    Plant plant;
    plant.write("main.pgm").write("converted/old.pgm").write("a.TORVEL").write("a.log");
    plant.project.sources = {"."};
    plant.project.programs = {"**/*"};
    EXPECT_EQ(plant.programs(), List{"main.pgm -> converted/main.torvel"});
    // Outputs beside the programs.
    plant.project.output = ".";
    EXPECT_EQ(plant.programs(),
              (List{"converted/old.pgm -> converted/old.torvel", "main.pgm -> main.torvel"}));
}

TEST(Discovery, LinksEnd) {
    Plant plant;
    plant.write("programs/cell/a.pgm").write("common/b.pgm").write("programs/x.pgm");
    plant.link("programs/cell/again", "../cell").link("programs/cell/up", "..");
    plant.link("programs/common", "../common").link("common/back", "../programs");
    plant.link("programs/y.pgm", "x.pgm").link("programs/gone.pgm", "nowhere");
    plant.link("programs/self.pgm", "self.pgm").link("programs/all", "/");
    EXPECT_EQ(plant.programs(), (List{"common/b.pgm -> converted/common/b.torvel",
                                      "programs/cell/a.pgm -> converted/cell/a.torvel",
                                      "programs/x.pgm -> converted/x.torvel"}));
    EXPECT_EQ(
        plant.notices(),
        (List{"programs/all: It is a link to a folder around it, and was not followed.",
              "programs/cell/again: It is a link to a folder around it, and was not followed.",
              "programs/cell/up: It is a link to a folder around it, and was not followed.",
              "programs/gone.pgm: It is a link that leads nowhere.",
              "programs/self.pgm: It is a link that leads nowhere."}));
}

TEST(Discovery, ALinkAsSource) {
    Plant plant;
    plant.write("far/away/a.pgm").link("programs", "far/away");
    EXPECT_EQ(plant.programs(), List{"far/away/a.pgm -> converted/a.torvel"});
}

TEST(Discovery, Circles) {
    Plant plant;
    plant.write("programs/a.pgm", "#include \"b.pgm\"\n")
        .write("programs/b.pgm", "#include \"c.pgm\"\n");
    plant.write("programs/c.pgm", "#include \"a.pgm\"\n");
    plant.write("programs/self.pgm", "#include \"self.pgm\"\n");
    plant.write("programs/main.pgm", "#include \"m1.pgm\"\n");
    plant.write("programs/m1.pgm", "#include \"m2.pgm\"\n")
        .write("programs/m2.pgm", "#include \"m1.pgm\"\n");
    EXPECT_EQ(plant.programs(), (List{"programs/a.pgm -> converted/a.torvel",
                                      "programs/main.pgm -> converted/main.torvel",
                                      "programs/self.pgm -> converted/self.torvel"}));
    EXPECT_EQ(plant.notices(),
              (List{"programs/a.pgm: The files 'programs/a.pgm', 'programs/b.pgm' and "
                    "'programs/c.pgm' include each other in a circle, so none of them can be read "
                    "to its end. No other file includes one of them: 'programs/a.pgm' counts as "
                    "the program.",
                    "programs/m1.pgm: The files 'programs/m1.pgm' and 'programs/m2.pgm' include "
                    "each other in a circle, so none of them can be read to its end.",
                    "programs/self.pgm: It includes itself, so it cannot be read to its end."}));
}

TEST(Discovery, PartsThatLookLikePrograms) {
    Plant plant;
    plant.write("programs/shift.pgm", "#include \"day.pgm\"\n#include \"tool.pgm\"\n");
    plant.write("programs/day.pgm", "G1 X5\nM2\n");
    plant.write("programs/tool.pgm", "DFS stop\nM30\nENDDFS\n");
    EXPECT_EQ(plant.notices(),
              List{"programs/day.pgm: 'programs/shift.pgm' includes it, so it is not converted by "
                   "itself; but it ends a program. If it is one, name it in 'programs_always'."});
}

TEST(Discovery, IncludesInAnotherCase) {
    Plant plant;
    plant.write("programs/main.pgm", "G71\n#include \"INC\\TOOL.PGM\"\n#include \"Two.pgm\"\n");
    plant.write("programs/a.pgm", "#include \"INC\\TOOL.PGM\"\n#include \"INC\\TOOL.PGM\"\n");
    plant.write("programs/inc/tool.pgm").write("programs/two.pgm").write("programs/TWO.pgm");
    EXPECT_EQ(plant.programs(), (List{"programs/TWO.pgm -> converted/TWO.torvel",
                                      "programs/a.pgm -> converted/a.torvel",
                                      "programs/main.pgm -> converted/main.torvel",
                                      "programs/two.pgm -> converted/two.torvel"}));
    EXPECT_EQ(plant.notices(),
              (List{"programs/Two.pgm: 'programs/main.pgm' includes 'Two.pgm', which is not there; "
                    "'programs/TWO.pgm' and 'programs/two.pgm' differ from it in capital letters "
                    "only: none was taken.",
                    "programs/inc/tool.pgm: 'programs/a.pgm' and 'programs/main.pgm' include it as "
                    "'INC\\TOOL.PGM', with other capital letters: it was taken."}));
}

TEST(Discovery, OutputsThatCollide) {
    Plant plant;
    plant.write("programs/part.pgm").write("programs/Part.prg").write("programs/other.pgm");
    Discovery found = plant.find();
    ASSERT_EQ(found.programs.size(), 3U);
    EXPECT_EQ(found.programs[0].collidesWith, List{"programs/part.pgm"});
    EXPECT_EQ(found.programs[1].collidesWith, List{});
    EXPECT_EQ(found.programs[2].collidesWith, List{"programs/Part.prg"});
    // One that is not to be converted now collides all the same.
    plant.project.named = {"programs/part.pgm"};
    found = plant.find();
    ASSERT_EQ(found.programs.size(), 1U);
    EXPECT_EQ(found.programs[0].collidesWith, List{"programs/Part.prg"});
    plant.project.named = {};
    plant.project.keepExtension = true;
    for (const FoundProgram& program : plant.find().programs) {
        EXPECT_EQ(program.collidesWith, List{}) << program.program;
    }
}

/// A program that includes a file with the name of its own log.
TEST(Discovery, AnOutputThatWouldReplaceASource) {
    Plant plant;
    plant.write("programs/part.pgm", "#include \"part.log\"\n").write("programs/part.log");
    plant.project.output = "programs";
    const Discovery found = plant.find();
    ASSERT_EQ(found.programs.size(), 1U);
    EXPECT_EQ(found.programs[0].output, "programs/part.torvel");
    EXPECT_EQ(found.programs[0].collidesWith, List{"programs/part.log"});
}

TEST(Discovery, MachinesOfFolders) {
    Plant plant;
    plant.write("programs/a.pgm").write("programs/line2/b.pgm").write("programs/line2/cell/c.pgm");
    plant.write("programs/line22/d.pgm").write("programs/line3/e.pgm");
    plant.project.parameters = "machine.xml";
    plant.project.folders = {{"programs/line2", "programs/line2/machine.xml"},
                             {"programs/line2/cell/", "cell.xml"},
                             {"programs/line3", std::nullopt},
                             {"line2", "x.xml"}};
    List machines;
    for (const FoundProgram& program : plant.find().programs) {
        machines.push_back(program.program + ": " + program.machine + ", " + program.parameters);
    }
    EXPECT_EQ(machines, (List{"programs/a.pgm: , machine.xml",
                              "programs/line2/b.pgm: programs/line2, programs/line2/machine.xml",
                              "programs/line2/cell/c.pgm: programs/line2/cell, cell.xml",
                              "programs/line22/d.pgm: , machine.xml",
                              "programs/line3/e.pgm: programs/line3, machine.xml"}));
    EXPECT_EQ(plant.notices(), List{"line2: A [[folder]] names it, and there is no such folder."});
}

TEST(Discovery, ReachTellsWhatAProgramIsMadeOf) {
    Plant plant;
    plant.write("programs/a.pgm", "#include \"../inc/x.inc\"\n#include \"late.inc\"\n");
    plant.write("programs/b.pgm")
        .write("inc/x.inc", "#include \"Y.inc\"\n")
        .write("inc/y.inc", "1");
    const ContentHash a = plant.reachOf("programs/a.pgm");
    const ContentHash b = plant.reachOf("programs/b.pgm");
    EXPECT_EQ(plant.reachOf("programs/a.pgm"), a);
    // The text of a file that is included by another.
    plant.write("inc/y.inc", "2");
    const ContentHash changed = plant.reachOf("programs/a.pgm");
    EXPECT_NE(changed, a);
    plant.write("inc/y.inc", "1");
    EXPECT_EQ(plant.reachOf("programs/a.pgm"), a);
    // A file that was looked for, and one that an include would rather lead to.
    plant.write("programs/late.inc", "");
    EXPECT_NE(plant.reachOf("programs/a.pgm"), a);
    fs::remove(plant.directory.path() / "programs/late.inc");
    plant.write("inc/Y.inc", "1");
    EXPECT_NE(plant.reachOf("programs/a.pgm"), a);
    EXPECT_EQ(plant.reachOf("programs/b.pgm"), b);
}

TEST(Discovery, TheSameWithAnyNumberOfThreads) {
    Plant plant;
    for (int i = 0; i < 200; ++i) {
        const std::string n = std::to_string(i);
        plant.write("programs/p" + n + ".pgm",
                    "#include \"inc/i" + std::to_string(i % 17) + ".pgm\"\n");
        plant.write("programs/inc/i" + n + ".pgm",
                    "#include \"I" + std::to_string(i / 2) + ".pgm\"\n");
    }
    const Discovery one = plant.find(1);
    EXPECT_GT(one.programs.size(), 200U);
    for (const unsigned threads : {2U, 16U}) {
        const Discovery many = plant.find(threads);
        ASSERT_EQ(many.programs.size(), one.programs.size());
        for (std::size_t i = 0; i < one.programs.size(); ++i) {
            EXPECT_EQ(many.programs[i].program, one.programs[i].program);
            EXPECT_EQ(many.programs[i].reach, one.programs[i].reach);
            EXPECT_EQ(many.programs[i].content, one.programs[i].content);
        }
        EXPECT_EQ(many.parts, one.parts);
        EXPECT_EQ(many.otherFiles, one.otherFiles);
        ASSERT_EQ(many.notices.size(), one.notices.size());
        for (std::size_t i = 0; i < one.notices.size(); ++i) {
            EXPECT_EQ(many.notices[i].text, one.notices[i].text);
        }
    }
}

TEST(Discovery, EndsWhenItIsInterrupted) {
    Plant plant;
    plant.write("programs/a.pgm");
    std::atomic<bool> isInterrupted = true;
    EXPECT_THROW(findPrograms(plant.project, 2, &isInterrupted), Interrupted);
    isInterrupted = false;
    EXPECT_EQ(findPrograms(plant.project, 2, &isInterrupted).programs.size(), 1U);
}

}  // namespace torvel::migrate::test
