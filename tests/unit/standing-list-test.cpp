#include "src/base/standing-list.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace torvel::test {

TEST(StandingList, KeepsElementsWhereTheyAre) {
    StandingList<std::string, 4> list;
    EXPECT_TRUE(list.empty());
    std::vector<const std::string*> places;
    constexpr std::size_t count = 1000;
    for (std::size_t number = 0; number < count; ++number) {
        places.push_back(&list.append(std::to_string(number)));
        EXPECT_EQ(&list.back(), places.back());
    }
    ASSERT_EQ(list.size(), count);
    for (std::size_t number = 0; number < count; ++number) {
        EXPECT_EQ(list[number], std::to_string(number));
        EXPECT_EQ(&list[number], places[number]);
    }
}

TEST(StandingList, DestroysWhatItHeld) {
    const auto shared = std::make_shared<int>(0);
    StandingList<std::shared_ptr<int>> list;
    for (int i = 0; i < 100; ++i) {
        list.append(shared);
    }
    EXPECT_EQ(shared.use_count(), 101);
    list.clear();
    EXPECT_EQ(shared.use_count(), 1);
    EXPECT_TRUE(list.empty());
    list.append(shared);
    EXPECT_EQ(list.back(), shared);
    EXPECT_EQ(shared.use_count(), 2);
}

}  // namespace torvel::test
