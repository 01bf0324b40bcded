// A code, once given, keeps its meaning: codes.txt lists those of messages and checks with their texts. A new code
// is entered there; one that was ever given stays.

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>

#include "tests/support/check-rows.h"
#include "tests/support/message-rows.h"
#include "tests/support/temporary-directory.h"
#include "tests/support/text-difference.h"

namespace torvel::test {

namespace {

std::map<std::string, std::string> listedCodes() {
    std::map<std::string, std::string> codes;
    const std::string list =
        readFile(std::filesystem::path(TORVEL_SOURCE_DIR) / "tests/coverage/codes.txt");
    for (const std::string_view line : splitLines(list)) {
        const std::size_t end = line.find(" = ");
        codes.emplace(line.substr(0, end), line.substr(end + 3));
    }
    return codes;
}

std::map<std::string, std::string> codesOfRows() {
    std::map<std::string, std::string> codes;
    for (const MessageRow& row : messageRows()) {
        EXPECT_TRUE(codes.emplace(row.code, row.text).second) << row.code << " stands twice";
    }
    for (const CheckRow& row : checkRows()) {
        EXPECT_TRUE(codes.emplace(row.code, row.title).second) << row.code << " stands twice";
    }
    return codes;
}

TEST(Codes, AreThoseOfTheList) {
    EXPECT_EQ(codesOfRows(), listedCodes());
}

TEST(Codes, AreSmallLettersDigitsAndHyphens) {
    for (const auto& [code, text] : codesOfRows()) {
        EXPECT_EQ(code.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789-"),
                  std::string::npos)
            << code;
    }
}

}  // namespace

}  // namespace torvel::test
