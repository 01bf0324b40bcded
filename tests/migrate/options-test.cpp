// The command line of torvel-migrate.

#include "src/migrate/options.h"

#include <gtest/gtest.h>

#include "tests/support/temporary-directory.h"

namespace torvel::migrate::test {

TEST(Options, Convert) {
    const ParsedOptions parsed = parseOptions(
        {"convert", "a", "b b", "-o", "out", "-p", "machine.xml", "-j", "3", "--exclude", "old/**",
         "--exclude", "x", "--fail-on", "moves,rewrite", "--keep-extension", "--quiet"});
    ASSERT_TRUE(parsed.options) << parsed.error;
    const Options& options = *parsed.options;
    EXPECT_EQ(options.subcommand, Subcommand::convert);
    EXPECT_EQ(options.sources, (std::vector<std::string>{"a", "b b"}));
    EXPECT_EQ(options.output, "out");
    EXPECT_EQ(options.parameters, "machine.xml");
    EXPECT_EQ(options.threads, 3U);
    EXPECT_EQ(options.exclude, (std::vector<std::string>{"old/**", "x"}));
    EXPECT_EQ(options.failOn, (std::vector<std::string>{"moves", "rewrite"}));
    EXPECT_TRUE(options.keepExtension);
    EXPECT_TRUE(options.isQuiet);
    EXPECT_FALSE(options.rebuild);
    EXPECT_EQ(options.project, std::nullopt);
}

TEST(Options, TheOtherCommands) {
    EXPECT_EQ(parseOptions({"status", "a", "b"}).options->outputs,
              (std::vector<std::string>{"a", "b"}));
    const ParsedOptions report =
        parseOptions({"report", "--json", "-", "--junit", "j.xml", "--project", "p.toml"});
    EXPECT_EQ(report.options->subcommand, Subcommand::report);
    EXPECT_EQ(report.options->json, "-");
    EXPECT_EQ(report.options->junit, "j.xml");
    EXPECT_EQ(report.options->project, "p.toml");
    EXPECT_EQ(parseOptions({"explain", "value-cut"}).options->code, "value-cut");
    EXPECT_TRUE(parseOptions({"explain", "--list"}).options->listCodes);
    const ParsedOptions accept = parseOptions({"accept", "--code", "octal", "a.pgm"});
    EXPECT_EQ(accept.options->acceptedCodes, (std::vector<std::string>{"octal"}));
    EXPECT_EQ(accept.options->acceptedPrograms, (std::vector<std::string>{"a.pgm"}));
}

TEST(Options, HelpAndVersionAreNoErrors) {
    for (const char* const command : {"convert", "status", "report", "explain", "accept"}) {
        const ParsedOptions help = parseOptions({command, "--help"});
        EXPECT_EQ(help.status, 0);
        EXPECT_EQ(help.error, "");
        EXPECT_NE(help.output.find("Example"), std::string::npos) << command;
        EXPECT_NE(help.output.find(std::string("torvel-migrate ") + command), std::string::npos);
        EXPECT_FALSE(help.options);
    }
    EXPECT_EQ(parseOptions({"--version"}).output, "torvel-migrate 1.0.0\n");
    EXPECT_EQ(parseOptions({"--help"}).status, 0);
}

TEST(Options, WrongUseEndsWithTwo) {
    const std::vector<std::vector<std::string>> wrong = {
        {},
        {"migrate"},
        {"convert", "--jobs"},
        {"convert", "-j", "0"},
        {"convert", "-j", "many"},
        {"convert", "--fail-on", "sometimes"},
        {"convert", "--unknown"},
        {"explain"},
        {"explain", "a", "b"},
        {"explain", "a", "--list"},
        {"status", "--json", "x"},
    };
    for (const std::vector<std::string>& arguments : wrong) {
        const ParsedOptions parsed = parseOptions(arguments);
        EXPECT_EQ(parsed.status, 2);
        EXPECT_FALSE(parsed.options);
        EXPECT_EQ(parsed.output, "");
        EXPECT_NE(parsed.error, "");
    }
}

TEST(Options, TheProjectFileInFrontOfTheCommand) {
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"--project", "p.toml", "status"},
          {"--project=p.toml", "status"},
          {"status", "--project", "p.toml"}}) {
        const ParsedOptions parsed = parseOptions(arguments);
        ASSERT_TRUE(parsed.options) << parsed.error;
        EXPECT_EQ(parsed.options->subcommand, Subcommand::status);
        EXPECT_EQ(parsed.options->project, "p.toml");
        EXPECT_TRUE(parsed.options->outputs.empty());
    }
}

TEST(Options, ACommandThatThereIsNot) {
    const std::string rest =
        " The commands are convert, status, report, explain and accept.\n"
        "Run with --help for more information.\n";
    EXPECT_EQ(parseOptions({"stat"}).error,
              "There is no command 'stat'. The commands are convert, status, report, explain and "
              "accept.\nRun with --help for more information.\n");
    EXPECT_EQ(parseOptions({"--project", "p.toml", "stat"}).error,
              "There is no command 'stat'." + rest);
    EXPECT_EQ(parseOptions({}).error, "No command is named." + rest);
    EXPECT_EQ(parseOptions({"--project", "status"}).error, "No command is named." + rest);
}

TEST(Options, EmptyPathsAreRefused) {
    const std::vector<std::vector<std::string>> wrong = {
        {"convert", ""},
        {"convert", "-o", ""},
        {"convert", "-p", ""},
        {"convert", "--store", ""},
        {"convert", "--baseline", ""},
        {"convert", "--project", ""},
        {"status", ""},
        {"status", "--store", ""},
        {"report", "--json", ""},
        {"report", "--csv", ""},
        {"report", "--programs-csv", ""},
        {"report", "--sarif", ""},
        {"report", "--junit", ""},
        {"report", ""},
        {"accept", ""},
        {"accept", "-o", ""},
        {"--project", "", "status"},
    };
    for (const std::vector<std::string>& arguments : wrong) {
        const ParsedOptions parsed = parseOptions(arguments);
        EXPECT_EQ(parsed.status, 2);
        EXPECT_FALSE(parsed.options);
        EXPECT_NE(parsed.error.find("A path is empty: name a file or a folder."), std::string::npos)
            << parsed.error;
    }
}

TEST(Options, AStoreOrOutputs) {
    for (const char* const command : {"status", "report"}) {
        const ParsedOptions both = parseOptions({command, "converted", "--store", "s.sqlite"});
        EXPECT_EQ(both.status, 2);
        EXPECT_FALSE(both.options);
        EXPECT_EQ(both.error,
                  "--store names the store that is read, and so does OUTPUT: give one of the two.\n"
                  "Run with --help for more information.\n");
        EXPECT_TRUE(parseOptions({command, "--store", "s.sqlite"}).options);
    }
}

TEST(Options, PatternsAreThoseOfTheProjectFile) {
    const ParsedOptions parsed = parseOptions({"convert", "--programs", "./line1\\*.pgm",
                                               "--always", "tests/", "--exclude", ".\\old\\**"});
    ASSERT_TRUE(parsed.options) << parsed.error;
    EXPECT_EQ(parsed.options->programs, (std::vector<std::string>{"line1/*.pgm"}));
    EXPECT_EQ(parsed.options->programsAlways, (std::vector<std::string>{"tests"}));
    EXPECT_EQ(parsed.options->exclude, (std::vector<std::string>{"old/**"}));
    for (const char* const option : {"--programs", "--always", "--exclude"}) {
        const ParsedOptions refused = parseOptions({"convert", option, "a/[bc"});
        EXPECT_EQ(refused.status, 2);
        EXPECT_FALSE(refused.options);
        EXPECT_NE(refused.error.find("The pattern 'a/[bc' "), std::string::npos) << refused.error;
    }
}

TEST(Options, StandInPlaceOfTheProject) {
    const torvel::test::TemporaryDirectory directory;
    std::filesystem::create_directories(directory.path() / "plant/line1");
    Project project;
    project.folder = directory.path() / "plant";
    project.sources = {"programs"};
    project.exclude = {"old/**"};
    project.output = "converted";
    const std::string elsewhere = (directory.path() / "elsewhere").string();
    const Options options =
        *parseOptions({"convert", ".", "../other", "-o", elsewhere, "-p", "m.xml"}).options;
    applyOptions(options, directory.path() / "plant/line1", project);
    EXPECT_EQ(project.sources, (std::vector<std::string>{"line1", "other"}));
    EXPECT_EQ(project.exclude, (std::vector<std::string>{"old/**"}));
    EXPECT_EQ(project.parameters, "line1/m.xml");
    EXPECT_EQ(project.output, "../elsewhere");
}

}  // namespace torvel::migrate::test
