// The commands of torvel-migrate from the arguments to what the user sees and the files that there are.

#include "src/migrate/commands.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "src/app/command.h"
#include "src/migrate/embedded-pages.h"
#include "src/migrate/folder-list.h"
#include "src/migrate/store-lock.h"
#include "tests/migrate/html-decoding.h"
#include "tests/support/temporary-directory.h"

namespace torvel::migrate::test {

namespace {

using torvel::test::readFile;
using torvel::test::writeFile;

struct Outcome {
    int status = 0;
    std::string output;
    std::string error;
};

/// A folder that is the working directory while it lives.
class CommandTest : public ::testing::Test {
protected:
    CommandTest() : before_(std::filesystem::current_path()) {
        std::filesystem::current_path(directory_.path());
    }
    ~CommandTest() override { std::filesystem::current_path(before_); }

    NativePath path(const std::string& name) const { return directory_.path() / name; }
    void write(const std::string& name, std::string_view text) const {
        writeFile(path(name), text);
    }
    /// Line feeds at the ends of lines, on every system.
    std::string read(const std::string& name) const {
        std::string text = readFile(path(name));
        std::erase(text, '\r');
        return text;
    }

    Outcome run(const std::vector<std::string>& arguments) const {
        Outcome outcome;
        const Console console{[&](std::string_view text) { outcome.output += text; },
                              [&](std::string_view text) { outcome.error += text; },
                              [] { return Terminal(); },
                              [this] {
                                  // Asked for when the first program was converted.
                                  isInterrupted_ = isInterrupted_ || isInterruptedLater_;
                                  return Terminal();
                              },
                              [this] {
                                  ++catches_;
                                  return &isInterrupted_;
                              }};
        outcome.status = runMigrate(arguments, console);
        return outcome;
    }

    nlohmann::json report(const std::vector<std::string>& outputs = {}) const {
        std::vector<std::string> arguments{"report", "--json", "-"};
        arguments.insert(arguments.end(), outputs.begin(), outputs.end());
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.error;
        return nlohmann::json::parse(outcome.output);
    }

    mutable std::atomic<bool> isInterrupted_ = false;
    bool isInterruptedLater_ = false;
    /// How often a command wanted to end in good order.
    mutable int catches_ = 0;

private:
    torvel::test::TemporaryDirectory directory_;
    NativePath before_;
};

/// Whether a text begins with another one; the rest tells of times.
bool begins(const std::string& text, std::string_view beginning) {
    return text.starts_with(beginning);
}

}  // namespace

TEST_F(CommandTest, ConvertWithoutAProjectFile) {
    write("programs/a.pgm", "#include \"inc/b.pgm\"\nG1 X1\nPROBE X\n");
    write("programs/inc/b.pgm", "DVAR $a\n");
    write("programs/sub/c.prg", "HOME Spindle\n");
    write("machine.xml",
          "<Controller><Parameters><Axes><Axis><P n=\"AxisName\">Spindle</P></Axis></Axes>"
          "</Parameters></Controller>");
    const Outcome outcome = run({"convert", "programs", "-o", "converted", "-p", "machine.xml"});

    EXPECT_EQ(outcome.status, 0) << outcome.error;
    EXPECT_EQ(outcome.error, "");
    EXPECT_TRUE(begins(outcome.output, "Converted 2 programs in ")) << outcome.output;
    EXPECT_EQ(read("converted/a.torvel"),
              "// #include \"inc/b.pgm\" // start\n"
              "var $a\n"
              "\n"
              "// #include \"inc/b.pgm\" // end\n"
              "#error_unconvertible (a.pgm:2): G1 X1\n"
              "#error_unconvertible (a.pgm:3): PROBE X\n"
              "\n");
    EXPECT_EQ(read("converted/sub/c.torvel"), "Home(Spindle)\n\n");
    EXPECT_EQ(read("converted/sub/c.log"), "");
    EXPECT_FALSE(std::filesystem::exists(path("converted/inc/b.torvel")));
}

TEST_F(CommandTest, OutputsAreThoseOfTheConverter) {
    std::filesystem::copy(NativePath(TORVEL_SOURCE_DIR) / "examples/plant", path("."),
                          std::filesystem::copy_options::recursive);
    EXPECT_EQ(run({"convert", "-q"}).status, 0);
    const nlohmann::json plant = report();
    ASSERT_EQ(plant["programs"].size(), 40U);
    std::size_t compared = 0;
    for (const nlohmann::json& program : plant["programs"]) {
        const std::string source = program["path"];
        std::vector<std::string> arguments{"-o", path("alone").string(), path(source).string()};
        if (const std::string machine = program["machine"]; !machine.empty()) {
            arguments.insert(arguments.begin(), {"-p", path(machine + "/machine.xml").string()});
        }
        std::filesystem::create_directories(path("alone"));
        if (program["status"] != "converted" || runCommand(arguments).status != 0) {
            continue;  // an include in another case
        }
        const std::string stem = NativePath(source).stem().string();
        const std::string output = program["output"];
        if (stem != "labels") {  // it uses a name of the site
            EXPECT_EQ(read("alone/" + stem + ".torvel"), read(output)) << source;
            EXPECT_EQ(read("alone/" + stem + ".log"),
                      read(output.substr(0, output.size() - 6) + "log"))
                << source;
            ++compared;
        }
    }
    EXPECT_GE(compared, 20U);
}

TEST_F(CommandTest, ASecondRunHasNothingToDo) {
    write("programs/a.pgm", "G1 X1\n");
    write("programs/b.pgm", "G1 X2\n");
    EXPECT_EQ(run({"convert", "programs"}).status, 0);
    const Outcome second = run({"convert", "programs"});
    EXPECT_TRUE(begins(second.output, "Converted 0 programs in "));
    EXPECT_NE(second.output.find("; 2 had not changed.\n"), std::string::npos) << second.output;
    write("programs/b.pgm", "G1 X3\n");
    const Outcome third = run({"convert", "programs", "--quiet"});
    EXPECT_EQ(third.output, "");
    EXPECT_EQ(read("converted/b.torvel"), "G1 X3\n\n");
    std::filesystem::remove(path("programs/a.pgm"));
    const Outcome fourth = run({"convert", "programs"});
    EXPECT_NE(fourth.output.find("; 1 had not changed; 1 is not there any more.\n"),
              std::string::npos)
        << fourth.output;
}

TEST_F(CommandTest, ProgramsOfAMachineThatChanged) {
    const auto machine = [](const std::string& axis) {
        return "<Machine><Parameters><Axes><Axis><P n=\"AxisName\">" + axis +
               "</P></Axis></Axes></Parameters></Machine>";
    };
    const auto ranWith = [this](const std::string& text) {
        const Outcome outcome = run({"convert"});
        EXPECT_EQ(outcome.status, 0) << outcome.error;
        const std::string line = outcome.output.substr(0, outcome.output.find('\n'));
        EXPECT_TRUE(line.ends_with(text)) << line;
        EXPECT_EQ(line.find("machine") != std::string::npos,
                  text.find("machine") != std::string::npos)
            << line;
    };
    write("programs/a.pgm", "G1 X1\n");
    write("programs/b.pgm", "G1 X2\n");
    write("programs/line2/c.pgm", "HOME LIFT\n");
    write("line2.xml", machine("LIFT"));
    const std::string sources = "sources = [\"programs\"]\n";
    const std::string folder =
        "[[folder]]\npath = \"programs/line2\"\nparameters = \"line2.xml\"\n";
    write("migration.toml", sources);
    ranWith(" a second).");
    // The folder becomes that of a machine of its own, whose parameter file changes then.
    write("migration.toml", sources + folder);
    ranWith(" a second), because its machine changed; 2 had not changed.");
    write("line2.xml", machine("HOIST"));
    write("programs/a.pgm", "G1 X3\n");
    ranWith(" a second), 1 of them because its machine changed; 1 had not changed.");
    // A row of the site is for all machines.
    write("migration.toml",
          sources + folder + "[reference]\naxis_parameters = { 11 = \"Gain\" }\n");
    ranWith(" a second), all of them because their machine changed.");
    write("programs/line2/c.pgm", "HOME HOIST\n");
    ranWith(" a second); 2 had not changed.");
}

TEST_F(CommandTest, TheListGetsShorterAndEditsStay) {
    write("migration.toml", "sources = [\"programs\"]\n");
    write("programs/a.pgm", "G1 X1\nPROBE X\nPROBE Y\nG1 X4\n");
    EXPECT_EQ(run({"convert"}).status, 0);
    EXPECT_EQ(report()["totals"]["open"]["rewrite"]["inOutputs"], 2);
    write("converted/a.torvel",
          "G1 X1\nProbeByHand(X)\n#error_unconvertible (a.pgm:3): PROBE Y\nG1 X4\n\n");
    EXPECT_EQ(report()["totals"]["open"]["rewrite"]["inOutputs"], 1);
    EXPECT_EQ(report()["programs"][0]["status"], "edited");

    // A line at the top of the source moves the marker; another one changes in a line of its own.
    write("programs/a.pgm", "; head\nG1 X1\nPROBE X\nPROBE Y\nG1 X4\n\n\nG1 X5\n");
    EXPECT_EQ(run({"convert"}).status, 0);
    EXPECT_EQ(read("converted/a.torvel"),
              "// head\nG1 X1\nProbeByHand(X)\n#error_unconvertible (a.pgm:4): PROBE Y\nG1 X4\n\n\n"
              "G1 X5\n\n");
    EXPECT_EQ(report()["totals"]["open"]["rewrite"]["inOutputs"], 1);
}

TEST_F(CommandTest, EditsThatCannotBeMergedWaitForAPerson) {
    write("programs/a.pgm", "G1 X1\nG1 X2\nG1 X3\n");
    EXPECT_EQ(run({"convert", "programs"}).status, 0);
    write("converted/a.torvel", "G1 X1\nG1 X2.5\nG1 X3\n\n");
    write("programs/a.pgm", "G1 X1\nG1 X7\nG1 X3\n");
    const Outcome outcome = run({"convert", "programs"});
    EXPECT_NE(outcome.error.find("a.torvel was edited in lines that the converter generates in "
                                 "another way now."),
              std::string::npos)
        << outcome.error;
    EXPECT_EQ(read("converted/a.torvel"), "G1 X1\nG1 X2.5\nG1 X3\n\n");
    const std::string conflict = read("converted/a.torvel.conflict");
    for (const char* const text : {"G1 X2.5\n", "G1 X2\n", "G1 X7\n"}) {
        EXPECT_NE(conflict.find(text), std::string::npos) << conflict;
    }
    EXPECT_EQ(report({"converted"})["programs"][0]["outputState"], "conflict");
    // A person decides for the new text.
    write("converted/a.torvel", "G1 X1\nG1 X7\nG1 X3\n\n");
    std::filesystem::remove(path("converted/a.torvel.conflict"));
    EXPECT_EQ(run({"convert", "programs"}).error, "");
    EXPECT_EQ(report({"converted"})["programs"][0]["outputState"], "as-generated");
}

TEST_F(CommandTest, ALogThatAPersonWroteStays) {
    // Sources and outputs are one folder, and a note lies in the log's place.
    write("part.pgm", "PROBE X\n");
    write("part.log", "measured on Monday\n");
    const std::string stays =
        "part.log is there, and it is not the log that was written last, so it stays as it is.";
    const auto convert = [&] { return run({"convert", ".", "-o", "."}); };
    for (int i = 0; i < 2; ++i) {  // told as long as it is so
        const Outcome outcome = convert();
        EXPECT_EQ(outcome.status, 0);
        EXPECT_NE(outcome.error.find(stays), std::string::npos) << outcome.error;
        EXPECT_EQ(read("part.log"), "measured on Monday\n");
    }
    EXPECT_TRUE(std::filesystem::exists(path("part.torvel")));

    std::filesystem::remove(path("part.log"));
    EXPECT_EQ(convert().error, "");
    const std::string log = read("part.log");
    EXPECT_NE(log.find("PROBE is no longer supported."), std::string::npos) << log;
    EXPECT_TRUE(begins(convert().output, "Converted 0 programs"));

    // It is ours, and is written anew.
    write("part.pgm", "G1 X1\n");
    EXPECT_EQ(convert().error, "");
    EXPECT_EQ(read("part.log"), "");

    // A person writes into it; what is generated becomes equal to it.
    write("part.log", log);
    write("part.pgm", "G1 X2\n");
    EXPECT_NE(convert().error.find(stays), std::string::npos);
    EXPECT_EQ(read("part.log"), log);
    write("part.pgm", "PROBE X\n");
    EXPECT_EQ(convert().error, "");
    write("part.pgm", "G1 X3\n");
    EXPECT_EQ(convert().error, "");
    EXPECT_EQ(read("part.log"), "");
}

TEST_F(CommandTest, ALogBesideAnOutputOfUnknownOrigin) {
    write("programs/part.pgm", "G1 X1\n");
    write("converted/part.torvel", "somebody else's\n");
    write("converted/part.log", "somebody else's too\n");
    const Outcome outcome = run({"convert", "programs"});
    EXPECT_NE(outcome.error.find("part.torvel is there, and the store does not know"),
              std::string::npos)
        << outcome.error;
    EXPECT_NE(outcome.error.find("part.log is there, and it is not the log"), std::string::npos)
        << outcome.error;
    EXPECT_EQ(read("converted/part.torvel"), "somebody else's\n");
    EXPECT_EQ(read("converted/part.log"), "somebody else's too\n");
}

TEST_F(CommandTest, AnOutputOfAProgramThatIsStillThere) {
    write("programs/line1/part.pgm", "G1 X1\n");
    write("programs/line2/part.pgm", "G1 X2\n");
    EXPECT_EQ(run({"convert", "programs/line1", "-o", "out"}).status, 0);
    write("out/part.torvel", "G1 X1\n\n// of line 1\n");
    const std::string sentence =
        "out/part.torvel: Its output \"out/part.torvel\" belongs to \"programs/line1/part.pgm\", "
        "which is still there, so it was not converted. Convert the two in one run, or give one of "
        "them another output folder.\n";
    for (int i = 0; i < 2; ++i) {
        const Outcome second = run({"convert", "programs/line2", "-o", "out"});
        EXPECT_EQ(second.error, sentence);
        EXPECT_EQ(read("out/part.torvel"), "G1 X1\n\n// of line 1\n");
        const nlohmann::json told = report({"out"});
        ASSERT_EQ(told["programs"].size(), 1U);
        EXPECT_EQ(told["programs"][0]["status"], "collides");
        EXPECT_EQ(told["programs"][0]["findings"][0]["code"], "output-collides");
    }
    // Its own program is converted as ever, with what was edited.
    write("programs/line1/part.pgm", "G1 X11\n");
    EXPECT_EQ(run({"convert", "programs/line1", "-o", "out"}).error, "");
    EXPECT_EQ(read("out/part.torvel"), "G1 X11\n\n// of line 1\n");

    // A program that has gone leaves its output to the other one.
    std::filesystem::rename(path("programs/line1/part.pgm"), path("part.pgm"));
    EXPECT_EQ(run({"convert", "programs/line2", "-o", "out"}).error, "");
    EXPECT_EQ(read("out/part.torvel"), "G1 X2\n\n// of line 1\n");

    // An output that was moved away makes room.
    std::filesystem::rename(path("part.pgm"), path("programs/line1/part.pgm"));
    std::filesystem::rename(path("out/part.torvel"), path("part.torvel"));
    EXPECT_EQ(run({"convert", "programs/line1", "-o", "out"}).error, "");
    EXPECT_EQ(read("out/part.torvel"), "G1 X11\n\n");
}

TEST_F(CommandTest, OutputsThatCannotBePutInPlace) {
    write("programs/a.pgm", "PROBE X\n");
    write("programs/b.pgm", "G1 X1\n");
    write("programs/sub/c.pgm", "PROBE X\n");
    write("converted/sub", "a file where a folder is needed\n");
    EXPECT_TRUE(std::filesystem::create_directories(path("converted/b.log")));
    const auto states = [&] {
        std::vector<std::string> names;
        const nlohmann::json told = report({"converted"});
        for (const nlohmann::json& program : told["programs"]) {
            names.push_back(program["outputState"]);
            EXPECT_EQ(program["status"],
                      names.back() == "as-generated" ? "converted" : names.back());
        }
        return names;
    };
    using Names = std::vector<std::string>;
    const std::string sentence =
        " converted to could not be put in place; it is told above why. The rest is done. Change "
        "that, and convert again.\n";
    Outcome outcome = run({"convert", "programs", "-q"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.error.find("What 2 programs were" + sentence), std::string::npos)
        << outcome.error;
    EXPECT_NE(outcome.error.find("b.log is a folder"), std::string::npos) << outcome.error;
    EXPECT_EQ(states(), (Names{"as-generated", "as-generated", "not-written"}));
    // What nobody could have finished is open.
    EXPECT_EQ(report({"converted"})["totals"]["open"]["rewrite"]["inOutputs"], 2);

    // A newer output cannot be put in place of an older one.
    std::filesystem::remove(path("converted/b.log"));
    std::filesystem::remove(path("converted/sub"));
    EXPECT_EQ(run({"convert", "programs"}).status, 0);
    EXPECT_EQ(states(), Names(3, "as-generated"));
    write("programs/a.pgm", "PROBE X\nPROBE Y\n");
    std::filesystem::permissions(path("converted/a.torvel"), std::filesystem::perms::owner_read);
    outcome = run({"convert", "programs"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.error.find("What 1 program was" + sentence), std::string::npos)
        << outcome.error;
    EXPECT_EQ(states(), (Names{"not-written", "as-generated", "as-generated"}));
    EXPECT_NE(run({"status", "converted"})
                  .output.find("  1 with a new output that could not be put in its place\n"
                               "    programs/a.pgm\n"),
              std::string::npos);
    std::filesystem::permissions(path("converted/a.torvel"), std::filesystem::perms::owner_all);
    EXPECT_EQ(run({"convert", "programs"}).status, 0);
    EXPECT_EQ(states(), Names(3, "as-generated"));
}

// As when a disk is not there.
TEST_F(CommandTest, SourcesWithoutPrograms) {
    write("programs/a.pgm", "PROBE X\n");
    EXPECT_EQ(run({"convert", "programs"}).status, 0);
    std::filesystem::rename(path("programs/a.pgm"), path("a.pgm"));
    const std::string store = readFile(path("converted/migration.sqlite"));
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"convert", "programs"},
          std::vector<std::string>{"convert", "programs", "-q", "--rebuild"}}) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.output, "");
        EXPECT_EQ(outcome.error,
                  "No programs were found in the sources; 'programs' tells what counts as one: "
                  "'**/*.pgm' and '**/*.prg'.\n"
                  "Nothing was converted; the store and the outputs stay as they are.\n");
        EXPECT_EQ(readFile(path("converted/migration.sqlite")), store);
    }
    std::filesystem::rename(path("a.pgm"), path("programs/a.pgm"));
    EXPECT_TRUE(begins(run({"convert", "programs"}).output, "Converted 0 programs"));
}

TEST_F(CommandTest, OneSourceWithoutPrograms) {
    write("line1/a.pgm", "G1 X1\n");
    write("line2/b.pgm", "G1 X2\n");
    const std::vector<std::string> both{"convert", "line1", "line2", "-q"};
    EXPECT_EQ(run(both).status, 0);
    std::filesystem::rename(path("line2/b.pgm"), path("b.pgm"));
    const Outcome outcome = run(both);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.error,
              "line2: No programs were found in it, though there were before; what is known of 1 "
              "program in it stays as it is. If they are gone for good, name this source no "
              "more.\n");
    const nlohmann::json told = report({"converted"});
    EXPECT_EQ(told["programs"].size(), 2U);
    EXPECT_EQ(told["notices"].size(), 1U) << told["notices"];
    // Neither may another program have its output.
    EXPECT_EQ(run({"convert", "line1", "-q"}).status, 0);
    EXPECT_EQ(report({"converted"})["programs"].size(), 1U);
}

TEST_F(CommandTest, WhatAnOutputOfUnknownOriginLacksIsNotFinished) {
    write("migration.toml", "sources = [\"programs\"]\n");
    write("programs/a.pgm", "G1 X1\nPROBE X\n");
    EXPECT_EQ(run({"convert"}).status, 0);
    EXPECT_EQ(run({"accept"}).status, 0);
    // The program changes, and what was generated before is there without the store that says so.
    std::filesystem::remove(path("converted/migration.sqlite"));
    write("programs/a.pgm", "G1 X1\nPROBE X\nPROBE Y\n");
    const Outcome outcome = run({"convert", "--quiet"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_NE(outcome.error.find("programs/a.pgm:3: PROBE is no longer supported."),
              std::string::npos)
        << outcome.error;
    EXPECT_EQ(report()["programs"][0]["outputState"], "foreign");
    EXPECT_EQ(report()["totals"]["open"]["rewrite"]["inOutputs"], 2);
}

TEST_F(CommandTest, AConflictFileThatIsDeletedMeansThatTheEditsStay) {
    write("programs/a.pgm", "G1 X1\nG1 X2\nG1 X3\n\n\nG1 X4\n");
    EXPECT_EQ(run({"convert", "programs"}).status, 0);
    const std::string mine = "G1 X1\nG1 X2.5\nG1 X3\n\n\nG1 X4\n\n";
    write("converted/a.torvel", mine);
    write("programs/a.pgm", "G1 X1\nG1 X7\nG1 X3\n\n\nG1 X8\n");
    EXPECT_EQ(run({"convert", "programs"}).status, 0);
    std::filesystem::remove(path("converted/a.torvel.conflict"));
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(run({"convert", "programs"}).error, "");
        EXPECT_EQ(read("converted/a.torvel"), mine);
        EXPECT_FALSE(std::filesystem::exists(path("converted/a.torvel.conflict")));
    }
    EXPECT_EQ(report()["programs"][0]["outputState"], "edited");
    // What was given up can be seen elsewhere.
    EXPECT_EQ(run({"convert", "programs", "-o", "elsewhere"}).status, 0);
    EXPECT_EQ(read("elsewhere/a.torvel"), "G1 X1\nG1 X7\nG1 X3\n\n\nG1 X8\n\n");
}

TEST_F(CommandTest, AFreshCloneWithoutTheStore) {
    write("migration.toml", "sources = [\"programs\"]\n");
    write("programs/a.pgm", "PROBE X\nG1 X1\nPROBE Y\n");
    write("programs/b.pgm", "PROBE X\n");
    EXPECT_EQ(run({"convert"}).status, 0);
    const std::string edited = "ByHand()\nG1 X1\n#error_unconvertible (a.pgm:3): PROBE Y\n\n";
    write("converted/a.torvel", edited);
    EXPECT_TRUE(begins(run({"accept"}).output, "2 findings are "));
    const std::string store = readFile(path("converted/migration.sqlite"));
    std::filesystem::remove(path("converted/migration.sqlite"));

    const Outcome clone = run({"convert", "--quiet"});
    EXPECT_EQ(clone.status, 3);
    EXPECT_NE(clone.error.find("the store does not know from what it was made"), std::string::npos)
        << clone.error;
    EXPECT_NE(clone.error.find("\n1 new finding:\n  programs/a.pgm:1:"), std::string::npos)
        << clone.error;
    const nlohmann::json there = report();
    EXPECT_EQ(there["programs"][0]["outputState"], "foreign");
    EXPECT_EQ(there["programs"][1]["outputState"], "as-generated");
    // Nothing is merged into what is of unknown origin; what is the converter's own is replaced.
    write("programs/a.pgm", "PROBE X\nG1 X1\nPROBE Y\n\n\nG1 X2\n");
    write("programs/b.pgm", "PROBE X\nG1 X5\n");
    EXPECT_EQ(run({"convert", "--quiet"}).status, 3);
    EXPECT_EQ(read("converted/a.torvel"), edited);
    EXPECT_EQ(read("converted/b.torvel"), "#error_unconvertible (b.pgm:1): PROBE X\nG1 X5\n\n");

    // With the store that knows it the edit stays and what is new comes in.
    const std::string cloned = readFile(path("converted/migration.sqlite"));
    writeFile(path("converted/migration.sqlite"), store);
    const Outcome known = run({"convert", "--quiet"});
    EXPECT_EQ(known.status, 0);
    EXPECT_EQ(known.error, "");
    const std::string merged =
        "ByHand()\nG1 X1\n#error_unconvertible (a.pgm:3): PROBE Y\n\n\nG1 X2\n\n";
    EXPECT_EQ(read("converted/a.torvel"), merged);

    // Without it: away with the output, convert, and back.
    writeFile(path("converted/migration.sqlite"), cloned);
    std::filesystem::rename(path("converted/a.torvel"), path("a.mine"));
    EXPECT_EQ(run({"convert", "--quiet"}).status, 3);
    std::filesystem::rename(path("a.mine"), path("converted/a.torvel"));
    EXPECT_EQ(run({"convert", "--quiet"}).status, 0);
    EXPECT_EQ(report()["programs"][0]["outputState"], "edited");
    EXPECT_EQ(read("converted/a.torvel"), merged);
}

TEST_F(CommandTest, TheGate) {
    write("migration.toml", "sources = [\"programs\"]\n");
    write("programs/a.pgm", "PROBE X\n$a = 1e3\n");
    EXPECT_EQ(run({"convert"}).status, 0);  // neither a baseline nor --fail-on
    EXPECT_EQ(run({"convert", "--fail-on", "complete"}).status, 0);
    EXPECT_EQ(run({"convert", "--fail-on", "rewrite"}).status, 3);
    EXPECT_EQ(run({"convert", "--fail-on", "moves"}).status, 3);
    EXPECT_EQ(run({"convert", "--fail-on", "any"}).status, 3);

    const Outcome accepted = run({"accept"});
    EXPECT_EQ(accepted.status, 0);
    EXPECT_TRUE(begins(accepted.output, "2 findings are in the baseline ")) << accepted.output;
    EXPECT_EQ(run({"convert"}).status, 0);
    EXPECT_EQ(run({"convert", "--fail-on", "any"}).status, 0);

    // Inserted lines make nothing new; another refused line does.
    write("programs/a.pgm", "G1 X1\n\nPROBE X\n$a = 1e3\n");
    EXPECT_EQ(run({"convert"}).status, 0);
    write("programs/a.pgm", "PROBE X\n$a = 1e3\nPROBE Y\n");
    const Outcome failed = run({"convert"});
    EXPECT_EQ(failed.status, 3);
    EXPECT_NE(failed.error.find("programs/a.pgm"), std::string::npos) << failed.error;

    // One was repaired: it is told, and pruned.
    write("programs/a.pgm", "PROBE X\n");
    const Outcome repaired = run({"convert"});
    EXPECT_EQ(repaired.status, 0);
    EXPECT_NE(repaired.error.find("no longer needed"), std::string::npos) << repaired.error;
    EXPECT_TRUE(begins(run({"accept"}).output, "1 finding is in the baseline "));
}

TEST_F(CommandTest, ABaselineThatIsNamedHasToBeThere) {
    write("programs/a.pgm", "PROBE X\n");
    const std::string missing =
        "torvel-migrate: There is no baseline 'known.json'. Name the one that there is, or have "
        "`torvel-migrate accept --baseline` write it.\n";
    const Outcome first = run({"convert", "programs", "--baseline", "known.json"});
    EXPECT_EQ(first.status, 1);
    EXPECT_EQ(first.error, missing);
    EXPECT_FALSE(std::filesystem::exists(path("converted")));
    EXPECT_EQ(run({"convert", "programs"}).status, 0);
    for (const std::vector<std::string>& command :
         {std::vector<std::string>{"status"}, {"report", "--json", "r.json"}}) {
        std::vector<std::string> arguments = command;
        arguments.insert(arguments.end(), {"--baseline", "known.json"});
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.output, "");
        EXPECT_EQ(outcome.error, missing);
    }
    EXPECT_FALSE(std::filesystem::exists(path("r.json")));
    EXPECT_EQ(run({"accept", "--baseline", "known.json"}).status, 0);
    EXPECT_EQ(run({"convert", "programs", "--baseline", "known.json"}).status, 0);
}

TEST_F(CommandTest, ABaselineThatIsNamedIsLookedAtWithoutConvertingToo) {
    write("programs/a.pgm", "PROBE X\n");
    EXPECT_EQ(run({"convert", "programs"}).status, 0);
    EXPECT_EQ(run({"accept", "--baseline", "known.json"}).status, 0);
    const std::vector<std::vector<std::string>> commands = {
        {"status", "--baseline", "known.json"},
        {"report", "--csv", "f.csv", "--baseline", "known.json"}};
    for (const std::vector<std::string>& command : commands) {
        const Outcome passed = run(command);
        EXPECT_EQ(passed.status, 0);
        EXPECT_EQ(passed.error, "");
    }
    write("programs/a.pgm", "PROBE X\nPROBE Y\n");
    EXPECT_EQ(run({"convert", "programs"}).status, 0);
    std::filesystem::remove(path("f.csv"));
    for (const std::vector<std::string>& command : commands) {
        const Outcome failed = run(command);
        EXPECT_EQ(failed.status, 3);
        EXPECT_EQ(failed.error,
                  "1 new finding:\n"
                  "  programs/a.pgm:2: PROBE is no longer supported. [probe-unsupported]\n");
    }
    EXPECT_TRUE(std::filesystem::exists(path("f.csv")));
    EXPECT_EQ(run({"status"}).status, 0);
}

TEST_F(CommandTest, OnlySomeFindingsAreAccepted) {
    write("migration.toml", "sources = [\"programs\"]\n");
    write("programs/line1/a.pgm", "PROBE X\n$a = 1e3\n");
    write("programs/line1/b.pgm", "PROBE X\n");
    write("programs/line10/c.pgm", "PROBE X\n");
    EXPECT_EQ(run({"convert"}).status, 0);
    const auto accepted = [&](const std::vector<std::string>& arguments) {
        std::filesystem::remove(path("migration-baseline.json"));
        std::vector<std::string> all{"accept", "--project", path("migration.toml").string()};
        all.insert(all.end(), arguments.begin(), arguments.end());
        const Outcome outcome = run(all);
        return outcome.status == 0 ? outcome.output.substr(0, outcome.output.find(" in the"))
                                   : outcome.error;
    };
    EXPECT_EQ(accepted({"programs/line1/a.pgm"}), "2 findings are");
    EXPECT_EQ(accepted({"./programs/../programs/line1/a.pgm"}), "2 findings are");
    EXPECT_EQ(accepted({path("programs/line1/a.pgm").string()}), "2 findings are");
    EXPECT_EQ(accepted({"programs/line1"}), "3 findings are");
    EXPECT_EQ(accepted({"programs/line1/", "programs/line10"}), "4 findings are");
    EXPECT_EQ(accepted({".", "--code", "probe-unsupported"}), "3 findings are");
    EXPECT_EQ(accepted({"--code", "value-cut", "--code", "probe-unsupported"}), "4 findings are");
    // From where it is started.
    std::filesystem::current_path(path("programs/line10"));
    EXPECT_EQ(accepted({"c.pgm"}), "1 finding is");
    EXPECT_EQ(accepted({"../line1/b.pgm"}), "1 finding is");
    EXPECT_EQ(accepted({".."}), "4 findings are");
    std::filesystem::current_path(path(""));

    // What is not found is told, and nothing is written.
    const std::string stays = " The baseline stays as it is.\n";
    EXPECT_EQ(accepted({"nosuch.pgm"}),
              "torvel-migrate: The store has no program 'nosuch.pgm', and none in a folder of that "
              "name." +
                  stays);
    for (const char* const name : {"line1/a.pgm", "a.pgm", "programs/line"}) {
        const std::string error = accepted({name, "programs/line1/b.pgm"});
        EXPECT_NE(error.find("program '" + std::string(name) + "'"), std::string::npos) << error;
        EXPECT_FALSE(std::filesystem::exists(path("migration-baseline.json")));
    }
    EXPECT_EQ(accepted({"--code", "value-cutt"}),
              "torvel-migrate: There is no message or check with the code 'value-cutt'. Did you "
              "mean value-cut?" +
                  stays);
    EXPECT_EQ(accepted({"--code", "octal"}),
              "torvel-migrate: There is no open finding with the code 'octal'." + stays);
    EXPECT_EQ(accepted({"--code", "value-cut", "programs/line10"}),
              "torvel-migrate: There is no open finding with the code 'value-cut' in the programs "
              "that are named." +
                  stays);
    EXPECT_FALSE(std::filesystem::exists(path("migration-baseline.json")));
    EXPECT_EQ(run({"accept", "--code", "octal"}).status, 1);
}

TEST_F(CommandTest, WhyTheGateFailedIsToldQuietlyToo) {
    write("migration.toml",
          "sources = [\"programs\"]\nfail_on = [\"rewrite\"]\n[[folder]]\npath = \"line2\"\n");
    // An include in other letters is no reason.
    write("programs/inc/B.pgm", "G1 X1\n");
    write("programs/a.pgm", "#include \"inc/b.pgm\"\nPROBE X\n");
    const std::string notice = "line2: A [[folder]] names it, and there is no such folder.\n";
    const Outcome failed = run({"convert", "--quiet"});
    EXPECT_EQ(failed.status, 3);
    EXPECT_EQ(failed.output, "");
    EXPECT_EQ(failed.error,
              "1 new finding:\n"
              "  programs/a.pgm:2: PROBE is no longer supported. [probe-unsupported]\n" +
                  notice);
    EXPECT_EQ(run({"convert"}).error.find(notice), std::string::npos);  // the summary has it
    write("programs/a.pgm", "G1 X1\n");
    EXPECT_EQ(run({"convert", "--quiet"}).error, "");
}

TEST_F(CommandTest, ParameterFilesHaveToBeThere) {
    write("programs/a.pgm", "G1 X1\n");
    const std::string advice =
        " Name the machine's parameter file with -p, or as \"parameters\" in migration.toml.\n";
    const Outcome missing = run({"convert", "programs", "-p", "nosuch.xml"});
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.output, "");
    EXPECT_EQ(missing.error,
              "torvel-migrate: The parameter file 'nosuch.xml' is not there. Nothing was "
              "converted." +
                  advice);
    // That of a folder too, also if another one is given for the rest.
    write("machine.xml", "<Controller><Parameters><Axes/></Parameters></Controller>");
    write("broken.xml", "<Controller>");
    const std::string fault =
        "' cannot be used: Failed to load or parse the parameter file. Nothing was converted.";
    for (const char* const name : {"broken.xml", "programs"}) {
        write("migration.toml",
              "sources = [\"programs\"]\n[[folder]]\npath = \"programs/line2\"\nparameters = \"" +
                  std::string(name) + "\"\n");
        const Outcome broken = run({"convert", "-p", "machine.xml"});
        EXPECT_EQ(broken.status, 1);
        EXPECT_EQ(broken.error,
                  "torvel-migrate: The parameter file '" + std::string(name) + fault + advice);
    }
    EXPECT_FALSE(std::filesystem::exists(path("converted")));
}

TEST_F(CommandTest, RebuildIsForTheWholeProject) {
    write("migration.toml", "sources = [\"line1\", \"line2\"]\n");
    write("line1/a.pgm", "PROBE X\n");
    write("line2/b.pgm", "PROBE Y\n");
    EXPECT_EQ(run({"convert"}).status, 0);
    const std::string store = readFile(path("converted/migration.sqlite"));
    const Outcome refused = run({"convert", "--rebuild", "line1"});
    EXPECT_EQ(refused.status, 2);
    EXPECT_EQ(refused.error,
              "--rebuild makes the store of the whole project anew, and SOURCE names only a part "
              "of its sources, so nothing was done: leave SOURCE or --rebuild away.\n");
    EXPECT_EQ(readFile(path("converted/migration.sqlite")), store);
    for (const std::vector<std::string>& whole :
         {std::vector<std::string>{"line1", "line2"}, std::vector<std::string>{"."},
          std::vector<std::string>{}}) {
        std::vector<std::string> arguments{"convert", "--rebuild"};
        arguments.insert(arguments.end(), whole.begin(), whole.end());
        EXPECT_EQ(run(arguments).status, 0);
        EXPECT_EQ(report()["programs"].size(), 2U);
    }
}

TEST_F(CommandTest, AcceptKeepsWhatNoRunHasSeen) {
    write("migration.toml", "sources = [\"line1\", \"line2\"]\n");
    write("line1/a.pgm", "PROBE X\n");
    write("line1/gone.pgm", "PROBE Z\n");
    write("line2/b.pgm", "PROBE Y\n#include \"part.inc\"\n");
    write("line2/part.inc", "$a = 1e3\n");
    EXPECT_EQ(run({"convert", "-q"}).status, 0);
    EXPECT_TRUE(begins(run({"accept"}).output, "4 findings are in the baseline "));
    // As in another place, where the store is not, and one program is.
    std::filesystem::remove_all(path("converted"));
    std::filesystem::remove(path("line1/gone.pgm"));
    const Outcome part = run({"convert", "-q", "line1"});
    EXPECT_EQ(part.status, 0);
    EXPECT_TRUE(begins(part.error, "1 entry of the baseline is no longer needed;")) << part.error;
    EXPECT_NE(part.error.find("line1/gone.pgm"), std::string::npos);
    EXPECT_TRUE(begins(run({"accept"}).output, "3 findings are in the baseline "));
    EXPECT_EQ(run({"convert", "-q"}).status, 0);
    // Now it is seen, and what was repaired goes.
    write("line2/part.inc", "$a = 1\n");
    EXPECT_EQ(run({"convert", "-q"}).status, 0);
    EXPECT_TRUE(begins(run({"accept"}).output, "2 findings are in the baseline "));
}

TEST_F(CommandTest, OneRunAtATime) {
    write("programs/a.pgm", "G1 X1\n");
    EXPECT_EQ(run({"convert", "programs"}).status, 0);
    const std::string before = read("converted/migration.sqlite");
    const StoreLock lock(path("converted/migration.sqlite"));
    const Outcome outcome = run({"convert", "programs"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.error.find("migration.sqlite"), std::string::npos) << outcome.error;
    EXPECT_EQ(read("converted/migration.sqlite"), before);
}

TEST_F(CommandTest, AnInterruptedRunIsGoneOnWith) {
    for (int i = 0; i < 20; ++i) {
        write("programs/p" + std::to_string(i) + ".pgm", "G1 X" + std::to_string(i) + "\n");
    }
    const std::string sentence =
        "Interrupted. What was converted is kept; the next run goes on from there.\n";
    // While the programs are found.
    isInterrupted_ = true;
    const Outcome none = run({"convert", "programs"});
    EXPECT_EQ(none.status, 1);
    EXPECT_EQ(none.error, sentence);
    EXPECT_FALSE(std::filesystem::exists(path("converted")));
    // While they are converted.
    isInterrupted_ = false;
    isInterruptedLater_ = true;
    const Outcome first = run({"convert", "programs", "-j", "1"});
    EXPECT_EQ(first.status, 1);
    EXPECT_EQ(first.error, sentence);
    isInterrupted_ = false;
    isInterruptedLater_ = false;
    EXPECT_LT(report({"converted"})["programs"].size(), 20U);
    EXPECT_EQ(report({"converted"})["runs"][0]["ended"], 0);
    EXPECT_NE(run({"status", "converted"}).output.find(" and was cut off."), std::string::npos);

    EXPECT_EQ(run({"convert", "programs"}).status, 0);
    EXPECT_EQ(report({"converted"})["programs"].size(), 20U);
    EXPECT_EQ(read("converted/p19.torvel"), "G1 X19\n\n");
}

TEST_F(CommandTest, CommandsThatWriteNoStoreAreEndedByTheSystem) {
    write("programs/a.pgm", "PROBE X\n");
    EXPECT_EQ(run({"convert", "programs"}).status, 0);
    EXPECT_EQ(catches_, 1);
    EXPECT_EQ(run({"status", "converted"}).status, 0);
    EXPECT_EQ(run({"report", "converted", "--json", "-"}).status, 0);
    EXPECT_EQ(run({"explain", "--list"}).status, 0);
    EXPECT_EQ(catches_, 1);
}

namespace {

/// On Windows the library removes no folder whose paths are long.
void removeFolder(const NativePath& folder) {
    for (const FolderEntry& entry : listFolder(folder).entries) {
        if (entry.kind == EntryKind::folder) {
            removeFolder(folder / entry.name);
        } else {
            std::filesystem::remove(unboundedPath(folder / entry.name));
        }
    }
    std::filesystem::remove(unboundedPath(folder));
}

}  // namespace

TEST_F(CommandTest, PathsLongerThanWindowsUsuallyTakes) {
    std::string folder;
    for (const char letter : {'a', 'b', 'c'}) {
        folder += std::string(100, letter) + '/';
    }
    const auto place = [&](const std::string& name) { return unboundedPath(path(name)); };
    writeFile(place("programs/" + folder + "part.pgm"), "G1 X1\nPROBE X\n");
    const Outcome outcome = run({"convert", "programs"});
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    EXPECT_TRUE(begins(outcome.output, "Converted 1 program in ")) << outcome.output;
    const std::string output = readFile(place("converted/" + folder + "part.torvel"));
    EXPECT_TRUE(output.starts_with("G1 X1")) << output;
    const nlohmann::json program = report({"converted"})["programs"][0];
    EXPECT_EQ(program["path"], "programs/" + folder + "part.pgm");
    EXPECT_EQ(program["outputState"], "as-generated");
    EXPECT_TRUE(begins(run({"convert", "programs"}).output, "Converted 0 programs"));
    for (const char* const name : {"programs", "converted"}) {
        removeFolder(path(name));
    }
}

TEST_F(CommandTest, DeletedOutputsComeBackWhenAskedFor) {
    for (const std::string name : {"a", "b", "c"}) {
        write("programs/" + name + ".pgm", "G1 X1\n");
    }
    EXPECT_EQ(run({"convert", "programs"}).status, 0);
    std::filesystem::remove(path("converted/a.torvel"));
    std::filesystem::remove(path("converted/b.torvel"));
    // One that is noticed by a run, and one that is not.
    write("programs/a.pgm", "G1 X2\n");
    const Outcome noticed = run({"convert", "programs"});
    EXPECT_NE(noticed.error.find("To have it back, convert with --restore."), std::string::npos)
        << noticed.error;
    EXPECT_FALSE(std::filesystem::exists(path("converted/a.torvel")));
    EXPECT_EQ(run({"convert", "programs"}).status, 0);
    EXPECT_FALSE(std::filesystem::exists(path("converted/a.torvel")));

    // An edit of another program is no deletion.
    write("converted/c.torvel", "G1 X3\n");
    const Outcome restored = run({"convert", "programs", "--restore"});
    EXPECT_EQ(restored.status, 0);
    EXPECT_EQ(restored.error, "");
    EXPECT_TRUE(begins(restored.output, "Converted 2 programs in ")) << restored.output;
    EXPECT_EQ(read("converted/a.torvel"), "G1 X2\n\n");
    EXPECT_EQ(read("converted/b.torvel"), "G1 X1\n\n");
    EXPECT_EQ(read("converted/c.torvel"), "G1 X3\n");
    EXPECT_EQ(report({"converted"})["programs"][0]["outputState"], "as-generated");
    EXPECT_TRUE(begins(run({"convert", "programs", "--restore"}).output, "Converted 0 programs"));
}

TEST_F(CommandTest, OneDeletedOutputComesBack) {
    write("migration.toml", "sources = [\"programs\"]\n");
    write("programs/a.pgm", "G1 X1\n");
    write("programs/b.pgm", "G1 X1\n");
    EXPECT_EQ(run({"convert"}).status, 0);
    std::filesystem::remove(path("converted/a.torvel"));
    std::filesystem::remove(path("converted/b.torvel"));
    EXPECT_EQ(run({"convert", "--restore", "programs/b.pgm"}).status, 0);
    EXPECT_FALSE(std::filesystem::exists(path("converted/a.torvel")));
    EXPECT_EQ(read("converted/b.torvel"), "G1 X1\n\n");
}

TEST_F(CommandTest, SeveralOutputsAreReportedTogether) {
    write("line1/programs/a.pgm", "PROBE X\n");
    write("line2/programs/a.pgm", "PROBE Y\n");
    for (const std::string line : {"line1", "line2"}) {
        EXPECT_EQ(run({"convert", line + "/programs", "-o", line + "/converted"}).status, 0);
    }
    const nlohmann::json together = report({"line2/converted", "line1/converted"});
    ASSERT_EQ(together["programs"].size(), 2U);
    EXPECT_EQ(together["programs"][0]["path"], "line1/programs/a.pgm");
    EXPECT_EQ(together["programs"][1]["output"], "line2/converted/a.torvel");
    EXPECT_EQ(together["programs"][1]["findings"][0]["file"], "line2/programs/a.pgm");
    EXPECT_EQ(together["runs"].size(), 2U);
    const Outcome status = run({"status", "line1/converted", "line2/converted"});
    EXPECT_TRUE(begins(status.output, "2 programs in 2 folders\n")) << status.output;

    // A project is moved as a whole: its outputs are found all the same.
    write("line3/migration.toml", "sources = [\"programs\"]\n");
    write("line3/programs/b.pgm", "PROBE X\n");
    EXPECT_EQ(run({"convert", "--project", "line3/migration.toml"}).status, 0);
    std::filesystem::rename(path("line3"), path("moved"));
    EXPECT_EQ(report({"moved/converted"})["programs"][0]["outputState"], "as-generated");
}

TEST_F(CommandTest, AnOutputThatIsNamedTwiceCountsOnce) {
    write("programs/a.pgm", "PROBE X\n");
    EXPECT_EQ(run({"convert", "programs"}).status, 0);
    std::filesystem::create_directory(path("other"));
    const Outcome once = run({"status", "converted"});
    for (const std::string same :
         {"converted", "./converted/", "other/../converted", "converted/migration.sqlite"}) {
        EXPECT_EQ(run({"status", "converted", same}).output, once.output) << same;
        EXPECT_EQ(report({same, "converted"})["programs"].size(), 1U) << same;
    }
}

TEST_F(CommandTest, WithoutAProjectFileTheOutputFolderIsNamed) {
    const std::vector<std::pair<std::string, std::vector<std::string>>> commands = {
        {"status", {"status"}}, {"report", {"report", "--json", "-"}}, {"accept -o", {"accept"}}};
    for (const auto& [use, command] : commands) {
        const Outcome outcome = run(command);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.error,
                  "torvel-migrate: There is no migration.toml here, and no store in a folder "
                  "'converted'. Name the output folder, as in `torvel-migrate " +
                      use + " FOLDER`, or the project file with --project.\n");
    }
    write("migration.toml", "sources = [\"programs\"]\n");
    EXPECT_TRUE(begins(run({"status"}).error, "torvel-migrate: There is no store \""));
}

TEST_F(CommandTest, ReportsAreWrittenAsAWhole) {
    write("programs/a.pgm", "PROBE X\n");
    EXPECT_EQ(run({"convert", "programs"}).status, 0);
    const Outcome written =
        run({"report", "converted", "--csv", "./f.csv", "--programs-csv", "p.csv", "--sarif",
             "s.sarif", "--junit", "j.xml", "--json", "r.json"});
    EXPECT_EQ(written.status, 0);
    EXPECT_EQ(written.error, "");
    EXPECT_EQ(written.output,
              "The reports are in\n  r.json\n  ./f.csv\n  p.csv\n  s.sarif\n  j.xml\n");
    // Nothing is mixed with a report.
    const Outcome mixed = run({"report", "--json", "-", "--csv", "with  blanks.csv"});
    EXPECT_EQ(nlohmann::json::parse(mixed.output)["programs"].size(), 1U);
    EXPECT_EQ(mixed.error, "The report is in\n  with  blanks.csv\n");
    EXPECT_EQ(run({"report", "--json", "-"}).error, "");
    for (const char* const name : {"f.csv", "p.csv", "s.sarif", "j.xml", "r.json"}) {
        EXPECT_NE(read(name), "") << name;
        EXPECT_FALSE(std::filesystem::exists(path(name + std::string(".part"))));
    }
    EXPECT_EQ(nlohmann::json::parse(read("s.sarif"))["version"], "2.1.0");
    const Outcome refused = run({"report", "converted", "--json", "nowhere/r.json"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.error,
              "torvel-migrate: 'nowhere/r.json' could not be written: make sure that its folder is "
              "there and that you may write to it.\n");
    EXPECT_EQ(run({"report", "converted"}).status, 2);
}

TEST_F(CommandTest, ReportsReplaceNothingThatIsNeeded) {
    write("machine.xml", "<Controller><Parameters><Axes/></Parameters></Controller>");
    write("migration.toml", "sources = [\"programs\"]\nparameters = \"machine.xml\"\n");
    write("programs/a.pgm", "#include \"inc/b.pgm\"\nG1 X1\nG1 X2\n");
    write("programs/inc/b.pgm", "; part\n");
    EXPECT_EQ(run({"convert"}).status, 0);
    EXPECT_EQ(run({"accept"}).status, 0);
    write("converted/a.torvel", "// by hand\n");
    std::filesystem::create_hard_link(path("programs/a.pgm"), path("other.pgm"));
    struct Row {
        const char* path;
        const char* what;
    };
    for (const Row& row : {
             Row{"programs/a.pgm", "a source of the programs"},
             Row{"./programs/../programs/inc/b.pgm", "a source of the programs"},
             Row{"other.pgm", "a source of the programs"},
             Row{"machine.xml", "a parameter file"},
             Row{"migration.toml", "the project file"},
             Row{"migration-baseline.json", "the baseline"},
             Row{"converted/migration.sqlite", "the store"},
             Row{"converted/migration.sqlite.lock", "a file of the store"},
             Row{"converted/a.torvel", "an output"},
             Row{"converted/a.log", "the log of an output"},
             Row{"converted/a.torvel.conflict", "the conflict file of an output"},
         }) {
        const auto content = [&] {
            return std::filesystem::exists(path(row.path)) ? readFile(path(row.path)) : "none";
        };
        const std::string before = content();
        for (const char* const option :
             {"--json", "--csv", "--programs-csv", "--sarif", "--junit"}) {
            const Outcome refused = run({"report", option, row.path});
            EXPECT_EQ(refused.status, 2);
            EXPECT_EQ(refused.output, "");
            EXPECT_EQ(refused.error, "The report of " + std::string(option) + " would replace '" +
                                         row.path + "', which is " + row.what +
                                         ". Name another place for it.\n");
        }
        EXPECT_EQ(content(), before);
    }
    // The store says it of outputs that are named too, from anywhere.
    EXPECT_EQ(run({"report", "converted", "--csv", "programs/a.pgm"}).status, 2);
    // What was deleted has its place.
    std::filesystem::remove(path("converted/a.torvel"));
    EXPECT_EQ(run({"report", "--csv", "converted/a.torvel"}).status, 2);
    EXPECT_EQ(run({"report", "--csv", "converted/report.csv"}).status, 0);
    EXPECT_EQ(run({"report", "--csv", "converted/report.csv"}).status, 0);
}

TEST_F(CommandTest, ThePageReplacesNothingThatIsNeeded) {
    if (reportPage().empty()) {
        GTEST_SKIP() << "built without the page";
    }
    write("plant/programs/1.js", "G1 X1\n");
    write("plant/index.html", "G1 X1\n");
    EXPECT_EQ(run({"convert", "plant", "--programs", "**/*.js", "--programs", "**/*.html"}).status,
              0);
    const Outcome folder = run({"report", "--html", "plant"});
    EXPECT_EQ(folder.status, 2);
    EXPECT_EQ(folder.error,
              "The report of --html would replace 'plant/index.html', which is a source of the "
              "programs. Name another place for it.\n");
    const Outcome file = run({"report", "--html", "plant/index.html"});
    EXPECT_EQ(file.status, 2);
    EXPECT_EQ(read("plant/programs/1.js"), "G1 X1\n");
    EXPECT_EQ(read("plant/index.html"), "G1 X1\n");
}

TEST_F(CommandTest, TwoReportsDoNotGoToOnePlace) {
    write("programs/a.pgm", "G1 X1\n");
    EXPECT_EQ(run({"convert", "programs"}).status, 0);
    const Outcome both = run({"report", "--json", "-", "--csv", "-"});
    EXPECT_EQ(both.status, 2);
    EXPECT_EQ(both.output, "");
    EXPECT_EQ(both.error,
              "The reports of --json and --csv cannot both go to '-'. Give each a place of its "
              "own.\n");
    for (const char* const same : {"r.txt", "./r.txt", "programs/../r.txt"}) {
        EXPECT_EQ(run({"report", "--sarif", "r.txt", "--junit", same}).status, 2);
    }
    EXPECT_EQ(run({"report", "--csv", "page_files/programs/1.js", "--html", "page.html"}).status,
              2);
    EXPECT_FALSE(std::filesystem::exists(path("r.txt")));
    EXPECT_EQ(run({"report", "--json", "-", "--csv", "r.csv"}).status, 0);
}

// The page is built by other tools, which need not be there.
TEST_F(CommandTest, ThePageForPeople) {
    write("programs/a.pgm", "PROBE X\n");
    EXPECT_EQ(run({"convert", "programs"}).status, 0);
    const Outcome outcome = run({"report", "converted", "--html", "report.html"});
    if (reportPage().empty()) {
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.output, "");
        EXPECT_TRUE(begins(outcome.error, "This torvel-migrate was built without the page"))
            << outcome.error;
        EXPECT_FALSE(std::filesystem::exists(path("report.html")));
    } else {
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.output, "The report is in\n  report.html\n");
        EXPECT_EQ(outcome.error, "");
        const nlohmann::json summary = dataOf(read("report.html"), "summary");
        EXPECT_EQ(summary["strings"][summary["findings"]["lineText"][0].get<int>()], "PROBE X");
    }
    for (const char* const none : {"-", ""}) {
        const Outcome refused = run({"report", "converted", "--html", none});
        EXPECT_EQ(refused.status, 2);
        EXPECT_EQ(refused.error,
                  "The page of --html goes to a file that ends in \".html\", or to a folder: name "
                  "one.\n");
    }
}

TEST_F(CommandTest, WhatCannotBeDone) {
    const Outcome nothing = run({"convert"});
    EXPECT_EQ(nothing.status, 1);
    EXPECT_TRUE(begins(nothing.error, "torvel-migrate: No sources are named.")) << nothing.error;
    const Outcome missing = run({"convert", "programs"});
    EXPECT_EQ(missing.status, 1);
    EXPECT_NE(missing.error.find("programs"), std::string::npos);
    const Outcome noStore = run({"status", "converted"});
    EXPECT_EQ(noStore.status, 1);
    EXPECT_TRUE(begins(noStore.error, "torvel-migrate: There is no store \"")) << noStore.error;
    write("migration.toml", "sources = 1\n");
    EXPECT_EQ(run({"convert"}).status, 1);
    EXPECT_EQ(run({"convert", "--jobs", "x"}).status, 2);
    const Outcome unknown = run({"explain", "value-cutt"});
    EXPECT_EQ(unknown.status, 2);
    EXPECT_NE(unknown.error.find("value-cut"), std::string::npos) << unknown.error;
    const Outcome known = run({"explain", "value-cut"});
    EXPECT_EQ(known.status, 0);
    EXPECT_NE(known.output.find("value-cut"), std::string::npos);
}

}  // namespace torvel::migrate::test
