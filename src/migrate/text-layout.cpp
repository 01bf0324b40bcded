#include "src/migrate/text-layout.h"

#include <algorithm>

#include "src/migrate/text-decoding.h"

namespace torvel::migrate {

namespace {

std::string blanks(std::string_view text, std::size_t width) {
    const std::size_t length = characterCount(text);
    return std::string(width - std::min(width, length), ' ');
}

/// The byte at which the last `count` characters begin.
std::size_t beginOfLast(std::string_view text, std::size_t count) {
    std::size_t skipped = characterCount(text) - count;
    std::size_t at = 0;
    for (; skipped > 0; --skipped) {
        at += characterSize(text, at);
    }
    return at;
}

}  // namespace

std::string grouped(std::uint64_t number) {
    std::string text = std::to_string(number);
    for (std::size_t at = text.size(); at > 3;) {
        at -= 3;
        text.insert(at, ",");
    }
    return text;
}

std::string counted(std::uint64_t number, std::string_view one, std::string_view many) {
    return grouped(number) + ' ' + std::string(number == 1 ? one : many);
}

std::string andMore(std::uint64_t number) {
    return "and " + grouped(number) + " more";
}

std::string wrapped(std::string_view text, std::size_t width, std::string_view first,
                    std::string_view others) {
    std::string result(first);
    std::size_t column = characterCount(first);
    bool isAtBegin = true;
    while (true) {
        const std::size_t begin = std::min(text.find_first_not_of(" \n"), text.size());
        const std::size_t end = std::min(text.find_first_of(" \n", begin), text.size());
        if (begin == end) {
            break;
        }
        const std::string_view word = text.substr(begin, end - begin);
        const std::size_t length = characterCount(word);
        if (!isAtBegin && column + 1 + length > width) {
            result += '\n';
            result += others;
            column = characterCount(others);
            isAtBegin = true;
        }
        if (!isAtBegin) {
            result += ' ';
            ++column;
        }
        result += word;
        column += length;
        isAtBegin = false;
        text.remove_prefix(end);
    }
    return result + '\n';
}

std::string shortenedPath(std::string_view path, std::size_t width) {
    const std::size_t length = characterCount(path);
    if (length <= width || width < 4) {
        return std::string(path);
    }
    // The end tells paths of one folder apart: it gets two thirds.
    const std::size_t front = (width - 1) / 3;
    std::size_t at = 0;
    for (std::size_t i = 0; i < front; ++i) {
        at += characterSize(path, at);
    }
    return std::string(path.substr(0, at)) + "…" +
           std::string(path.substr(beginOfLast(path, width - 1 - front)));
}

std::string leftAligned(std::string_view text, std::size_t width) {
    return std::string(text) + blanks(text, width);
}

std::string rightAligned(std::string_view text, std::size_t width) {
    return blanks(text, width) + std::string(text);
}

}  // namespace torvel::migrate
