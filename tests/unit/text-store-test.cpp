// The offsets of a TextStore have 32 bits: what they cannot number is refused.

#include "src/base/text-store.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <iterator>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "src/base/parse-exception.h"
#include "src/preprocess/preprocessor.h"
#include "tests/support/temporary-directory.h"

namespace torvel::test {

namespace {

/// Offsets come in pages, the first of which is never used.
constexpr std::size_t pageSize = std::size_t{1} << 16U;
/// The longest text that can be numbered, with the NUL byte behind it.
constexpr std::size_t longest = UINT32_MAX - pageSize - 1;

/// What ends the run of a program for whose text `room` bytes are left; empty if nothing does.
std::string faultWithRoom(std::size_t room, const std::string& text) {
    const TemporaryDirectory directory;
    const std::string path = (directory.path() / "main.pgm").string();
    writeFile(path, text);
    Program program;
    program.text.allocate(longest - room);
    try {
        preprocessProgram(program, path, AxisNames(), Limits());
    } catch (const ParseException& error) {
        return error.what();
    }
    return {};
}

}  // namespace

/// Of every length around those at which a text gets memory of its own, more than several chunks hold.
TEST(TextStore, KeepsTextsWhereTheyAre) {
    TextStore store;
    std::vector<std::pair<TextSpan, std::string>> texts;
    std::vector<const char*> places;
    constexpr std::size_t total = std::size_t{40} << 20U;
    std::size_t bytes = 0;
    for (std::size_t number = 0; bytes < total; ++number) {
        constexpr std::size_t lengths[] = {1,
                                           15,
                                           16,
                                           1000,
                                           pageSize / 4,
                                           pageSize / 4 + 1,
                                           pageSize,
                                           (1U << 20U) - 1,
                                           1U << 20U,
                                           (1U << 20U) + 1};
        const std::string text(lengths[number % std::size(lengths)],
                               static_cast<char>('a' + number % 26));
        texts.emplace_back(store.add(text), text);
        places.push_back(store.view(texts.back().first).data());
        bytes += text.size();
    }
    for (std::size_t number = 0; number < texts.size(); ++number) {
        const auto& [span, text] = texts[number];
        ASSERT_EQ(store.view(span), text) << number;
        EXPECT_EQ(store.view(span).data(), places[number]);
        EXPECT_EQ(store.view(span).data()[text.size()], '\0');
    }
}

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
    EXPECT_EQ(store.view(most.subspan(longest - 1, 1)), "z");
}

TEST(TextStore, WithoutRoomThatTheProgramNeeds) {
    try {
        // The file has a piece of its own, and what is made of its lines another.
        const std::string text = "$a = 1\n#define A \\\n2\n" + std::string(20'000, '\n');
        EXPECT_EQ(faultWithRoom(2 * pageSize, text), "");
        EXPECT_EQ(faultWithRoom(pageSize, text), "main.pgm:2: The program is too large.\n");
        EXPECT_EQ(faultWithRoom(0, text), "The program is too large.\n");
    } catch (const std::bad_alloc&) {
        GTEST_SKIP() << "the system has no room for 4 GiB";
    }
}

}  // namespace torvel::test
