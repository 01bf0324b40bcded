#include "tests/support/message-rows.h"

#include <algorithm>

#include "tests/support/text-difference.h"

namespace torvel::test {

namespace {

constexpr std::string_view hole = "{}";

/// The pieces of a row's text between its holes.
std::vector<std::string_view> literalsOf(std::string_view text) {
    std::vector<std::string_view> literals;
    for (std::size_t at = text.find(hole); at != std::string_view::npos; at = text.find(hole)) {
        literals.push_back(text.substr(0, at));
        text.remove_prefix(at + hole.size());
    }
    literals.push_back(text);
    return literals;
}

bool fits(std::string_view message, const std::vector<std::string_view>& literals) {
    if (literals.size() == 1) {
        return message == literals.front();
    }
    if (!message.starts_with(literals.front())) {
        return false;
    }
    message.remove_prefix(literals.front().size());
    for (std::size_t i = 1; i + 1 < literals.size(); ++i) {
        const std::size_t at = message.find(literals[i]);
        if (at == std::string_view::npos) {
            return false;
        }
        message.remove_prefix(at + literals[i].size());
    }
    return message.ends_with(literals.back());
}

std::size_t lengthOf(const std::vector<std::string_view>& literals) {
    std::size_t length = 0;
    for (const std::string_view literal : literals) {
        length += literal.size();
    }
    return length;
}

/// Takes "path:line: " off the front.
std::string_view withoutPlace(std::string_view line) {
    for (std::size_t colon = line.find(':'); colon != std::string_view::npos;
         colon = line.find(':', colon + 1)) {
        const std::string_view rest = line.substr(colon + 1);
        const std::size_t digits = std::min(rest.find_first_not_of("0123456789"), rest.size());
        if (digits > 0 && rest.substr(digits).starts_with(": ")) {
            return rest.substr(digits + 2);
        }
    }
    return line;
}

}  // namespace

const std::vector<MessageRow>& messageRows() {
    static const std::vector<MessageRow> rows = {
#define MESSAGE(symbol, code, messageClass, text) {#symbol, code, #messageClass, text},
#include "src/base/messages.def"
    };
    return rows;
}

const MessageRow* findMessageRow(std::string_view symbol) {
    for (const MessageRow& row : messageRows()) {
        if (row.symbol == symbol) {
            return &row;
        }
    }
    return nullptr;
}

const MessageRow* rowOfMessage(std::string_view message) {
    static const std::vector<std::vector<std::string_view>> literalsOfRows = [] {
        std::vector<std::vector<std::string_view>> made;
        for (const MessageRow& row : messageRows()) {
            made.push_back(literalsOf(row.text));
        }
        return made;
    }();
    const MessageRow* best = nullptr;
    std::size_t bestLength = 0;
    for (std::size_t row = 0; row < literalsOfRows.size(); ++row) {
        const std::vector<std::string_view>& literals = literalsOfRows[row];
        if (fits(message, literals) && (best == nullptr || lengthOf(literals) > bestLength)) {
            best = &messageRows()[row];
            bestLength = lengthOf(literals);
        }
    }
    return best;
}

std::vector<std::string> messagesOfLog(std::string_view log) {
    std::vector<std::string> messages;
    bool isFirstLine = true;
    for (const std::string_view line : splitLines(log)) {
        if (isFirstLine && !line.empty()) {
            messages.emplace_back(withoutPlace(line));
        }
        isFirstLine = line.empty();
    }
    return messages;
}

std::string messageOfStandardError(std::string_view text) {
    return std::string(withoutPlace(text.substr(0, text.find('\n'))));
}

}  // namespace torvel::test
