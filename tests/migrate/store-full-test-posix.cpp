// Stores that cannot be written: no room, no right to write, media that can only be read.

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <filesystem>

#include "src/migrate/database.h"
#include "tests/migrate/plant.h"

namespace torvel::migrate::test {

namespace {

/// What `work` says in a process of its own, which is not root; empty: nothing was wrong.
std::string saidByUser(const std::function<void()>& work) {
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe(ends.data()), 0);
    const pid_t child = fork();
    if (child == 0) {
        std::string said;
        try {
            if (geteuid() == 0 && setuid(65534) != 0) {
                said = "no other user";
            }
            work();
        } catch (const std::exception& error) {
            said = error.what();
        }
        [[maybe_unused]] const ssize_t ignored = ::write(ends[1], said.data(), said.size());
        _exit(0);
    }
    close(ends[1]);
    std::string said(2000, '\0');
    const ssize_t length = ::read(ends[0], said.data(), said.size());
    close(ends[0]);
    said.resize(length < 0 ? 0 : static_cast<std::size_t>(length));
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status));
    return said;
}

void setRights(const Plant& plant, std::filesystem::perms file, std::filesystem::perms folder) {
    std::filesystem::permissions(plant.project.folder, std::filesystem::perms(0755));
    if (plant.has("out/migration.sqlite")) {
        std::filesystem::permissions(plant.store(), file);
    }
    std::filesystem::permissions(plant.path("out"), folder);
}

constexpr auto readable = std::filesystem::perms(0444);
constexpr auto closed = std::filesystem::perms(0555);
constexpr auto open = std::filesystem::perms(0777);

std::string inStore(const Plant& plant) {
    return "The store \"" + plant.store().string() + "\" ";
}

void fill(Plant& plant, int count) {
    for (int i = 0; i < count; ++i) {
        std::string text;
        for (int line = 0; line < 200; ++line) {
            text += "G1 X" + std::to_string(i * 7919 + line * 104729) + "\n";
        }
        plant.add("p" + std::to_string(100 + i) + ".pgm", text);
    }
}

}  // namespace

TEST(StoreThatCannotBeWritten, ReadOnlyFolder) {
    Plant plant;
    plant.add("a.pgm", "G1 X1\n");
    plant.run();
    const std::string dump = plant.dump();
    setRights(plant, readable, closed);
    EXPECT_EQ(
        saidByUser([&] { Store(plant.store(), StoreUse::write); }),
        inStore(plant) +
            "cannot be written: its folder is not there or is read-only. Change that, or name "
            "another place with --store.");
    // What is there can be read.
    std::string read;
    EXPECT_EQ(saidByUser([&] {
                  if (plant.dump() != dump) {
                      throw std::runtime_error("something else was read");
                  }
              }),
              "");
    setRights(plant, readable, open);
    const std::string said = saidByUser([&] { Store(plant.store(), StoreUse::write); });
    EXPECT_EQ(said, inStore(plant) +
                        "cannot be written: the file or its folder is read-only. Change that, or "
                        "name another place with --store. (attempt to write a readonly database)");
}

TEST(StoreThatCannotBeWritten, RunThatWasCutOffOnReadOnlyMedia) {
    Plant plant;
    fill(plant, 3);
    const pid_t child = fork();
    if (child == 0) {
        Store store(plant.store(), StoreUse::write);
        runConversion(plant.project, plant.discovery, store, plant.options);
        std::raise(SIGKILL);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(plant.has("out/migration.sqlite-wal"));
    setRights(plant, readable, closed);
    EXPECT_EQ(
        saidByUser([&] { Store(plant.store(), StoreUse::read); }),
        inStore(plant) +
            "is of a run that was cut off, and cannot be read where nothing can be written. Copy "
            "it with the files beside it to another folder.");
    setRights(plant, std::filesystem::perms(0644), open);
    // Where it can be written it is settled by whoever reads it first.
    std::uint64_t programs = 0;
    Store(plant.store(), StoreUse::read).forEachProgram([&](const StoredProgram&) { ++programs; });
    EXPECT_EQ(programs, 3U);
    EXPECT_FALSE(plant.has("out/migration.sqlite-wal"));
    // The same without its log, which a copy may have left behind.
    {
        Database database(plant.store(), DatabaseUse::write);
        database.execute("PRAGMA journal_mode = WAL");
    }
    setRights(plant, readable, closed);
    EXPECT_EQ(saidByUser([&] { Store(plant.store(), StoreUse::read).runs(); }), "");
    setRights(plant, readable, open);
}

TEST(StoreThatCannotBeWritten, NoMoreRoom) {
    Plant plant;
    fill(plant, 40);
    plant.write("out/p100.torvel", "mine\n");
    const auto runWithRoomFor = [&](rlim_t bytes) {
        std::filesystem::permissions(plant.project.folder, open);
        std::filesystem::permissions(plant.path("out"), open);
        return saidByUser([&] {
            // Too long a file gives the signal, which would end the process.
            std::signal(SIGXFSZ, SIG_IGN);
            const rlimit limit{bytes, bytes};
            setrlimit(RLIMIT_FSIZE, &limit);
            plant.run();
        });
    };
    const std::string said = runWithRoomFor(100000);
    EXPECT_EQ(said,
              inStore(plant) +
                  "could not be read or written. See that its disk works and has room, and run "
                  "the command again; what was done so far is kept. (disk I/O error)");
    EXPECT_EQ(plant.read("out/p100.torvel"), "mine\n");
    // What was written is whole, and the next run goes on.
    EXPECT_EQ(runWithRoomFor(RLIM_INFINITY), "");
    EXPECT_EQ(plant.read("out/p100.torvel"), "mine\n");
    const std::string dump = plant.dump();
    const std::string outputs = plant.outputs();
    Plant whole;
    fill(whole, 40);
    whole.write("out/p100.torvel", "mine\n");
    whole.run();
    EXPECT_EQ(dump, whole.dump());
    EXPECT_EQ(outputs, whole.outputs());
}

}  // namespace torvel::migrate::test
