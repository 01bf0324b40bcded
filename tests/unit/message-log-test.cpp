// The log of messages: each keeps its own text, also those that are told again and those of a log that was taken over.

#include "src/base/message-log.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace torvel::test {

namespace {

std::string seen(int number) {
    return "token" + std::to_string(number);
}

}  // namespace

TEST(MessageLog, KeepsTextsPositionsAndOrder) {
    MessageLog log;
    EXPECT_TRUE(log.empty());
    constexpr std::uint32_t count = 2000;
    // Texts of few lengths: many of them meet in the place of the one that was told last.
    for (std::uint32_t number = 0; number < count; ++number) {
        log.add(Message::UnexpectedToken, {seen(static_cast<int>(number % 400))},
                {nullptr, number});
    }
    ASSERT_EQ(log.size(), count);
    std::uint32_t number = 0;
    for (const ConversionMessage& message : log) {
        EXPECT_EQ(message.text,
                  messageText(Message::UnexpectedToken, {seen(static_cast<int>(number % 400))}));
        EXPECT_EQ(message.position.lineNumber, number);
        EXPECT_EQ(message.message, Message::UnexpectedToken);
        ++number;
    }
}

TEST(MessageLog, TextsThatAreToldAgainStandOnce) {
    MessageLog log;
    for (std::uint32_t line = 1; line < 100; ++line) {
        log.add(Message::UnexpectedToken, {"IF"}, {nullptr, line});
        log.add(Message::BlockDelete, {}, {nullptr, line});
    }
    for (std::size_t number = 2; number < log.size(); ++number) {
        EXPECT_EQ(log[number].text.data(), log[number % 2].text.data());
    }
}

TEST(MessageLog, TakesOverAnother) {
    MessageLog whole;
    std::vector<std::string> expected;
    for (int part = 0; part < 20; ++part) {
        MessageLog log;
        for (int number = 0; number < 50; ++number) {
            log.add(Message::UnexpectedToken, {seen(part * 50 + number)}, {});
            expected.push_back(messageText(Message::UnexpectedToken, {seen(part * 50 + number)}));
        }
        whole.take(std::move(log));
        // What is told behind it stands in room of its own.
        whole.add(Message::BlockDelete, {}, {});
        expected.push_back(messageText(Message::BlockDelete));
    }
    ASSERT_EQ(whole.size(), expected.size());
    for (std::size_t number = 0; number < expected.size(); ++number) {
        ASSERT_EQ(whole[number].text, expected[number]);
    }
}

TEST(MessageLog, CanBeUsedWhenItWasTaken) {
    MessageLog log;
    MessageLog whole;
    for (int round = 0; round < 3; ++round) {
        log.add(Message::UnexpectedToken, {"IF"}, {});
        whole.take(std::move(log));
        EXPECT_TRUE(log.empty());
    }
    log = {};
    ASSERT_EQ(whole.size(), 3U);
    for (const ConversionMessage& message : whole) {
        EXPECT_EQ(message.text, messageText(Message::UnexpectedToken, {"IF"}));
    }
}

}  // namespace torvel::test
