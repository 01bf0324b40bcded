#include "src/base/name-set.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "src/base/text-store.h"

namespace torvel {
namespace {

TEST(NameSet, KnowsEachNameOnce) {
    TextStore store;
    NameSet names;
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

/// Names of every length that differ in one byte, more than the first slots hold; what stands behind a name in the
/// text does not count.
TEST(NameSet, TellsNamesOfAnyLengthApart) {
    TextStore store;
    NameSet names;
    std::set<std::string> expected;
    for (std::size_t length = 1; length <= 20; ++length) {
        for (std::size_t place = 0; place < length; ++place) {
            for (const char letter : {'a', 'z', '0', '_'}) {
                std::string name(length, 'x');
                name[place] = letter;
                const TextSpan text = store.add(name + (place % 2 == 0 ? "y" : " "));
                EXPECT_EQ(names.insert(store.view({text.offset, text.length - 1})),
                          expected.insert(name).second)
                    << name;
            }
        }
    }
    EXPECT_EQ(expected.size(), 4U * 210U);
}

}  // namespace
}  // namespace torvel
