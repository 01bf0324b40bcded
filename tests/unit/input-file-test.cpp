// What a file that is read gives.

#include <gtest/gtest.h>

#include <string>

#include "src/base/file-system.h"
#include "tests/support/temporary-directory.h"

namespace torvel::test {

TEST(InputFile, GivesNoMoreThanItHas) {
    const TemporaryDirectory directory;
    writeFile(directory.path() / "short.txt", "12345");
    InputFile file;
    ASSERT_TRUE(file.open(directory.path() / "short.txt"));
    EXPECT_EQ(file.size(), 5U);
    std::string content(10, '-');
    bool failed = true;
    EXPECT_EQ(file.read(content.data(), 10, failed), 5U);
    EXPECT_FALSE(failed);
    EXPECT_EQ(content, "12345-----");
    EXPECT_EQ(file.read(content.data(), 10, failed), 0U);
    EXPECT_FALSE(failed);
}

}  // namespace torvel::test
