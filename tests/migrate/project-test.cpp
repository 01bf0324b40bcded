// migration.toml: what it gives, and the sentence for what may not stand in it.

#include "src/migrate/project.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <stdexcept>

#include "src/migrate/options.h"
#include "tests/support/temporary-directory.h"

namespace torvel::migrate::test {

namespace {

constexpr const char* everyKey = R"toml(
sources = ["programs", 'line2\cells']
programs = ["**/*.pgm"]
programs_always = ["tests/main.pgm"]
exclude = ["archive/**"]
output = 'out\torvel'
keep_extension = true
parameters = "machine.xml"
store = "state/migration.sqlite"
baseline = "known.json"
fail_on = ["rewrite", "moves"]

[[folder]]
path = "line2"
parameters = "line2/machine.xml"

[[folder]]
path = "line3"

[reference]
axis_parameters = { 11 = "ServoLoopGainKp", 0 = "First" }
task_parameters = { 4294967295 = "Last" }
system_parameters = { 3 = "x" }
axis_items = { 5 = "Item5" }
task_items = { 6 = "Item6" }
system_items = { 7 = "Item7" }
constants = { CLAMP_CLOSED = "(1 << 3)", LINE_NAME = '"North"', COUNT = -4 }

[effort]
rewrite = [10, 40]
complete = [1.5, 1.5]
look = [0, 0]
fix_source = [5, 10080]
)toml";

/// A folder with a project file.
struct ProjectFolder {
    explicit ProjectFolder(std::string_view text) {
        torvel::test::writeFile(directory.path() / "migration.toml", text);
    }
    Project read() const { return readProject(directory.path() / "migration.toml"); }

    torvel::test::TemporaryDirectory directory;
};

/// The message that reading ends with, without the path of the folder; empty: it does not.
std::string refusal(std::string_view text) {
    const ProjectFolder folder(text);
    try {
        folder.read();
    } catch (const std::runtime_error& error) {
        std::string message = error.what();
        const std::string path = folder.directory.path().string() + "/";
        const std::size_t at = message.find(path);
        return at == std::string::npos ? message : message.erase(at, path.size());
    }
    return {};
}

}  // namespace

TEST(ProjectFile, EveryKey) {
    const ProjectFolder folder(everyKey);
    const Project project = folder.read();
    EXPECT_EQ(project.folder, folder.directory.path());
    EXPECT_EQ(project.file, folder.directory.path() / "migration.toml");
    EXPECT_EQ(project.sources, (std::vector<std::string>{"programs", "line2/cells"}));
    EXPECT_EQ(project.programs, std::vector<std::string>{"**/*.pgm"});
    EXPECT_EQ(project.programsAlways, std::vector<std::string>{"tests/main.pgm"});
    EXPECT_EQ(project.exclude, std::vector<std::string>{"archive/**"});
    EXPECT_EQ(project.output, "out/torvel");
    EXPECT_TRUE(project.keepExtension);
    EXPECT_EQ(project.parameters, "machine.xml");
    EXPECT_EQ(project.store, "state/migration.sqlite");
    EXPECT_EQ(project.baseline, "known.json");
    EXPECT_EQ(project.failOn, (std::vector<std::string>{"rewrite", "moves"}));
    ASSERT_EQ(project.folders.size(), 2U);
    EXPECT_EQ(project.folders[0].path, "line2");
    EXPECT_EQ(project.folders[0].parameters, "line2/machine.xml");
    EXPECT_EQ(project.folders[1].path, "line3");
    EXPECT_EQ(project.folders[1].parameters, std::nullopt);
    using Names = std::map<std::uint32_t, std::string>;
    EXPECT_EQ(project.reference.axisParameters, (Names{{0, "First"}, {11, "ServoLoopGainKp"}}));
    EXPECT_EQ(project.reference.taskParameters, (Names{{4294967295U, "Last"}}));
    EXPECT_EQ(project.reference.systemParameters, (Names{{3, "x"}}));
    EXPECT_EQ(project.reference.axisItems, (Names{{5, "Item5"}}));
    EXPECT_EQ(project.reference.taskItems, (Names{{6, "Item6"}}));
    EXPECT_EQ(project.reference.systemItems, (Names{{7, "Item7"}}));
    EXPECT_EQ(project.reference.constants,
              (std::map<std::string, std::string>{
                  {"CLAMP_CLOSED", "(1 << 3)"}, {"COUNT", "-4"}, {"LINE_NAME", "\"North\""}}));
    EXPECT_EQ(project.effort.rewrite.most, 40);
    EXPECT_EQ(project.effort.complete.least, 1.5);
    EXPECT_EQ(project.effort.look.most, 0);
    EXPECT_EQ(project.effort.fixSource.most, 10080);
}

TEST(ProjectFile, WhatFailsIsSaidAsOnTheCommandLine) {
    const std::vector<std::string> words{"rewrite", "complete", "look",  "fix_source", "fix-source",
                                         "moves",   "stops",    "reads", "any"};
    for (const std::string& word : words) {
        const ProjectFolder folder("fail_on = [\"" + word + "\"]\n");
        EXPECT_EQ(folder.read().failOn, std::vector<std::string>{word});
        const ParsedOptions parsed = parseOptions({"convert", "--fail-on", word});
        ASSERT_TRUE(parsed.options) << parsed.error;
        EXPECT_EQ(parsed.options->failOn, std::vector<std::string>{word});
    }
}

TEST(ProjectFile, ByteOrderMarkAndCarriageReturns) {
    const ProjectFolder folder("\xEF\xBB\xBFsources = [\"a\"]\r\n# said\r\noutput = \"b\"\r\n");
    EXPECT_EQ(folder.read().sources, std::vector<std::string>{"a"});
    EXPECT_EQ(folder.read().output, "b");
}

TEST(ProjectFile, AnEmptyOneGivesWhatIsUsual) {
    const ProjectFolder folder("");
    const Project project = folder.read();
    EXPECT_TRUE(project.sources.empty());
    EXPECT_EQ(project.programs, (std::vector<std::string>{"**/*.pgm", "**/*.prg"}));
    EXPECT_EQ(project.output, "converted");
    EXPECT_FALSE(project.keepExtension);
    EXPECT_EQ(project.effort.look.least, 2);
}

TEST(ProjectFile, WithoutOneTheWorkingDirectoryIsTheFolder) {
    const torvel::test::TemporaryDirectory directory;
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(directory.path());
    const Project without = readProject({});
    torvel::test::writeFile(directory.path() / "migration.toml", "output = \"o\"\n");
    const Project with = readProject({});
    std::filesystem::current_path(before);
    EXPECT_EQ(without.folder, directory.path());
    EXPECT_TRUE(without.file.empty());
    EXPECT_EQ(without.output, "converted");
    EXPECT_EQ(with.file, directory.path() / "migration.toml");
    EXPECT_EQ(with.output, "o");
}

TEST(ProjectFile, NotThere) {
    try {
        readProject("nowhere/plant.toml");
        FAIL();
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(),
                     "The project file 'nowhere/plant.toml' could not be opened. Is it there, and "
                     "may it be read?");
    }
}

struct Refusal {
    const char* text;
    const char* message;
};

class RefusedProject : public testing::TestWithParam<Refusal> {};

TEST_P(RefusedProject, TellsLineAndWhatIsAllowed) {
    EXPECT_EQ(refusal(GetParam().text), "'migration.toml', " + std::string(GetParam().message));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, RefusedProject,
    testing::Values(
        Refusal{"\nsorces = []",
                "line 2: There is no key 'sorces'. Allowed here: sources, programs, "
                "programs_always, exclude, output, keep_extension, parameters, folder, reference, "
                "effort, store, baseline, fail_on."},
        Refusal{"[effort]\nread = [1, 2]",
                "line 2: There is no key 'effort.read'. Allowed here: rewrite, complete, look, "
                "fix_source."},
        Refusal{"[[folder]]\nmachine = 1",
                "line 2: There is no key 'folder.machine'. Allowed here: path, parameters."},
        Refusal{"[reference]\naxis = {}",
                "line 2: There is no key 'reference.axis'. Allowed here: axis_parameters, "
                "task_parameters, system_parameters, axis_items, task_items, system_items, "
                "constants."},
        Refusal{"sources = \"programs\"",
                "line 1: 'sources' must be a list of paths in quotes, such as [\"programs\"]."},
        Refusal{"sources = [\n  5]",
                "line 2: 'sources' must be a list of paths in quotes, such as [\"programs\"]."},
        Refusal{"programs = [\"\"]",
                "line 1: 'programs' must be a list of patterns in quotes, such as "
                "[\"**/*.pgm\"]."},
        Refusal{"exclude = [\"a\",\n\"b[\"]",
                "line 2: The pattern 'b[' has a '[' that no ']' closes."},
        Refusal{"output = 5", "line 1: 'output' must be a path in quotes."},
        Refusal{"output = \"a\\u0000b\"", "line 1: 'output' has a NUL character."},
        Refusal{"keep_extension = \"yes\"", "line 1: 'keep_extension' must be true or false."},
        Refusal{"folder = 5", "line 1: 'folder' must be written as [[folder]]."},
        Refusal{"folder = [5]", "line 1: 'folder' must be a table."},
        Refusal{"\n[[folder]]\nparameters = \"m.xml\"", "line 2: A [[folder]] needs a 'path'."},
        Refusal{"effort = 5", "line 1: 'effort' must be a table."},
        Refusal{"[effort]\nrewrite = [40, 10]",
                "line 2: 'effort.rewrite' must be two numbers of minutes from 0 to 10080, the "
                "smaller one first, such as [10, 40]."},
        Refusal{"[effort]\nlook = [1]",
                "line 2: 'effort.look' must be two numbers of minutes from 0 to 10080, the "
                "smaller one first, such as [10, 40]."},
        Refusal{"[effort]\nlook = [0, nan]",
                "line 2: 'effort.look' must be two numbers of minutes from 0 to 10080, the "
                "smaller one first, such as [10, 40]."},
        Refusal{"[effort]\nlook = [-1, 5]",
                "line 2: 'effort.look' must be two numbers of minutes from 0 to 10080, the "
                "smaller one first, such as [10, 40]."},
        Refusal{"fail_on = [\"error\"]",
                "line 1: 'fail_on' must be a list of rewrite, complete, look, fix_source, moves, "
                "stops, reads and any, each in quotes."},
        Refusal{"[reference]\naxis_items = [5]",
                "line 2: 'reference.axis_items' must be a table of numbers and names, such as "
                "{ 11 = \"ServoLoopGainKp\" }."},
        Refusal{"[reference.axis_items]\n010 = \"A\"",
                "line 2: 'reference.axis_items.010' must end in a decimal number from 0 to "
                "4294967295 without zeros in front."},
        Refusal{"[reference.axis_items]\n4294967296 = \"A\"",
                "line 2: 'reference.axis_items.4294967296' must end in a decimal number from 0 to "
                "4294967295 without zeros in front."},
        Refusal{"[reference.axis_items]\nx = \"A\"",
                "line 2: 'reference.axis_items.x' must end in a decimal number from 0 to "
                "4294967295 without zeros in front."},
        Refusal{"[reference.axis_items]\n5 = 6",
                "line 2: 'reference.axis_items.5' must be a name in quotes."},
        Refusal{"[reference.axis_items]\n5 = \"Gain Kp\"",
                "line 2: 'Gain Kp' cannot be the name of 'reference.axis_items.5': a name of "
                "Torvel begins with a letter and goes on with letters and digits."},
        Refusal{"[reference.axis_items]\n5 = \"2nd\"",
                "line 2: '2nd' cannot be the name of 'reference.axis_items.5': a name of "
                "Torvel begins with a letter and goes on with letters and digits."},
        Refusal{"[reference]\nconstants = 5",
                "line 2: 'reference.constants' must be a table of names and texts, such as "
                "{ CLAMP_CLOSED = \"1\" }."},
        Refusal{"[reference.constants]\n\"A-B\" = \"1\"",
                "line 2: 'A-B' cannot be the name of a constant: it must begin with a letter or "
                "'_' and go on with letters, digits and '_'."},
        Refusal{"[reference.constants]\nhome = \"1\"",
                "line 2: 'home' cannot be the name of a constant: it is a word of Brannic's own, "
                "which would be replaced everywhere."},
        Refusal{"[reference.constants]\nG1 = \"1\"",
                "line 2: 'G1' cannot be the name of a constant: a letter with or without digits "
                "is an axis or a word of G-code, which would be replaced everywhere."},
        Refusal{"[reference.constants]\nAB = true",
                "line 2: 'reference.constants.AB' must be a text in quotes, or a whole number."},
        Refusal{"[reference.constants]\nAB = \"1 ; mm\"",
                "line 2: 'reference.constants.AB' cannot stand for this text: it must be code of "
                "one line without a comment."},
        Refusal{"[reference.constants]\nAB = \"1\\n2\"",
                "line 2: 'reference.constants.AB' cannot stand for this text: it must be code of "
                "one line without a comment."},
        Refusal{"[reference.constants]\nAB = '\"open'",
                "line 2: 'reference.constants.AB' cannot stand for this text: it has a string or "
                "a comment that is not closed."},
        Refusal{"[reference.constants]\nAB = \"  \"",
                "line 2: 'reference.constants.AB' cannot stand for this text: it is empty."}));

TEST(ProjectFile, TheSameTwice) {
    EXPECT_EQ(refusal("[[folder]]\npath = \"a\"\n[[folder]]\npath = \"a\"\n"),
              "'migration.toml': The [[folder]] 'a' is there twice.");
    for (const char* const same : {"./x/", "x/", "./x", "x/.", "y/../x", "x//"}) {
        EXPECT_EQ(refusal("[[folder]]\npath = \"x\"\n[[folder]]\npath = \"y\"\n[[folder]]\n"
                          "path = \"" +
                          std::string(same) + "\"\n"),
                  "'migration.toml': The [[folder]] '" + std::string(same) + "' is there twice.");
    }
    EXPECT_EQ(refusal("[[folder]]\npath = \".\"\n[[folder]]\npath = \"x\"\n"
                      "[[folder]]\npath = \"x/y\"\n[[folder]]\npath = \"../x\"\n"),
              "");
    // A number twice is a key twice, quoted or not.
    const std::string twice = refusal("[reference.axis_items]\n5 = \"A\"\n\"5\" = \"B\"\n");
    EXPECT_TRUE(twice.starts_with("'migration.toml', line 3: This is no TOML: ")) << twice;
}

TEST(ProjectFile, NoTomlIsToldWithItsLine) {
    EXPECT_TRUE(
        refusal("a = \"b\"\n[x\n").starts_with("'migration.toml', line 2: This is no TOML"));
    // A comment in the code page of Windows.
    EXPECT_TRUE(refusal("# f\xFCr\n").starts_with("'migration.toml', line 1: This is no TOML"));
    EXPECT_TRUE(refusal(std::string(100000, '[')).starts_with("'migration.toml', line 1: "));
}

/// The page about the file has every key that a message offers.
TEST(ProjectFile, EveryKeyHasItsPlaceOnThePage) {
    const std::string page =
        torvel::test::readFile(std::filesystem::path(TORVEL_SOURCE_DIR) / "docs/project-file.md");
    unsigned count = 0;
    for (const char* const text :
         {"x = 1", "[effort]\nx = 1", "[[folder]]\nx = 1", "[reference]\nx = 1"}) {
        const std::string message = refusal(text);
        const std::string_view front = "Allowed here: ";
        ASSERT_NE(message.find(front), std::string::npos);
        std::istringstream keys(message.substr(message.find(front) + front.size()));
        for (std::string key; keys >> key; ++count) {
            key.pop_back();
            EXPECT_NE(page.find("`" + key + "`"), std::string::npos) << key;
        }
    }
    EXPECT_EQ(count, 13U + 4U + 2U + 7U);
}

/// Whatever is cut off or changed: a project or a message.
TEST(ProjectFile, BrokenInAnyPlace) {
    const std::string whole = everyKey;
    unsigned refused = 0;
    for (std::size_t i = 0; i < whole.size(); i += 9) {
        refused += refusal(whole.substr(0, i)).empty() ? 0 : 1;
        for (const char c : {'[', '"', '\n', '=', '\0', '\xFF'}) {
            std::string changed = whole;
            changed[i] = c;
            refused += refusal(changed).empty() ? 0 : 1;
        }
    }
    EXPECT_GT(refused, whole.size() / 9);
}

}  // namespace torvel::migrate::test
