// The offsets of a TextStore have 32 bits: what they cannot number is refused.

#include "src/lex/text-store.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <new>

namespace torvel::test {

namespace {

/// Offsets come in pages, the first of which is never used.
constexpr std::size_t pageSize = std::size_t{1} << 16U;
/// The longest text that can be numbered, with the NUL byte behind it.
constexpr std::size_t longest = UINT32_MAX - pageSize - 1;

}  // namespace

TEST(TextStore, RefusesATextLongerThanAllOffsets) {
    TextStore store;
    EXPECT_THROW(store.allocate(longest + 1), TextStoreFull);
    EXPECT_THROW(store.allocate(std::size_t{UINT32_MAX} + 1), TextStoreFull);
    EXPECT_EQ(store.view(store.add("kept")), "kept");
}

TEST(TextStore, RefusesTextsThatHaveNoOffsetsLeft) {
    TextStore store;
    TextSpan most;
    try {
        // Only its ends are touched, so the system finds room for it where it lends memory.
        most = store.allocate(longest);
    } catch (const std::bad_alloc&) {
        GTEST_SKIP() << "the system has no room for 4 GiB";
    }
    EXPECT_EQ(most.length, longest);
    store.data(most)[longest - 1] = 'z';
    EXPECT_THROW(store.add("x"), TextStoreFull);
    EXPECT_THROW(store.allocate(pageSize), TextStoreFull);
    EXPECT_EQ(store.view(most.part(longest - 1, 1)), "z");
}

}  // namespace torvel::test
