// A run that is killed loses nothing: whatever step it was at, the next one ends where an uninterrupted run does.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <random>

#include "src/migrate/output-placing.h"
#include "tests/migrate/plant.h"

namespace torvel::migrate::test {

namespace {

constexpr int places = 100;

/// Twelve programs that were converted once. Then an include, two programs and the set of programs change, one output
/// was edited, one deleted, and one edited where the new text differs.
void prepare(Plant& plant) {
    plant.write("part.inc", "DVAR $a\n");
    for (int i = 10; i < 22; ++i) {
        const std::string number = std::to_string(i);
        plant.add("p" + number + ".pgm", (i % 2 == 0 ? "#include \"part.inc\"\n" : "") +
                                             std::string("G1 X") + number + "\n");
    }
    plant.run();
    plant.write("part.inc", "DVAR $a, $b\n");
    plant.write("p11.pgm", "G1 X1100\n$a = 1e3\n");
    plant.write("p13.pgm", "G1 X1300\n");
    plant.write("out/p10.torvel", plant.read("out/p10.torvel") + "// by hand\n");
    plant.write("out/p15.torvel", plant.read("out/p15.torvel") + "// by hand too\n");
    plant.write("out/p13.torvel", "// mine\n" + plant.read("out/p13.torvel"));
    plant.remove("out/p12.torvel");
    plant.discovery.programs.erase(plant.discovery.programs.begin() + 7);  // p17
    plant.add("p30.pgm", "G1 X30\n");
}

/// Counts the steps of a run, and kills the process at one of them.
class Killer {
public:
    explicit Killer(long at) : at_(at) {}
    void step() {
        if (++count_ == at_) {
            std::raise(SIGKILL);
        }
    }
    long count() const { return count_; }

private:
    long at_;
    std::atomic<long> count_ = 0;
};

long runWithSteps(Plant& plant, long killedAt) {
    Killer killer(killedAt);
    const std::function<void()> step = [&] { killer.step(); };
    plant.options.onStep = step;
    plant.options.planOutput = simplePlacing(step);
    plant.run();
    return killer.count();
}

/// True: the run was killed; false: it came to its end before that step.
bool runKilled(Plant& plant, long killedAt) {
    const pid_t child = fork();
    if (child == 0) {
        runWithSteps(plant, killedAt);
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) ? WTERMSIG(status) == SIGKILL : WEXITSTATUS(status) == 0);
    return WIFSIGNALED(status);
}

/// The outputs without files that were under way.
std::string outputsOf(Plant& plant) {
    for (const auto& entry : std::filesystem::directory_iterator(plant.path("out"))) {
        if (entry.path().extension() == ".new") {
            std::filesystem::remove(entry.path());
        }
    }
    return plant.outputs();
}

/// Puts the outputs in place as the program does, and the process is killed when the first log is, before its output.
PlanOutput killedBehindALog() {
    return [placing = placingOutputs([] { return SourceFiles(); })](const OutputTask& task) {
        PlannedOutput plan = placing(task);
        plan.place = [log = planLog(logPath(task.path), {task.record.log, task.record.pendingLog},
                                    task.log, {})] {
            EXPECT_TRUE(carryOut(log).isDone);
            std::raise(SIGKILL);
            return PlacedOutput();
        };
        return plan;
    };
}

}  // namespace

// The log that the killed run has put in place is its own, and not a person's.
TEST(Kill, BetweenALogAndItsOutput) {
    Plant plant;
    plant.options.planOutput = placingOutputs([] { return SourceFiles(); });
    plant.add("a.pgm", "PROBE X\n");
    plant.run();
    for (const std::string axis : {"Y", "Z"}) {
        plant.write("a.pgm", "PROBE " + axis + "\n");
        const pid_t child = fork();
        if (child == 0) {
            plant.options.planOutput = killedBehindALog();
            plant.run();
            _exit(0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status));
    }
    const std::string log = plant.read("out/a.log");
    EXPECT_NE(log.find("PROBE"), std::string::npos) << log;
    plant.write("a.pgm", "G1 X1\n");
    const RunSummary summary = plant.run();
    EXPECT_TRUE(summary.outputNotices.empty()) << summary.outputNotices[0].text;
    EXPECT_EQ(plant.read("out/a.log"), "");
    EXPECT_EQ(plant.read("out/a.torvel"), "G1 X1\n\n");
}

TEST(Kill, RunsGoOnFromAnyStep) {
    Plant whole;
    prepare(whole);
    const long steps = runWithSteps(whole, 0);
    ASSERT_GT(steps, 60);
    const std::string dump = whole.dump();
    const std::string outputs = whole.outputs();
    EXPECT_NE(outputs.find("// by hand\n"), std::string::npos);

    Plant prepared;
    prepare(prepared);
    std::mt19937 random(20261121);
    int killed = 0;
    for (int i = 0; i < places; ++i) {
        Plant plant;
        plant.takeOver(prepared);
        const long first = static_cast<long>(random() % static_cast<unsigned long>(steps)) + 1;
        killed += runKilled(plant, first) ? 1 : 0;
        if (i % 3 == 0) {
            // Once more, in the run that goes on.
            runKilled(plant, static_cast<long>(random() % static_cast<unsigned long>(steps)) + 1);
        }
        runWithSteps(plant, 0);
        EXPECT_EQ(plant.dump(), dump) << "killed at step " << first << " of " << steps;
        EXPECT_EQ(outputsOf(plant), outputs) << "killed at step " << first << " of " << steps;
        if (testing::Test::HasFailure()) {
            return;
        }
    }
    EXPECT_GT(killed, places * 9 / 10);
}

}  // namespace torvel::migrate::test
