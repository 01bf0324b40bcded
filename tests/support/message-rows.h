#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace torvel::test {

/// A row of src/base/messages.def.
struct MessageRow {
    std::string_view symbol;
    std::string_view code;
    std::string_view messageClass;
    /// With "{}" for its holes.
    std::string_view text;
};

const std::vector<MessageRow>& messageRows();

/// The row with that symbol; null if there is none.
const MessageRow* findMessageRow(std::string_view symbol);

/// The row that `message`, a text with its holes filled, was made of; null if there is none. Where
/// several fit, the one with the most text outside its holes.
const MessageRow* rowOfMessage(std::string_view message);

/// A row whose message is nowhere shown, and why it is not.
struct ExcusedMessage {
    std::string_view symbol;
    std::string_view reason;
};

/// The reason of an excused row; empty if it is not in `excuses`.
template <typename Excuses>
std::string_view reasonOf(const Excuses& excuses, std::string_view symbol) {
    for (const ExcusedMessage& excuse : excuses) {
        if (excuse.symbol == symbol) {
            return excuse.reason;
        }
    }
    return {};
}

/// The messages of a log: the first line of each diagnostic, without its place.
std::vector<std::string> messagesOfLog(std::string_view log);

/// What a run that failed printed: the message without its place; empty if nothing was printed.
std::string messageOfStandardError(std::string_view text);

}  // namespace torvel::test
