// The tests are to find what they do not look for: memory that is lost, misused, or read beyond its end.
// This shows that the sanitizers are really watching.

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>

namespace torvel::test {

namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr bool isWatched = true;
#elif defined(__has_feature)
constexpr bool isWatched = __has_feature(address_sanitizer);
#else
constexpr bool isWatched = false;
#endif

/// Whether a process ended by a signal or with another status than 0.
bool failed(int status) {
    return !(WIFEXITED(status) && WEXITSTATUS(status) == 0);
}

class Sanitizers : public testing::Test {
protected:
    void SetUp() override {
        if (!isWatched) {
            GTEST_SKIP() << "built without sanitizers";
        }
        testing::FLAGS_gtest_death_test_style = "threadsafe";
    }

    volatile int one_ = 1;
};

[[gnu::noinline]] void leak() {
    volatile char* lost = new char[1000];
    lost[0] = 1;
    lost = nullptr;
}

TEST_F(Sanitizers, SeeLostMemory) {
    EXPECT_EXIT((leak(), std::exit(0)), failed, "LeakSanitizer: detected memory leaks");
}

TEST_F(Sanitizers, SeeReadingBeyondTheEnd) {
    EXPECT_EXIT(
        {
            const auto* const numbers = new int[1 + one_];
            const int sum = numbers[one_ + 1];
            delete[] numbers;
            std::exit(sum - sum);
        },
        failed, "AddressSanitizer: heap-buffer-overflow");
}

TEST_F(Sanitizers, SeeUndefinedBehaviour) {
    EXPECT_EXIT(
        {
            volatile int largest = std::numeric_limits<int>::max();
            largest = largest + one_;
            std::exit(0);
        },
        failed, "runtime error: signed integer overflow");
}

}  // namespace

}  // namespace torvel::test
