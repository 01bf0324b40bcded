#include "src/migrate/html-help.h"

#include <algorithm>

#include "src/base/characters.h"

namespace torvel::migrate {

namespace {

/// How long the emphasis is that begins the text, "*moves*"; 0: none does.
std::size_t emphasisLength(std::string_view text) {
    const std::size_t end = text.find('*', 1);
    const bool isOne = end != std::string_view::npos && end > 1 && !isBlank(text[1]) &&
                       !isBlank(text[end - 1]) && text.substr(end + 1, 1) != "*";
    return isOne ? end + 1 : 0;
}

/// What stands in the line up to its next emphasis, code and bold text passed over.
std::size_t plainLength(std::string_view line) {
    std::size_t at = 0;
    while (at < line.size()) {
        const std::string_view rest = line.substr(at);
        std::string_view sign = rest.substr(0, 1);
        if (rest.starts_with("**")) {
            sign = rest.substr(0, 2);
        } else if (emphasisLength(rest) > 0 && rest[0] == '*') {
            return at;
        }
        const std::size_t end =
            sign == "`" || sign == "**" ? rest.find(sign, sign.size()) : std::string_view::npos;
        at += end == std::string_view::npos ? sign.size() : end + sign.size();
    }
    return line.size();
}

std::string withBoldEmphasis(std::string_view line) {
    std::string result;
    while (!line.empty()) {
        const std::size_t plain = plainLength(line);
        result += line.substr(0, plain);
        line.remove_prefix(plain);
        if (!line.empty()) {
            const std::size_t length = emphasisLength(line);
            ((result += '*') += line.substr(0, length)) += '*';
            line.remove_prefix(length);
        }
    }
    return result;
}

/// "| a | b |" as "- a – b".
std::string itemOfRow(std::string_view row) {
    std::string item = "- ";
    row.remove_prefix(1);
    while (!row.empty()) {
        const std::size_t end = std::min(row.find('|'), row.size());
        if (item.size() > 2) {
            item += " – ";
        }
        item += trimBlanks(row.substr(0, end));
        row.remove_prefix(std::min(end + 1, row.size()));
        row = trimBlanks(row);
    }
    return item;
}

/// Reads lines, some of which are nothing on the page.
class Help {
public:
    void read(std::string_view line) {
        if (line.starts_with("```")) {
            isInExample_ = !isInExample_;
        } else if (!isInExample_ && line.starts_with('|')) {
            // The first two rows are the heads of the columns and a line.
            if (++tableRows_ > 2) {
                add(withBoldEmphasis(itemOfRow(line)));
            }
            return;
        }
        tableRows_ = 0;
        add(isInExample_ ? std::string(line) : withBoldEmphasis(line));
    }

    std::string text() { return std::move(text_); }

private:
    void add(std::string_view line) {
        if (!isFirst_) {
            text_ += '\n';
        }
        isFirst_ = false;
        text_ += line;
    }

    std::string text_;
    bool isFirst_ = true;
    bool isInExample_ = false;
    int tableRows_ = 0;
};

}  // namespace

std::string helpOfPage(std::string_view markdown) {
    Help help;
    while (!markdown.empty()) {
        const std::size_t end = std::min(markdown.find('\n'), markdown.size());
        help.read(markdown.substr(0, end));
        markdown.remove_prefix(std::min(end + 1, markdown.size()));
    }
    return help.text();
}

}  // namespace torvel::migrate
