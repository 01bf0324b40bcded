// Every message stands in the expected log or standard error of some golden or command-line case, and
// every expected message is one of the program's.

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

#include "tests/coverage/golden-lines.h"
#include "tests/support/case-run.h"
#include "tests/support/message-rows.h"

namespace torvel::test {

namespace {

constexpr ExcusedMessage excuses[] = {
    {"FileNotOpened", "needs a file that whoever runs the tests may not read"},
    {"OutOfMemory", "a run that takes all memory would take the machine's"},
    {"UnknownException", "nothing in the program throws what is no std::exception"},
};

/// The messages that a case expects.
std::vector<std::string> expectedMessages(const Case& test) {
    std::vector<std::string> messages;
    if (test.expected.status == 0) {
        messages = messagesOfLog(test.expected.log.value_or(""));
    }
    if (!test.expected.standardError.empty()) {
        messages.push_back(messageOfStandardError(test.expected.standardError));
    }
    return messages;
}

struct ExpectedMessages {
    std::set<std::string_view> symbols;
    std::string unknown;
};

ExpectedMessages readExpectedMessages() {
    ExpectedMessages found;
    for (const char* folder : {"tests/golden", "tests/command_line"}) {
        visitCases(std::filesystem::path(TORVEL_SOURCE_DIR) / folder,
                   [&](const std::string&, const std::string&, const std::filesystem::path& path) {
                       for (const std::string& message : expectedMessages(readCase(path))) {
                           if (const MessageRow* row = rowOfMessage(message)) {
                               found.symbols.insert(row->symbol);
                           } else {
                               found.unknown += path.string() + ": " + message + '\n';
                           }
                       }
                   });
    }
    return found;
}

TEST(MessageCoverage, EveryMessageIsExpectedBySomeCase) {
    const ExpectedMessages found = readExpectedMessages();
    EXPECT_TRUE(found.unknown.empty()) << "are no messages of the program:\n" << found.unknown;
    Missing missing;
    for (const MessageRow& row : messageRows()) {
        const bool isExcused = !reasonOf(excuses, row.symbol).empty();
        EXPECT_FALSE(isExcused && found.symbols.contains(row.symbol))
            << row.symbol << " needs no excuse";
        missing.unless(isExcused || found.symbols.contains(row.symbol), row.symbol);
    }
    EXPECT_TRUE(missing.list().empty()) << "are expected by no case:\n" << missing.list();
}

TEST(MessageCoverage, ExcusedMessagesAreMessages) {
    for (const ExcusedMessage& excuse : excuses) {
        EXPECT_NE(findMessageRow(excuse.symbol), nullptr) << excuse.symbol;
    }
}

}  // namespace

}  // namespace torvel::test
