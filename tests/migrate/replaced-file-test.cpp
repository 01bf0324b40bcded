// Files of reports that are there as a whole or not at all.

#include "src/migrate/replaced-file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <thread>

#include "tests/support/temporary-directory.h"

namespace torvel::migrate::test {

TEST(ReplacedFile, BytesAreWrittenAsTheyAre) {
    const torvel::test::TemporaryDirectory directory;
    const NativePath path = directory.path() / "a.csv";
    replaceFile(path, [](const TextSink& sink) {
        sink("a\r\n");
        sink("b\n");
    });
    EXPECT_EQ(torvel::test::readFile(path), "a\r\nb\n");
}

TEST(ReplacedFile, TheOldOneStaysWhenTheWriterFails) {
    const torvel::test::TemporaryDirectory directory;
    const NativePath path = directory.path() / "a.json";
    torvel::test::writeFile(path, "old");
    const auto fail = [](const TextSink& sink) {
        sink("half");
        throw std::runtime_error("the store is damaged");
    };
    EXPECT_THROW(replaceFile(path, fail), std::runtime_error);
    EXPECT_EQ(torvel::test::readFile(path), "old");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(directory.path()), {}), 1);
}

TEST(ReplacedFile, ALinkStaysALink) {
    const torvel::test::TemporaryDirectory directory;
    torvel::test::writeFile(directory.path() / "real.json", "old");
    std::filesystem::create_symlink("real.json", directory.path() / "link.json");
    replaceFile(directory.path() / "link.json", [](const TextSink& sink) { sink("new"); });
    EXPECT_TRUE(std::filesystem::is_symlink(directory.path() / "link.json"));
    EXPECT_EQ(torvel::test::readFile(directory.path() / "real.json"), "new");
}

TEST(ReplacedFile, APipeIsWrittenTo) {
    const torvel::test::TemporaryDirectory directory;
    const NativePath path = directory.path() / "pipe";
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    std::string read;
    std::thread reader([&read, &path] { read = torvel::test::readFile(path); });
    replaceFile(path, [](const TextSink& sink) { sink("text"); });
    reader.join();
    EXPECT_EQ(read, "text");
    EXPECT_TRUE(std::filesystem::is_fifo(path));
}

TEST(ReplacedFile, AFullDiskIsTold) {
    EXPECT_THROW(replaceFile("/dev/full", [](const TextSink& sink) { sink("x"); }),
                 std::runtime_error);
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

}  // namespace torvel::migrate::test
