#include "src/app/work-sharing.h"

#include <gtest/gtest.h>

#ifdef __linux__
#include <sched.h>
#endif

#include <atomic>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>

namespace torvel::test {

namespace {

using Parts = PartsInOrder<int, std::string>;

std::string partOf(int task) {
    return "part " + std::to_string(task);
}

}  // namespace

TEST(PartsInOrder, ComeInTheOrderOfTheirTasks) {
    for (const unsigned helpers : {0U, 1U, 4U}) {
        Parts parts({helpers}, partOf);
        constexpr int count = 300;
        for (int task = 0; task < count; ++task) {
            parts.add(task, task + 1 == count);
        }
        for (int task = 0; task < count; ++task) {
            EXPECT_EQ(parts.next(), partOf(task)) << helpers << " helpers";
        }
        EXPECT_EQ(parts.next(), std::nullopt);
    }
}

TEST(PartsInOrder, OfOneTaskAreMadeByTheCaller) {
    std::thread::id maker;
    PartsInOrder<int, int> parts({3U}, [&](int task) {
        maker = std::this_thread::get_id();
        return task;
    });
    parts.add(7, true);
    EXPECT_EQ(parts.next(), 7);
    EXPECT_EQ(maker, std::this_thread::get_id());
}

TEST(PartsInOrder, FailWhereTheyAreTaken) {
    for (const unsigned helpers : {0U, 2U}) {
        Parts parts({helpers}, [](int task) {
            if (task == 1) {
                throw std::runtime_error("the second");
            }
            return partOf(task);
        });
        for (int task = 0; task < 3; ++task) {
            parts.add(task, task == 2);
        }
        EXPECT_EQ(parts.next(), partOf(0));
        EXPECT_THROW(parts.next(), std::runtime_error);
        EXPECT_EQ(parts.next(), partOf(2));
        EXPECT_EQ(parts.next(), std::nullopt);
    }
}

/// Who takes none of them ends the helpers all the same.
TEST(PartsInOrder, AreNotAllMadeBeforeTheyAreTaken) {
    std::atomic<int> made = 0;
    {
        Parts parts({2U}, [&](int task) {
            ++made;
            return partOf(task);
        });
        for (int task = 0; task < 99; ++task) {
            parts.add(task, false);
        }
    }
    EXPECT_LE(made, 99 / 4 + 1);
}

TEST(UsableProcessors, AreThoseThatTheProcessIsBoundTo) {
    EXPECT_GE(usableProcessors(), 1U);
#ifdef __linux__
    std::thread bound([] {
        cpu_set_t all;
        ASSERT_EQ(sched_getaffinity(0, sizeof all, &all), 0);
        cpu_set_t one;
        CPU_ZERO(&one);
        for (int cpu = 0; CPU_COUNT(&one) == 0; ++cpu) {
            if (CPU_ISSET(cpu, &all)) {
                CPU_SET(cpu, &one);
            }
        }
        ASSERT_EQ(sched_setaffinity(0, sizeof one, &one), 0);
        EXPECT_EQ(usableProcessors(), 1U);
    });
    bound.join();
#endif
}

}  // namespace torvel::test
