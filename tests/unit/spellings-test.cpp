#include "src/checks/spellings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <string>

#include "src/base/characters.h"
#include "src/base/text-store.h"

namespace torvel {
namespace {

class SpellingsTest : public testing::Test {
protected:
    bool isShadow(std::string_view name) {
        return spellings_.isShadow(store_.view(store_.add(name)));
    }

    TextStore store_;
    Spellings spellings_;
};

TEST_F(SpellingsTest, AWordOfTorvelIsOneInEverySpelling) {
    EXPECT_TRUE(isShadow("$rglobal"));
    EXPECT_FALSE(isShadow("$rglobal"));
    EXPECT_TRUE(isShadow("$RGlobal"));
    EXPECT_FALSE(isShadow("$RGlobal"));
    EXPECT_FALSE(isShadow("$rglobals"));
}

TEST_F(SpellingsTest, TheFirstSpellingOfANameIsNone) {
    EXPECT_FALSE(isShadow("$Count"));
    EXPECT_FALSE(isShadow("$Count"));
    EXPECT_TRUE(isShadow("$count"));
    EXPECT_FALSE(isShadow("$Count"));
    EXPECT_FALSE(isShadow("$count"));
    EXPECT_TRUE(isShadow("$COUNT"));
}

TEST_F(SpellingsTest, OnlyTheLettersFromAToZHaveAnotherCase) {
    EXPECT_FALSE(isShadow("@[\\]^_`{|}~"));
    EXPECT_FALSE(isShadow("`{|}~_@[\\]^"));
    EXPECT_FALSE(isShadow("\xc4"));
    EXPECT_FALSE(isShadow("\xe4"));
    EXPECT_FALSE(isShadow("A\xc1Z"));
    EXPECT_TRUE(isShadow("a\xc1z"));
    EXPECT_FALSE(isShadow("a\xe1z"));
}

/// Beside a plain way, with names of up to twenty letters and more of them than there is room for at first.
TEST_F(SpellingsTest, AreAsAPlainWayTellsThem) {
    std::mt19937 random(7);  // NOLINT(cert-msc51-cpp): the same names each time
    std::map<std::string, std::string> first;
    std::set<std::string> met;
    for (int i = 0; i < 60000; ++i) {
        std::string name = "$v";
        const std::size_t length = random() % 19;
        for (std::size_t place = 0; place < length; ++place) {
            name += "aAbBzZ_9"[random() % 8];
        }
        std::string lower = name;
        std::transform(lower.begin(), lower.end(), lower.begin(), lowerCase);
        const bool isOther = !first.emplace(lower, name).second && first[lower] != name;
        const bool expected = met.insert(name).second && isOther;
        ASSERT_EQ(isShadow(name), expected) << name;
    }
    EXPECT_GT(first.size(), 20000U);
}

}  // namespace
}  // namespace torvel
