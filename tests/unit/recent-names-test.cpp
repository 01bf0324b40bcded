#include "src/base/recent-names.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "src/base/text-store.h"

namespace torvel {
namespace {

TEST(RecentNames, KnowWhatWasMetJustNow) {
    TextStore store;
    RecentNames names;
    const auto isNew = [&](std::string_view name) {
        return names.insert(store.view(store.add(name)));
    };
    for (const char* const name :
         {"$", "$a", "$b", "$A", "$position", "$position_", "$position_of_it", "$position_of_that",
          "$position_of_thos", "$position_of_those", "$position_of_these"}) {
        EXPECT_TRUE(isNew(name)) << name;
        EXPECT_FALSE(isNew(name)) << name;
    }
}

/// Names of every length that differ in one byte, several times as many as there is room for; what stands behind a
/// name in the text does not count.
TEST(RecentNames, NeverTakeANameForAnother) {
    TextStore store;
    RecentNames names;
    std::set<std::string> met;
    for (std::size_t length = 1; length <= 20; ++length) {
        for (std::size_t place = 0; place < length; ++place) {
            for (char letter = 'a'; letter < 'x'; ++letter) {
                std::string name(length, 'x');
                name[place] = letter;
                const TextSpan text = store.add(name + (place % 2 == 0 ? "y" : " "));
                EXPECT_TRUE(names.insert(store.view({text.offset, text.length - 1}))) << name;
                met.insert(name);
            }
        }
    }
    EXPECT_EQ(met.size(), 23U * 210U);
}

}  // namespace
}  // namespace torvel
