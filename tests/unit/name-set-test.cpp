#include "src/base/name-set.h"

#include <gtest/gtest.h>

#include <string>

#include "src/base/names-of-parts.h"
#include "src/base/text-store.h"

namespace torvel {
namespace {

TEST(NameSet, KnowsWhatWasEntered) {
    TextStore store;
    NameSet names;
    EXPECT_TRUE(names.empty());
    for (const char* const name :
         {"$", "$a", "$b", "$A", "$position", "$position_", "$position_of_it", "$position_of_that",
          "$position_of_thos", "$position_of_those", "$position_of_these"}) {
        const std::string_view text = store.view(store.add(name));
        EXPECT_FALSE(names.contains(text)) << name;
        EXPECT_TRUE(names.insert(text)) << name;
        EXPECT_FALSE(names.insert(text)) << name;
        EXPECT_TRUE(names.contains(text)) << name;
    }
    EXPECT_FALSE(names.empty());
}

/// One name of more than sixteen bytes is kept elsewhere than the others.
TEST(NameSet, IsNotEmptyWithALongNameOnly) {
    TextStore store;
    NameSet names;
    EXPECT_TRUE(names.insert(store.view(store.add("$position_of_those"))));
    EXPECT_FALSE(names.empty());
}

/// Names of every length that differ in one byte; what stands behind a name in the text does not count.
TEST(NameSet, NeverTakesANameForAnother) {
    TextStore store;
    NameSet names;
    for (std::size_t length = 1; length <= 20; ++length) {
        for (std::size_t place = 0; place < length; ++place) {
            for (char letter = 'a'; letter < 'x'; ++letter) {
                std::string name(length, 'x');
                name[place] = letter;
                const TextSpan text = store.add(name + (place % 2 == 0 ? "y" : " "));
                EXPECT_TRUE(names.insert(store.view({text.offset, text.length - 1}))) << name;
            }
        }
    }
}

class NamesOfPartsTest : public ::testing::Test {
protected:
    std::string_view text(std::string_view name) { return store_.view(store_.add(name)); }

    NamesOfParts parts_;

private:
    TextStore store_;
};

TEST_F(NamesOfPartsTest, GoOnWithWhatPartsInFrontHave) {
    std::unique_ptr<NameSet> first = parts_.take(0);
    EXPECT_TRUE(first->insert(text("$a")));
    parts_.giveBack(std::move(first), 0);
    const std::unique_ptr<NameSet> second = parts_.take(1);
    EXPECT_FALSE(second->insert(text("$a")));
    EXPECT_TRUE(second->insert(text("$b")));
}

TEST_F(NamesOfPartsTest, AreSeparateWhilePartsAreWorkedAt) {
    const std::unique_ptr<NameSet> first = parts_.take(0);
    EXPECT_TRUE(first->insert(text("$a")));
    EXPECT_TRUE(parts_.take(1)->insert(text("$a")));
}

/// A part that is begun late must not miss a name since a part behind it had that name.
TEST_F(NamesOfPartsTest, NeverHaveNamesOfPartsBehind) {
    std::unique_ptr<NameSet> late = parts_.take(5);
    EXPECT_TRUE(late->insert(text("$a")));
    parts_.giveBack(std::move(late), 5);
    EXPECT_TRUE(parts_.take(4)->insert(text("$a")));
    EXPECT_FALSE(parts_.take(6)->insert(text("$a")));
}

}  // namespace
}  // namespace torvel
