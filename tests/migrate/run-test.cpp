// What a run converts, and what it leaves as it was.

#include "src/migrate/run.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "src/migrate/database.h"
#include "tests/migrate/plant.h"

namespace torvel::migrate::test {

namespace {

using Names = std::vector<std::string>;

/// Four programs: two reach the part by way of each other, one looks for a file in vain, one cannot be read.
void fill(Plant& plant) {
    plant.write("shared/part.inc", "DVAR $a\n");
    plant.write("shared/outer.inc", "#include \"part.inc\"\n");
    plant.add("a.pgm", "#include \"shared/outer.inc\"\nG1 X1\n");
    plant.add("b.pgm", "#include \"shared/part.inc\"\n$a = 1e3\n");
    plant.add("c.pgm", "G1 X2\n");
    plant.add("sub/d.pgm", "G1 X3\n");
}

std::string parameterFile(const std::string& axis) {
    return "<Machine><Parameters><Axes><Axis><P n=\"AxisName\">" + axis +
           "</P></Axis></Axes></Parameters></Machine>";
}

}  // namespace

TEST(Run, ConvertsWhatIsNewAndNothingTwice) {
    Plant plant;
    fill(plant);
    RunSummary summary = plant.run();
    EXPECT_EQ(plant.convertedNow, (Names{"a.pgm", "b.pgm", "c.pgm", "sub/d.pgm"}));
    EXPECT_EQ(summary.convertedNow, 4U);
    EXPECT_EQ(summary.unchanged, 0U);
    EXPECT_EQ(summary.row.programs, 4U);
    EXPECT_EQ(summary.row.converted, 4U);
    // a: the two lines with #include, DVAR and G1; b: #include, DVAR, the assignment; c and d: a line each.
    EXPECT_EQ(summary.row.lines, 9U);
    EXPECT_EQ(plant.read("out/c.torvel"), "G1 X2\n\n");
    EXPECT_EQ(plant.read("out/sub/d.torvel"), "G1 X3\n\n");
    EXPECT_TRUE(plant.has("out/c.log"));
    ASSERT_EQ(summary.outputNotices.size(), 4U);
    EXPECT_EQ(summary.outputNotices[3].path, "out/sub/d.torvel");
    EXPECT_EQ(summary.outputNotices[3].text, "wrote d.torvel");

    const std::string dump = plant.dump();
    summary = plant.run();
    EXPECT_EQ(plant.convertedNow, Names());
    EXPECT_EQ(summary.unchanged, 4U);
    EXPECT_EQ(summary.row.lines, 9U);
    EXPECT_EQ(plant.dump(), dump);
    EXPECT_EQ(Store(plant.store(), StoreUse::read).runs().size(), 2U);
}

TEST(Run, ChangedIncludeConvertsThoseThatReachIt) {
    Plant plant;
    fill(plant);
    plant.run();
    plant.write("shared/part.inc", "DVAR $a, $c\n");
    plant.run();
    EXPECT_EQ(plant.convertedNow, (Names{"a.pgm", "b.pgm"}));
    EXPECT_NE(plant.read("out/a.torvel").find("var $c"), std::string::npos);
    plant.write("shared/outer.inc", "#include \"part.inc\"\n\n");
    plant.run();
    EXPECT_EQ(plant.convertedNow, (Names{"a.pgm"}));
    // Written again with the same bytes.
    plant.write("shared/outer.inc", "#include \"part.inc\"\n\n");
    plant.run();
    EXPECT_EQ(plant.convertedNow, Names());
}

TEST(Run, FileThatWasLookedForInVain) {
    Plant plant;
    fill(plant);
    plant.add("e.pgm", "#include \"late.inc\"\nG1 X4\n");
    RunSummary summary = plant.run();
    EXPECT_EQ(summary.row.programs, 5U);
    EXPECT_EQ(summary.row.converted, 4U);
    EXPECT_FALSE(plant.has("out/e.torvel"));
    summary = plant.run();
    EXPECT_EQ(summary.convertedNow, 0U);
    plant.write("late.inc", "G1 X5\n");
    summary = plant.run();
    EXPECT_EQ(plant.convertedNow, (Names{"e.pgm"}));
    EXPECT_EQ(summary.convertedNow, 1U);
    EXPECT_EQ(summary.row.converted, 5U);
    EXPECT_TRUE(plant.has("out/e.torvel"));
    // And it goes again: the output stays as it was.
    plant.remove("late.inc");
    summary = plant.run();
    EXPECT_EQ(summary.row.converted, 4U);
    EXPECT_TRUE(plant.has("out/e.torvel"));
}

TEST(Run, ParameterFileOfOneMachine) {
    Plant plant;
    plant.write("m1.xml", parameterFile("STAGE"));
    plant.write("m2.xml", parameterFile("LIFT"));
    plant.add("1/a.pgm", "HOME STAGE\n").parameters = "m1.xml";
    plant.add("2/b.pgm", "HOME LIFT\n").parameters = "m2.xml";
    plant.add("c.pgm", "HOME X\n");
    RunSummary summary = plant.run();
    EXPECT_EQ(summary.row.convertedLines, 3U);
    const std::string converted = plant.read("out/2/b.torvel");

    plant.write("m2.xml", parameterFile("TABLE"));
    summary = plant.run();
    EXPECT_EQ(plant.convertedNow, (Names{"2/b.pgm"}));
    EXPECT_EQ(summary.ofChangedMachines, 1U);
    EXPECT_EQ(summary.row.convertedLines, 2U);
    EXPECT_NE(plant.read("out/2/b.torvel"), converted);

    plant.write("m2.xml", "<Parameters>");
    summary = plant.run();
    EXPECT_EQ(summary.convertedNow, 1U);
    EXPECT_EQ(summary.row.converted, 2U);
    const Store store(plant.store(), StoreUse::read);
    store.forEachProgram([&](const StoredProgram& program) {
        const bool isBroken = program.program == "2/b.pgm";
        EXPECT_EQ(program.status, isBroken ? ProgramStatus::unreadable : ProgramStatus::converted);
        const std::vector<FindingRow> findings = store.findings(program);
        EXPECT_EQ(findings.size(), isBroken ? 1U : 0U);
        if (isBroken && !findings.empty()) {
            EXPECT_EQ(findings[0].code, "parameters-unreadable");
            EXPECT_EQ(findings[0].todo, FindingTodo::fixSource);
            EXPECT_EQ(findings[0].text,
                      "The parameter file \"m2.xml\" cannot be used: Failed to load or parse the "
                      "parameter file.");
        }
    });
}

TEST(Run, ReferenceRowsAndMachineCount) {
    Plant plant;
    fill(plant);
    plant.run();
    plant.project.reference.axisParameters[11] = "Gain";
    RunSummary summary = plant.run();
    EXPECT_EQ(summary.convertedNow, 4U);
    // The same number and name in another table are another key.
    plant.project.reference.axisParameters.clear();
    plant.project.reference.taskParameters[11] = "Gain";
    EXPECT_EQ(plant.run().convertedNow, 4U);
    plant.discovery.programs[2].machine = "c";
    EXPECT_EQ(plant.run().convertedNow, 1U);
    EXPECT_EQ(plant.convertedNow, (Names{"c.pgm"}));
}

TEST(Run, ResultsOfAnotherVersionAreMadeAgain) {
    Plant plant;
    fill(plant);
    plant.run();
    const std::string dump = plant.dump();
    {
        // What another version, another schema or a damage would leave: keys that nothing has now.
        Database database(plant.store(), DatabaseUse::write);
        database.execute("UPDATE program SET key = x'00112233445566778899aabbccddeeff'");
    }
    EXPECT_EQ(plant.run().convertedNow, 4U);
    EXPECT_EQ(plant.dump(), dump);
}

TEST(Run, ProgramThatVanishedLeavesItsOutput) {
    Plant plant;
    fill(plant);
    plant.run();
    plant.discovery.programs.erase(plant.discovery.programs.begin());
    RunSummary summary = plant.run();
    EXPECT_EQ(summary.removed, 1U);
    EXPECT_EQ(summary.row.programs, 3U);
    EXPECT_TRUE(plant.has("out/a.torvel"));
    const std::string notice =
        "notice out/a.torvel: Its program \"a.pgm\" was not converted by this run, or has another "
        "output now. It is as it was generated: delete it if it is of no more use.\n";
    EXPECT_TRUE(plant.dump().starts_with(notice)) << plant.dump();
    plant.run();
    EXPECT_TRUE(plant.dump().starts_with(notice));
    plant.remove("a.pgm");
    plant.run();
    EXPECT_TRUE(plant.dump().starts_with(
        "notice out/a.torvel: Its program \"a.pgm\" is not there any more. It is as it was "
        "generated: delete it if it is of no more use.\n"))
        << plant.dump();

    // It comes back, and its output is still known as one that was generated.
    plant.add("a.pgm", "G1 X100\n");
    plant.run();
    EXPECT_EQ(plant.read("out/a.torvel"), "G1 X100\n\n");
    EXPECT_FALSE(plant.dump().starts_with("notice"));

    plant.discovery.programs.erase(plant.discovery.programs.begin());
    plant.run();
    plant.remove("out/a.torvel");
    plant.run();
    EXPECT_EQ(plant.dump().find("a.torvel"), std::string::npos) << plant.dump();
}

TEST(Run, ProgramsOfAFolderThatCannotBeListedStay) {
    Plant plant;
    fill(plant);
    plant.run();
    plant.write("out/sub/d.torvel", "G1 X3\n\n// mine\n");
    const auto hidden = plant.discovery.programs.back();
    plant.discovery.programs.pop_back();
    plant.discovery.unlisted = {"sub"};
    RunSummary summary = plant.run();
    EXPECT_EQ(summary.removed, 0U);
    EXPECT_EQ(summary.row.programs, 4U);
    ASSERT_EQ(summary.unseenNotices.size(), 1U);
    EXPECT_EQ(summary.unseenNotices[0].path, "sub");
    EXPECT_EQ(summary.unseenNotices[0].text,
              "It could not be listed, so programs in it were not converted; what is known of 1 "
              "program in it stays as it is.");
    EXPECT_EQ(plant.dump().find("notice"), std::string::npos);
    plant.discovery.unlisted.clear();
    plant.discovery.programs.push_back(hidden);
    summary = plant.run();
    EXPECT_EQ(summary.convertedNow, 0U);
    EXPECT_TRUE(summary.unseenNotices.empty());
    EXPECT_EQ(plant.read("out/sub/d.torvel"), "G1 X3\n\n// mine\n");
}

TEST(Run, EditedOutputsOfProgramsThatVanishedAreToldFirst) {
    Plant plant;
    for (int i = 10; i < 20; ++i) {
        plant.add("p" + std::to_string(i) + ".pgm", "G1 X1\n");
    }
    plant.add("z.pgm", "G1 X1\n");
    plant.write("out/p18.torvel", "somebody else's\n");
    plant.run();
    for (const std::string name : {"p12", "p13", "p14", "p15", "p16", "p19"}) {
        plant.write("out/" + name + ".torvel", plant.read("out/" + name + ".torvel") + "// mine\n");
    }
    plant.write("out/p17.torvel", "G1 X1\r\n\r\n");  // line ends are no edit
    for (int i = 10; i < 20; ++i) {
        plant.remove("p" + std::to_string(i) + ".pgm");
    }
    plant.discovery.notices = {{"", "of the files"}};
    plant.discovery.programs.erase(plant.discovery.programs.begin(),
                                   plant.discovery.programs.begin() + 10);
    plant.run();
    const std::vector<Notice> notices = Store(plant.store(), StoreUse::read).notices();
    ASSERT_EQ(notices.size(), 12U);
    EXPECT_EQ(notices[0].path, "");
    EXPECT_EQ(notices[0].text,
              "7 outputs that belong to no program any more were edited or written by hand; delete "
              "none of them without a look.");
    std::string order;
    for (const Notice& notice : notices) {
        order += notice.path.empty() ? "- " : notice.path.substr(4, 3) + " ";
    }
    EXPECT_EQ(order, "- p12 p13 p14 p15 p16 p18 p19 - p10 p11 p17 ");
    const std::string rest =
        " is not there any more. Look whether what was written there is still needed before you "
        "delete it.";
    EXPECT_EQ(notices[1].text, "It was edited by hand, and its program \"p12.pgm\"" + rest);
    EXPECT_EQ(notices[6].text, "It was written by hand, and its program \"p18.pgm\"" + rest);
}

TEST(Run, RenamedProgramTakesOverItsOutput) {
    Plant plant;
    plant.add("a.pgm", "G1 X1\n");
    plant.run();
    plant.write("out/a.torvel", plant.read("out/a.torvel") + "// mine\n");
    plant.discovery.programs.clear();
    plant.remove("a.pgm");
    plant.add("a.prg", "G1 X2\n");
    plant.run();
    EXPECT_EQ(plant.read("out/a.torvel"), "G1 X2\n\n// mine\n");
}

TEST(Run, PartialRunLeavesTheOthers) {
    Plant plant;
    fill(plant);
    plant.run();
    plant.discovery.programs.erase(plant.discovery.programs.begin(),
                                   plant.discovery.programs.begin() + 3);
    plant.options.isPartial = true;
    const RunSummary summary = plant.run();
    EXPECT_EQ(summary.removed, 0U);
    EXPECT_EQ(summary.row.programs, 4U);
}

/// A store that was written before it had what machines gave.
TEST(Run, MachinesOfAnOlderStore) {
    Plant plant;
    plant.write("m1.xml", parameterFile("STAGE"));
    plant.add("a.pgm", "HOME STAGE\n").parameters = "m1.xml";
    plant.add("b.pgm", "G1 X1\n");
    plant.run();
    const auto makeOlder = [&plant] {
        Database older(plant.store(), DatabaseUse::write);
        older.execute("ALTER TABLE program DROP COLUMN machine_hash; PRAGMA user_version = 3");
    };
    const auto hashes = [&plant] {
        std::vector<std::optional<ContentHash>> all;
        Store(plant.store(), StoreUse::read).forEachProgram([&](const StoredProgram& program) {
            all.push_back(program.machineHash);
        });
        return all;
    };
    const auto written = hashes();
    ASSERT_EQ(written.size(), 2U);
    EXPECT_TRUE(written[0] && written[1] && written[0] != written[1]);

    // Nothing is converted again for it, and a change is told from then on.
    makeOlder();
    EXPECT_EQ(hashes(), (std::vector<std::optional<ContentHash>>(2)));
    EXPECT_EQ(plant.run().convertedNow, 0U);
    EXPECT_EQ(hashes(), written);
    plant.write("m1.xml", parameterFile("LIFT"));
    EXPECT_EQ(plant.run().ofChangedMachines, 1U);

    // What nobody knows is not told.
    makeOlder();
    plant.write("m1.xml", parameterFile("STAGE"));
    const RunSummary summary = plant.run();
    EXPECT_EQ(summary.convertedNow, 1U);
    EXPECT_EQ(summary.ofChangedMachines, 0U);
    EXPECT_EQ(hashes(), written);
}

TEST(Run, CollidingProgramsAreResultsWithoutOutput) {
    Plant plant;
    FoundProgram& first = plant.add("a.pgm", "G1 X1\n");
    first.collidesWith = {"a.prg"};
    plant.add("a.prg", "G1 X2\n").collidesWith = {"a.pgm"};
    plant.add("b.pgm", "G1 X3\n");
    const RunSummary summary = plant.run();
    EXPECT_EQ(summary.row.programs, 3U);
    EXPECT_EQ(summary.row.converted, 1U);
    EXPECT_FALSE(plant.has("out/a.torvel"));
    EXPECT_NE(
        plant.dump().find("finding a.pgm:0 output-collides: Its output \"out/a.torvel\" would "
                          "be that of \"a.prg\" too, so none of them was converted. Rename "
                          "one, or set keep_extension."),
        std::string::npos)
        << plant.dump();
    EXPECT_EQ(plant.run().convertedNow, 0U);
}

TEST(Run, EditedDeletedAndForeignOutputs) {
    Plant plant;
    fill(plant);
    plant.write("out/sub/d.torvel", "somebody else's\n");
    RunSummary summary = plant.run();
    EXPECT_EQ(plant.read("out/sub/d.torvel"), "somebody else's\n");
    EXPECT_EQ(plant.run().convertedNow, 0U);
    // It becomes what is generated: nothing is left to be done, and from now on it is known.
    plant.write("out/sub/d.torvel", "G1 X3\n\n");
    EXPECT_EQ(plant.run().convertedNow, 1U);
    EXPECT_EQ(plant.run().convertedNow, 0U);

    plant.remove("out/c.torvel");
    plant.write("c.pgm", "G1 X20\n");
    EXPECT_EQ(plant.run().convertedNow, 1U);
    EXPECT_FALSE(plant.has("out/c.torvel"));
    EXPECT_EQ(plant.run().convertedNow, 0U);
    plant.write("out/c.torvel", "G1 X2\n\n");
    EXPECT_EQ(plant.run().convertedNow, 1U);
    EXPECT_EQ(plant.read("out/c.torvel"), "G1 X20\n\n");

    plant.write("out/c.torvel", "G1 X20\n\n// mine\n");
    EXPECT_EQ(plant.run().convertedNow, 0U);
    plant.write("c.pgm", "G1 X21\n");
    plant.run();
    EXPECT_EQ(plant.read("out/c.torvel"), "G1 X21\n\n// mine\n");
    plant.write("out/c.torvel", "mine\nG1 X21\n\n");
    plant.write("c.pgm", "G1 X22\n");
    plant.run();
    EXPECT_EQ(plant.read("out/c.torvel"), "mine\nG1 X21\n\n");
    EXPECT_TRUE(plant.has("out/c.torvel.conflict"));
    // A conflict is looked at each time, until it is none.
    EXPECT_EQ(plant.run().convertedNow, 1U);
    plant.write("out/c.torvel", "G1 X22\n\n");
    EXPECT_EQ(plant.run().convertedNow, 1U);
    EXPECT_EQ(plant.run().convertedNow, 0U);
}

TEST(Run, NewStoreKnowsNothingOfTheOutputs) {
    Plant plant;
    fill(plant);
    plant.run();
    const std::string dump = plant.dump();
    plant.write("out/b.torvel", "edited\n");
    const RunSummary summary = plant.run(StoreUse::anew);
    EXPECT_EQ(summary.convertedNow, 4U);
    EXPECT_EQ(plant.read("out/b.torvel"), "edited\n");
    ASSERT_EQ(summary.outputNotices.size(), 1U);
    EXPECT_EQ(summary.outputNotices[0].text, "left out/b.torvel");
    EXPECT_TRUE(plant.has("out/migration.sqlite.old"));
    EXPECT_EQ(Store(plant.store(), StoreUse::read).runs().size(), 1U);
}

TEST(Run, OutputThatCannotBeWrittenIsTriedAgain) {
    Plant plant;
    fill(plant);
    const PlanOutput placing = plant.options.planOutput;
    plant.options.planOutput = [&](const OutputTask& task) {
        PlannedOutput plan = placing(task);
        if (task.program.program == "b.pgm") {
            plan.place = [] { return PlacedOutput{false, "no room"}; };
        }
        return plan;
    };
    const RunSummary summary = plant.run();
    EXPECT_EQ(summary.convertedNow, 4U);
    ASSERT_EQ(summary.outputNotices.size(), 4U);
    EXPECT_EQ(summary.outputNotices[1].text, "no room");
    EXPECT_EQ(summary.notPlaced, 1U);
    EXPECT_FALSE(plant.has("out/b.torvel"));
    plant.options.planOutput = placing;
    plant.run();
    EXPECT_EQ(plant.convertedNow, (Names{"b.pgm"}));
    EXPECT_TRUE(plant.has("out/b.torvel"));
    EXPECT_EQ(plant.run().convertedNow, 0U);
}

TEST(Run, RefusedOutputIsTriedAgain) {
    Plant plant;
    fill(plant);
    const PlanOutput placing = plant.options.planOutput;
    plant.options.planOutput = [](const OutputTask&) {
        PlannedOutput plan;
        plan.message = "refused";
        return plan;
    };
    RunSummary summary = plant.run();
    EXPECT_EQ(summary.outputNotices.size(), 4U);
    EXPECT_EQ(summary.notPlaced, 4U);
    plant.options.planOutput = placing;
    summary = plant.run();
    EXPECT_EQ(summary.convertedNow, 4U);
    EXPECT_EQ(summary.notPlaced, 0U);
    EXPECT_TRUE(plant.has("out/a.torvel"));
    EXPECT_EQ(plant.run().convertedNow, 0U);
}

TEST(Run, OutputsAreConfirmedWhenTheyAreOnTheDisk) {
    Plant plant;
    fill(plant);
    int flushes = 0;
    plant.options.flushOutputs = [&] {
        ++flushes;
        EXPECT_TRUE(plant.has("out/a.torvel"));
    };
    plant.run();
    EXPECT_EQ(flushes, 1);
    {
        // As if the run had been cut off before it confirmed.
        Database database(plant.store(), DatabaseUse::write);
        database.execute("UPDATE output SET pending = base, base = NULL");
        Query query(database, "UPDATE output SET placed = ? WHERE path = ?");
        for (const std::string name : {"a", "b", "c", "sub/d"}) {
            const std::string output = "out/" + name + ".torvel";
            const ContentHash hash = hashOf(plant.read(output));
            query.bind(0, {reinterpret_cast<const char*>(hash.data()), hash.size()});
            query.bind(1, output).run();
        }
    }
    plant.write("out/c.torvel", "edited\n");
    EXPECT_EQ(plant.run().convertedNow, 1U);  // the one of which it is not known what is there
    EXPECT_EQ(plant.convertedNow, (Names{"c.pgm"}));
    EXPECT_EQ(flushes,
              3);  // for those that were found in place, and for what became of the other one
    EXPECT_EQ(plant.read("out/c.torvel"), "edited\n");
}

TEST(Run, ResultsAreTheSameForAnyNumberOfThreads) {
    std::string dump;
    std::string outputs;
    for (const unsigned threads : {1U, 2U, 16U}) {
        Plant plant;
        fill(plant);
        for (int i = 0; i < 60; ++i) {
            const std::string number = std::to_string(i);
            plant.add("many/" + number + ".pgm", "#include \"../shared/part.inc\"\n$a = 1e" +
                                                     number + "\nG1 X" + number + "\n");
        }
        plant.options.threads = threads;
        EXPECT_EQ(plant.run().convertedNow, 64U);
        if (dump.empty()) {
            dump = plant.dump();
            outputs = plant.outputs();
        }
        EXPECT_EQ(plant.dump(), dump) << threads;
        EXPECT_EQ(plant.outputs(), outputs) << threads;
    }
}

TEST(Run, CancelledRunGoesOnLater) {
    Plant plant;
    fill(plant);
    for (int i = 0; i < 200; ++i) {
        plant.add("many/" + std::to_string(i) + ".pgm", "G1 X" + std::to_string(i) + "\n");
    }
    std::atomic<bool> isCancelled = false;
    plant.options.isCancelled = &isCancelled;
    {
        Store store(plant.store(), StoreUse::write);
        std::uint64_t total = 0;
        const RunObserver observer{[&](std::uint64_t done, std::uint64_t all) {
            total = all;
            isCancelled = done == 5;
        }};
        const RunSummary summary =
            runConversion(plant.project, plant.discovery, store, plant.options, observer);
        EXPECT_EQ(total, 204U);
        EXPECT_TRUE(summary.isCancelled);
        EXPECT_GE(summary.convertedNow, 5U);
        EXPECT_LT(summary.convertedNow, 100U);
        EXPECT_EQ(summary.row.programs, summary.convertedNow);
        EXPECT_EQ(summary.row.ended, 0);
        EXPECT_TRUE(store.wasCutOff());
    }
    // Also when it only looks at what changed.
    isCancelled = true;
    const RunSummary none = plant.run();
    EXPECT_TRUE(none.isCancelled);
    EXPECT_EQ(none.convertedNow, 0U);
    EXPECT_EQ(none.removed, 0U);
    isCancelled = false;
    EXPECT_FALSE(plant.run().isCancelled);
    isCancelled = true;
    EXPECT_TRUE(plant.run().isCancelled);  // nothing has changed
    EXPECT_TRUE(Store(plant.store(), StoreUse::read).wasCutOff());
    isCancelled = false;
    plant.run();
    EXPECT_FALSE(Store(plant.store(), StoreUse::read).wasCutOff());
    const std::string dump = plant.dump();
    const std::string outputs = plant.outputs();
    plant.run(StoreUse::anew);
    EXPECT_EQ(plant.dump(), dump);
    EXPECT_EQ(plant.outputs(), outputs);
}

}  // namespace torvel::migrate::test
