// The same program gives the same bytes whatever surrounds the run: locale, time zone, environment,
// working directory, and the way in which paths are spelled. Each example is converted under all of them.

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "src/app/command.h"
#include "tests/limits/conversions.h"
#include "tests/limits/run-program.h"
#include "tests/support/temporary-directory.h"

namespace torvel::test {

namespace {

namespace fs = std::filesystem;

/// An example that is converted: its folder in the repository and its program.
struct Example {
    std::string name;
    fs::path folder;
};

std::vector<Example> examples() {
    const fs::path root = fs::path(TORVEL_SOURCE_DIR) / "examples";
    std::vector<Example> found;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        if (fs::exists(entry.path() / "main.pgm")) {
            const std::string name = entry.path().lexically_relative(root).generic_string();
            found.push_back({name, entry.path()});
        }
    }
    return found;
}

struct Results {
    std::string output;
    std::string log;
};

Results resultsIn(const fs::path& folder) {
    return {readFile(folder / "main.torvel"), readFile(folder / "main.log")};
}

void expectSame(const Results& expected, const Results& actual) {
    EXPECT_EQ(firstDifference(expected.output, actual.output), "");
    EXPECT_EQ(firstDifference(expected.log, actual.log), "");
}

void PrintTo(const Example& example, std::ostream* stream) {
    *stream << example.name;
}

/// A copy of an example in a folder `place/here`, with links and an empty folder for results beside it.
class Copy {
public:
    explicit Copy(const Example& example) {
        fs::create_directories(root() / "place/out");
        fs::copy(example.folder, root() / "place/here", fs::copy_options::recursive);
        fs::create_directory_symlink("place", root() / "link");
        hasParameters_ = fs::exists(root() / "place/here/machine.xml");
    }

    const fs::path& root() const { return directory_.path(); }
    fs::path here() const { return root() / "place/here"; }

    /// Converts the example, its folder spelled `folder`, in a working directory and an environment.
    Results run(const std::string& folder, const fs::path& workingDirectory,
                std::vector<std::pair<std::string, std::string>> environment = {}) const {
        ProgramStart start{.directory = workingDirectory, .environment = std::move(environment)};
        if (hasParameters_) {
            start.arguments = {"-p", folder + "machine.xml"};
        }
        const fs::path out = root() / "place/out";
        start.arguments.insert(start.arguments.end(), {"-o", out.string(), folder + "main.pgm"});
        const ProgramEnd end = runProgram(start);
        EXPECT_EQ(endOf(end), "status 0") << end.standardError;
        Results results = resultsIn(out);
        fs::remove(out / "main.torvel");
        fs::remove(out / "main.log");
        return results;
    }

private:
    TemporaryDirectory directory_;
    bool hasParameters_ = false;
};

/// Locales that write numbers, or the letters i and I, in their own way. The build makes them.
const fs::path locales = TORVEL_LOCALES;

bool hasLocales() {
    return fs::exists(locales / "de_DE.UTF-8/LC_NUMERIC") &&
           fs::exists(locales / "tr_TR.UTF-8/LC_NUMERIC");
}

class SameBytes : public testing::TestWithParam<Example> {};

TEST_P(SameBytes, InEveryEnvironment) {
    const Copy copy(GetParam());
    const Results expected = copy.run("", copy.here());
    EXPECT_FALSE(expected.output.empty());
    using Environment = std::vector<std::pair<std::string, std::string>>;
    for (const Environment& environment :
         {Environment{{"LC_ALL", "C"}},
          {{"LC_ALL", "C.UTF-8"}},
          {{"LC_ALL", "de_DE.UTF-8"}, {"LOCPATH", locales.string()}},
          {{"LC_ALL", "tr_TR.UTF-8"}, {"LOCPATH", locales.string()}},
          {{"LC_ALL", "no such locale"}},
          {{"TZ", "Pacific/Kiritimati"}},
          {{"TZ", "nonsense"}},
          {{"HOME", "/nowhere"}, {"TMPDIR", "/nowhere"}, {"PATH", ""}, {"PWD", "/nowhere"}},
          {{"LANGUAGE", "de:tr"}, {"MALLOC_PERTURB_", "165"}}}) {
        SCOPED_TRACE(environment.front().first + "=" + environment.front().second);
        expectSame(expected, copy.run("", copy.here(), environment));
    }
}

TEST_P(SameBytes, HoweverPathsAreSpelled) {
    const Copy copy(GetParam());
    const Results expected = copy.run("", copy.here());
    const std::string root = copy.root().string() + '/';
    for (const std::string& folder :
         std::vector<std::string>{root + "place/here/", root + "link/here/",
                                  root + "place/../link//here/./", root + "place/out/../here/"}) {
        SCOPED_TRACE(folder);
        expectSame(expected, copy.run(folder, "/"));
    }
    for (const auto& [folder, workingDirectory] :
         std::vector<std::pair<std::string, std::string>>{{"./", "place/here"},
                                                          {"here/", "place"},
                                                          {"./out/../here/", "place"},
                                                          {"../here/", "place/out"},
                                                          {"here/", "link"},
                                                          {"../../link/here/", "link/out"},
                                                          {"place/here/", ""}}) {
        SCOPED_TRACE(folder + " in " + workingDirectory);
        expectSame(expected, copy.run(folder, copy.root() / workingDirectory));
    }
}

TEST(SameMessages, HoweverPathsAreSpelled) {
    const TemporaryDirectory directory;
    const fs::path& root = directory.path();
    writeFile(root / "place/main.pgm", "#include \"sub/a.pgm\"\n");
    writeFile(root / "place/sub/a.pgm", "#include \"../../other/b.pgm\"\n");
    writeFile(root / "other/b.pgm", "$a = 1\n#endif\n");
    fs::create_directories(root / "far/away");
    fs::create_directory_symlink("../place", root / "far/link");
    for (const auto& [program, workingDirectory] : std::vector<std::pair<std::string, fs::path>>{
             {"main.pgm", root / "place"},
             {"./main.pgm", root / "far/link"},
             {"place/sub/../main.pgm", root},
             {"../../place/main.pgm", root / "far/away"},
             {"../link/main.pgm", root / "far/away"},
             {(root / "far/link/main.pgm").string(), "/"}}) {
        SCOPED_TRACE(program);
        const ProgramEnd end = runProgram({.arguments = {program}, .directory = workingDirectory});
        EXPECT_EQ(endOf(end), "status 1");
        EXPECT_EQ(end.standardError,
                  "../other/b.pgm:2: Unexpected #endif seen.\n"
                  "In file included from sub/a.pgm:1,\n"
                  "                 from main.pgm:1\n\n");
    }
}

TEST_P(SameBytes, AgainAndAgainInOneProcess) {
    const Copy copy(GetParam());
    const Results expected = copy.run("", copy.here());
    const std::string folder = copy.here().string() + '/';
    for (int i = 0; i < 3; ++i) {
        std::vector<std::string> arguments = {"-o", (copy.root() / "place/out").string(),
                                              folder + "main.pgm"};
        if (fs::exists(folder + "machine.xml")) {
            arguments.insert(arguments.begin(), {"-p", folder + "machine.xml"});
        }
        ASSERT_EQ(runCommand(arguments).status, 0);
        expectSame(expected, resultsIn(copy.root() / "place/out"));
    }
}

/// The program never sets a locale; a process that has set one gets the same all the same.
TEST_P(SameBytes, InAProcessWithALocale) {
    if (!hasLocales()) {
        GTEST_SKIP() << "the build could not make the locales; script/setup installs what it needs";
    }
    const Copy copy(GetParam());
    const Results expected = copy.run("", copy.here());
    ASSERT_EQ(setenv("LOCPATH", locales.c_str(), 1), 0);
    for (const char* name : {"de_DE.UTF-8", "tr_TR.UTF-8"}) {
        ASSERT_NE(std::setlocale(LC_ALL, name), nullptr) << name;
        EXPECT_EQ(std::string(std::localeconv()->decimal_point), ",");
        std::vector<std::string> arguments = {"-o", (copy.root() / "place/out").string(),
                                              (copy.here() / "main.pgm").string()};
        if (fs::exists(copy.here() / "machine.xml")) {
            arguments.insert(arguments.begin(), {"-p", (copy.here() / "machine.xml").string()});
        }
        const CommandResult result = runCommand(arguments);
        std::setlocale(LC_ALL, "C");
        ASSERT_EQ(result.status, 0) << result.standardError;
        expectSame(expected, resultsIn(copy.root() / "place/out"));
    }
    unsetenv("LOCPATH");
}

INSTANTIATE_TEST_SUITE_P(Examples, SameBytes, testing::ValuesIn(examples()),
                         [](const auto& tested) {
                             std::string name = tested.param.name;
                             for (char& c : name) {
                                 c = c == '-' || c == '/' ? '_' : c;
                             }
                             return name;
                         });

}  // namespace

}  // namespace torvel::test
