// What a run keeps of each program, by what the process has in memory at most with few and with many of them.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/temporary-directory.h"

namespace torvel::migrate::test {

namespace {

namespace fs = std::filesystem;

#if defined(__SANITIZE_ADDRESS__) || !defined(__linux__)
constexpr bool isMeasurable = false;
#else
constexpr bool isMeasurable = true;
#endif

constexpr long few = 1500;
constexpr long many = 6000;

/// Bytes that the program has in memory at most, run in a folder. Negative: it failed.
long memoryOf(const fs::path& folder, std::vector<const char*> words) {
    words.insert(words.begin(), TORVEL_MIGRATE);
    words.push_back(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        if (chdir(folder.c_str()) == 0) {
            dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
            execv(TORVEL_MIGRATE, const_cast<char* const*>(words.data()));
        }
        _exit(127);
    }
    int status = 0;
    struct rusage usage {};
    wait4(child, &status, 0, &usage);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? usage.ru_maxrss * 1024 : -1;
}

void fill(const fs::path& folder, long count) {
    torvel::test::writeFile(folder / "programs/shared.inc", "DVAR $a\n");
    for (long i = 0; i < count; ++i) {
        torvel::test::writeFile(folder / "programs" / ("cell" + std::to_string(i % 50)) /
                                    ("program" + std::to_string(i) + ".pgm"),
                                "#include \"../shared.inc\"\nG1 X" + std::to_string(i) + "\n");
    }
}

}  // namespace

TEST(Memory, LittleIsKeptOfEachProgram) {
    if (!isMeasurable) {
        GTEST_SKIP() << "under the sanitizer memory is another";
    }
    const torvel::test::TemporaryDirectory small;
    const torvel::test::TemporaryDirectory large;
    fill(small.path(), few);
    fill(large.path(), many);
    // The first run, one in which nothing has changed, and what reads the store.
    const std::vector<std::vector<const char*>> commands{{"convert", "programs", "-j", "2"},
                                                         {"convert", "programs", "-j", "2"},
                                                         {"status"},
                                                         {"report", "--json", "report.json"}};
    for (const std::vector<const char*>& words : commands) {
        const long before = memoryOf(small.path(), words);
        const long after = memoryOf(large.path(), words);
        ASSERT_GT(before, 0) << words[0];
        ASSERT_GT(after, 0) << words[0];
        EXPECT_LT((after - before) / (many - few), 1500) << words[0] << ' ' << words.back();
    }
}

}  // namespace torvel::migrate::test
