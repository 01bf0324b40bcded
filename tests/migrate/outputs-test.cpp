// Outputs on the disk: what is written, what is left, and what cannot be done.

#include "src/migrate/outputs.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

#include "src/migrate/new-file.h"
#include "src/migrate/store.h"
#include "tests/support/temporary-directory.h"

namespace torvel::migrate::test {

namespace {

using torvel::test::readFile;
using torvel::test::writeFile;

constexpr std::string_view first = "a\nb\nc\n";
constexpr std::string_view second = "a\nB\nc\n";

class Outputs : public testing::Test {
protected:
    NativePath path(const std::string& name) const { return directory_.path() / name; }
    NativePath output() const { return path("out/part.torvel"); }
    NativePath conflict() const { return path("out/part.torvel.conflict"); }

    OutputPlan plan(std::string_view generated) const {
        return planOutput(output(), history, generated, isSource);
    }
    /// Plans and carries out, as a run does, and remembers what a store would.
    OutputPlan place(std::string_view generated) {
        OutputPlan made = plan(generated);
        history = made.decision.history;
        const CarriedOut done = carryOut(made);
        EXPECT_TRUE(done.isDone) << done.message;
        history = confirmed(history);
        return made;
    }
    void expectRefused(const OutputPlan& made, std::string_view reason) const {
        EXPECT_EQ(made.decision.action, OutputAction::refuse);
        EXPECT_NE(made.message.find(reason), std::string::npos) << made.message;
        EXPECT_FALSE(carryOut(made).isDone);
    }
    std::size_t filesIn(const NativePath& folder) const {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder),
                                                      std::filesystem::directory_iterator()));
    }
    static mode_t modeOf(const NativePath& file) {
        struct stat status {};
        EXPECT_EQ(stat(file.c_str(), &status), 0);
        return status.st_mode & 07777U;
    }

    OutputHistory history;
    SourceFiles sources;
    IsSource isSource = [this](const FileIdentity& file) { return sources.contains(file); };

private:
    torvel::test::TemporaryDirectory directory_;
};

}  // namespace

TEST_F(Outputs, AnOutputsLife) {
    EXPECT_EQ(place(first).decision.action, OutputAction::writeGenerated);
    EXPECT_EQ(readFile(output()), first);
    EXPECT_EQ(filesIn(path("out")), 1U);

    writeFile(output(), "a\nb\nc\nmine\n");
    EXPECT_EQ(place(second).decision.action, OutputAction::writeMerged);
    EXPECT_EQ(readFile(output()), "a\nB\nc\nmine\n");

    const std::string third = "a\nB\nc\ntheirs\n";
    const OutputPlan conflicting = place(third);
    EXPECT_EQ(conflicting.decision.action, OutputAction::writeConflict);
    EXPECT_EQ(conflicting.message,
              output().string() +
                  " was edited in lines that the converter generates in another way now. It stays "
                  "as it is; part.torvel.conflict beside it shows both. Bring them together in "
                  "either of the two, put the result in the output's place, delete the conflict "
                  "file, and convert again.");
    EXPECT_EQ(readFile(output()), "a\nB\nc\nmine\n");
    EXPECT_EQ(readFile(conflict()), conflicting.decision.bytes);
    EXPECT_EQ(history.base, second);

    // Once more without a change: it stays as it is.
    EXPECT_EQ(place(third).decision.action, OutputAction::writeConflict);
    EXPECT_EQ(readFile(conflict()), conflicting.decision.bytes);

    // The person decides, and puts the result in place.
    writeFile(conflict(), "a\nB\nc\nmine\ntheirs\n");
    const std::string waiting =
        output().string() +
        " and what the converter generates now wait to be brought together, so it stays as it is. ";
    const OutputPlan edited = place(third);
    EXPECT_EQ(edited.decision.action, OutputAction::waitForPerson);
    EXPECT_EQ(edited.message, waiting +
                                  "Put the result in its place, without conflict markers, delete "
                                  "part.torvel.conflict, and convert again.");
    // The conflict file in the output's place, not edited to the end: there is none to be deleted.
    const std::string result = readFile(conflict());
    std::filesystem::rename(conflict(), output());
    writeFile(output(), conflicting.decision.bytes);
    const OutputPlan unfinished = place(third);
    EXPECT_EQ(unfinished.decision.action, OutputAction::waitForPerson);
    EXPECT_EQ(unfinished.message,
              waiting + "It has conflict markers: take them out, and convert again.");
    writeFile(output(), result);
    EXPECT_EQ(place(third).decision.action, OutputAction::nothing);
    EXPECT_EQ(history.base, third);
    EXPECT_FALSE(history.conflict);
    const std::string fourth = "new\n" + third;
    EXPECT_EQ(place(fourth).decision.action, OutputAction::writeMerged);
    EXPECT_EQ(readFile(output()), "new\na\nB\nc\nmine\ntheirs\n");

    std::filesystem::remove(output());
    const OutputPlan deleted = place(third);
    EXPECT_EQ(deleted.decision.action, OutputAction::leaveDeleted);
    EXPECT_EQ(deleted.message,
              output().string() +
                  " was deleted, so it is not written again. To have it back, convert with "
                  "--restore.");
    EXPECT_EQ(filesIn(path("out")), 0U);
}

TEST_F(Outputs, AConflictFileThatIsOfNoUseIsRemoved) {
    place(first);
    writeFile(output(), "a\nmine\nc\n");
    place(second);
    EXPECT_EQ(filesIn(path("out")), 2U);
    writeFile(output(), std::string(second));
    EXPECT_EQ(place(second).decision.action, OutputAction::nothing);
    EXPECT_EQ(filesIn(path("out")), 1U);
    EXPECT_EQ(history.base, second);
    EXPECT_FALSE(history.conflict);
}

TEST_F(Outputs, ForeignOnesAreLeft) {
    writeFile(output(), "mine\n");
    const OutputPlan made = place(first);
    EXPECT_EQ(made.decision.action, OutputAction::leaveForeign);
    EXPECT_NE(made.message.find("does not know from what it was made"), std::string::npos);
    EXPECT_EQ(readFile(output()), "mine\n");
}

TEST_F(Outputs, PermissionsAreKept) {
    place(first);
    ASSERT_EQ(chmod(output().c_str(), 0640), 0);
    place(second);
    EXPECT_EQ(readFile(output()), second);
    EXPECT_EQ(modeOf(output()), 0640U);
}

TEST_F(Outputs, AWriteProtectedOneIsLeft) {
    place(first);
    ASSERT_EQ(chmod(output().c_str(), 0444), 0);
    const OutputPlan made = plan(second);
    expectRefused(made, "is write-protected");
    EXPECT_EQ(made.decision.history.base, first);
    EXPECT_FALSE(made.decision.history.pending);
    EXPECT_EQ(readFile(output()), first);
    EXPECT_EQ(plan(first).decision.action, OutputAction::nothing);
}

TEST_F(Outputs, SymbolicLinksAreFollowed) {
    writeFile(path("elsewhere/part.torvel"), std::string(first));
    std::filesystem::create_directory(path("out"));
    std::filesystem::create_symlink("../elsewhere/part.torvel", output());
    history.base = first;
    place(second);
    EXPECT_TRUE(std::filesystem::is_symlink(output()));
    EXPECT_EQ(readFile(path("elsewhere/part.torvel")), second);
    EXPECT_EQ(filesIn(path("elsewhere")), 1U);
    EXPECT_EQ(filesIn(path("out")), 1U);

    std::filesystem::remove(path("elsewhere/part.torvel"));
    expectRefused(plan(first), "is a symbolic link that leads to no file");
    EXPECT_EQ(filesIn(path("elsewhere")), 0U);
}

TEST_F(Outputs, OtherNamesOfAFileKeepTheirText) {
    place(first);
    std::filesystem::create_hard_link(output(), path("kept"));
    place(second);
    EXPECT_EQ(readFile(path("kept")), first);
    EXPECT_EQ(readFile(output()), second);
}

TEST_F(Outputs, ASourceIsNeverReplaced) {
    writeFile(path("part.pgm"), std::string(first));
    sources.insert(fileIdentity(path("part.pgm")));
    std::filesystem::create_directory(path("out"));
    std::filesystem::create_symlink("../part.pgm", output());
    history.base = first;
    expectRefused(plan(second), "is a source of the programs");
    std::filesystem::remove(output());
    std::filesystem::create_hard_link(path("part.pgm"), output());
    expectRefused(plan(second), "is a source of the programs");
    const LogPlan log = planLog(output(), {}, second, isSource);
    EXPECT_EQ(log.action, LogAction::refuse);
    EXPECT_NE(log.message.find("is a source of the programs"), std::string::npos) << log.message;
    EXPECT_FALSE(carryOut(log).isDone);
    EXPECT_EQ(readFile(path("part.pgm")), first);
}

TEST_F(Outputs, WhatIsNoFile) {
    std::filesystem::create_directories(output());
    expectRefused(plan(first), "is a folder");
    EXPECT_FALSE(carryOut(planLog(output(), {}, first, isSource)).isDone);
    std::filesystem::remove(output());
    ASSERT_EQ(mkfifo(output().c_str(), 0600), 0);
    expectRefused(plan(first), "is no regular file");
    std::filesystem::remove(output());
    // The conflict file's place.
    writeFile(output(), "a\nmine\nc\n");
    history.base = first;
    std::filesystem::create_directory(conflict());
    expectRefused(plan(second), "is a folder");
}

TEST_F(Outputs, AFolderThatCannotBeMade) {
    writeFile(path("out"), "no folder");
    const OutputPlan made = plan(first);
    const CarriedOut done = carryOut(made);
    EXPECT_FALSE(done.isDone);
    EXPECT_NE(done.message.find("part.torvel cannot be written (Not a directory)."),
              std::string::npos)
        << done.message;
    EXPECT_EQ(readFile(path("out")), "no folder");
}

TEST_F(Outputs, AFolderWithoutRights) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "Only root can take on another user here.";
    }
    place(first);
    ASSERT_EQ(chmod(path("").c_str(), 0755), 0);
    const OutputPlan made = plan(second);
    ASSERT_EQ(seteuid(65534), 0);
    const CarriedOut done = carryOut(made);
    ASSERT_EQ(seteuid(0), 0);
    EXPECT_FALSE(done.isDone);
    EXPECT_NE(done.message.find("cannot be written (Permission denied)."), std::string::npos)
        << done.message;
    EXPECT_EQ(readFile(output()), first);

    ASSERT_EQ(chmod(output().c_str(), 0600), 0);
    ASSERT_EQ(seteuid(65534), 0);
    const OutputPlan unreadable = plan(second);
    ASSERT_EQ(seteuid(0), 0);
    expectRefused(unreadable, "cannot be read");
    EXPECT_EQ(unreadable.decision.history.base, first);
}

TEST_F(Outputs, NoRoomOnTheDisk) {
    place(first);
    const std::string large(100'000, 'x');
    const OutputPlan made = plan(large);
    // A bound on the length of files fails as a full disk does, in the middle of the text.
    const auto oldAction = std::signal(SIGXFSZ, SIG_IGN);
    rlimit old{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &old), 0);
    rlimit bound = old;
    bound.rlim_cur = 50'000;
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &bound), 0);
    const CarriedOut done = carryOut(made);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &old), 0);
    std::signal(SIGXFSZ, oldAction);
    EXPECT_FALSE(done.isDone);
    EXPECT_NE(done.message.find("cannot be written (File too large)."), std::string::npos)
        << done.message;
    EXPECT_EQ(readFile(output()), first);
    EXPECT_EQ(filesIn(path("out")), 1U);
    // The store has the plan in mind; the next run finds that nothing came of it.
    history = made.decision.history;
    EXPECT_EQ(place(large).decision.action, OutputAction::writeGenerated);
    EXPECT_EQ(readFile(output()), large);
}

TEST_F(Outputs, AFileThatChangesWhileItIsConverted) {
    place(first);
    const OutputPlan made = plan(second);
    writeFile(output(), "saved just now\n");
    const CarriedOut done = carryOut(made);
    EXPECT_FALSE(done.isDone);
    EXPECT_NE(done.message.find("was changed by somebody else just now"), std::string::npos);
    EXPECT_EQ(readFile(output()), "saved just now\n");
    EXPECT_EQ(filesIn(path("out")), 1U);
    // One that vanished is not written again either.
    std::filesystem::remove(output());
    EXPECT_FALSE(carryOut(made).isDone);
    EXPECT_EQ(filesIn(path("out")), 0U);
}

TEST_F(Outputs, WhatAKilledRunLeftIsTakenAway) {
    writeFile(temporaryPath(output()), "half");
    place(first);
    EXPECT_EQ(readFile(output()), first);
    EXPECT_EQ(filesIn(path("out")), 1U);
}

TEST_F(Outputs, KilledBetweenStoreAndFileAndBetweenFileAndConfirmation) {
    place(first);
    history = plan(second).decision.history;
    EXPECT_EQ(plan(second).decision.action, OutputAction::writeGenerated);
    const OutputPlan made = plan(second);
    history = made.decision.history;
    ASSERT_TRUE(carryOut(made).isDone);
    const OutputPlan next = plan(second);
    EXPECT_EQ(next.decision.action, OutputAction::nothing);
    EXPECT_EQ(confirmed(next.decision.history).base, second);
}

TEST_F(Outputs, FoldersAreFlushed) {
    place(first);
    flushFolder(path("out"));
    flushFolder(path("missing"));
    EXPECT_TRUE(canFlushFolder());
    EXPECT_EQ(readFile(output()), first);
}

TEST_F(Outputs, ALogsLife) {
    const NativePath log = path("logs/part.log");
    const std::string sentence =
        log.string() +
        " is there, and it is not the log that was written last, so it stays as it is. To have the "
        "log written, move it away and convert again.";
    const auto place = [&](const LogHistory& known, std::string_view text) {
        const LogPlan made = planLog(log, known, text, isSource);
        const CarriedOut done = carryOut(made);
        EXPECT_EQ(done.isDone, made.action != LogAction::leaveForeign);
        EXPECT_EQ(done.message, made.action == LogAction::leaveForeign ? sentence : "");
        return made.action;
    };
    const LogHistory none{noFile, {}};
    EXPECT_EQ(place(none, first), LogAction::write);
    EXPECT_EQ(readFile(log), first);
    EXPECT_EQ(filesIn(path("logs")), 1U);

    // What was written last is replaced, whatever its line ends; what is right already is not touched.
    writeFile(log, "a\r\nb\r\nc");
    const LogHistory written{logHash(first), {}};
    const auto time = std::filesystem::last_write_time(log);
    EXPECT_EQ(place(written, first), LogAction::nothing);
    EXPECT_EQ(std::filesystem::last_write_time(log), time);
    EXPECT_EQ(place(written, second), LogAction::write);
    EXPECT_EQ(readFile(log), second);

    // A person's stays, whether one of ours was there before or not, until it is gone.
    writeFile(log, "mine\n");
    for (const LogHistory& known : {none, written, LogHistory{noFile, logHash(second)}}) {
        EXPECT_EQ(place(known, second), LogAction::leaveForeign);
        EXPECT_EQ(readFile(log), "mine\n");
    }
    std::filesystem::remove(log);
    EXPECT_EQ(place(written, second), LogAction::write);

    // Of an older store nobody knows.
    writeFile(log, "mine\n");
    EXPECT_EQ(place({}, second), LogAction::write);
    EXPECT_EQ(readFile(log), second);
}

TEST_F(Outputs, ALogOfARunThatWasCutOff) {
    const NativePath log = path("logs/part.log");
    const LogHistory pending{noFile, logHash(first)};
    // It was put in place, and now there is another one.
    EXPECT_TRUE(carryOut(planLog(log, pending, first, isSource)).isDone);
    EXPECT_EQ(planLog(log, pending, second, isSource).action, LogAction::write);
    // A power cut has left a part of it, or nothing but its length.
    for (const std::string& torn : {std::string(), std::string("a\n"), std::string(6, '\0')}) {
        writeFile(log, torn);
        EXPECT_EQ(planLog(log, pending, first, isSource).action, LogAction::write);
        EXPECT_EQ(planLog(log, {noFile, {}}, first, isSource).action, LogAction::leaveForeign);
    }
}

TEST_F(Outputs, ALogThatChangesWhileTheProgramIsConverted) {
    for (const std::string_view text : {std::string_view(first), std::string_view()}) {
        const NativePath log = path("part.log");
        std::filesystem::remove(log);
        const LogPlan made = planLog(log, {noFile, {}}, text, isSource);
        writeFile(log, "mine\n");
        const CarriedOut done = carryOut(made);
        EXPECT_FALSE(done.isDone);
        EXPECT_NE(done.message.find("was changed by somebody else just now"), std::string::npos)
            << done.message;
        EXPECT_EQ(readFile(log), "mine\n");
    }
}

TEST_F(Outputs, AnEmptyLog) {
    const NativePath log = path("logs/part.log");
    const LogHistory none{noFile, {}};
    // In a folder that has to be made, and in one that is there.
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(carryOut(planLog(log, none, "", isSource)).isDone);
        EXPECT_EQ(readFile(log), "");
        EXPECT_EQ(filesIn(path("logs")), 1U);
        std::filesystem::remove(log);
    }
    writeFile(log, first);
    EXPECT_TRUE(carryOut(planLog(log, {logHash(first), {}}, "", isSource)).isDone);
    EXPECT_EQ(readFile(log), "");
    EXPECT_EQ(planLog(log, {logHash(""), {}}, "", isSource).action, LogAction::nothing);
}

TEST_F(Outputs, NamesOfAllBytesAndTheLongestOnes) {
    for (const std::string& name :
         {std::string("line\nfeed\"<script>\xff.torvel"), std::string(255, 'n')}) {
        const NativePath place = path("names") / name;
        const OutputPlan made = planOutput(place, {}, first, isSource);
        EXPECT_TRUE(carryOut(made).isDone);
        EXPECT_EQ(readFile(place), first);
    }
    const NativePath tooLong = path("names") / std::string(256, 'n');
    const CarriedOut done = carryOut(planOutput(tooLong, {}, first, isSource));
    EXPECT_FALSE(done.isDone);
    EXPECT_NE(done.message.find("cannot be replaced (File name too long)"), std::string::npos)
        << done.message;
    EXPECT_EQ(filesIn(path("names")), 2U);
}

}  // namespace torvel::migrate::test
