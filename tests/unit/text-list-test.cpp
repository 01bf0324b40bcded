// Lists of texts: each is what was appended to it, however many there are and however long they get.

#include "src/base/text-list.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace torvel::test {

TEST(TextList, GivesEachTextAsItWasPutTogether) {
    TextList list;
    EXPECT_TRUE(list.empty());
    for (int number = 0; number < 30; ++number) {
        if (number % 3 == 0) {
            list.begin();  // stays empty
        } else {
            TextBuffer& text = list.begin();
            text += std::to_string(number);
            text.append(static_cast<std::size_t>(number), '.');
        }
        ASSERT_EQ(list.size(), static_cast<std::size_t>(number) + 1);
        for (int known = 0; known <= number; ++known) {
            const std::string expected =
                known % 3 == 0
                    ? std::string()
                    : std::to_string(known) + std::string(static_cast<std::size_t>(known), '.');
            ASSERT_EQ(list[static_cast<std::size_t>(known)], expected) << known << " of " << number;
        }
    }
}

TEST(TextList, CanBeMoved) {
    TextList list;
    for (const char* const text : {"a", "", "bc", "d", "e", "f", "g", "h", "i", "j"}) {
        list.add(text);
    }
    const TextList moved = std::move(list);
    ASSERT_EQ(moved.size(), 10U);
    EXPECT_EQ(moved[0], "a");
    EXPECT_EQ(moved[1], "");
    EXPECT_EQ(moved[2], "bc");
    EXPECT_EQ(moved[9], "j");
}

}  // namespace torvel::test
