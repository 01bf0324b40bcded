#include "src/migrate/text-lines.h"

#include <algorithm>

#include "src/base/characters.h"
#include "src/base/output-marks.h"

namespace torvel::migrate {

namespace {

/// Takes the first line off `rest`, which is not empty.
TextLine takeLine(std::string_view& rest) {
    const std::size_t feed = rest.find('\n');
    if (feed == std::string_view::npos) {
        const TextLine line{rest, {}};
        rest = {};
        return line;
    }
    const bool hasReturn = feed > 0 && rest[feed - 1] == '\r';
    const std::size_t length = hasReturn ? feed - 1 : feed;
    const TextLine line{rest.substr(0, length), rest.substr(length, feed + 1 - length)};
    rest.remove_prefix(feed + 1);
    return line;
}

/// Where "(file:line): " at the beginning of `text` ends; 0: there is none. The name may hold any of these signs.
std::size_t positionEnd(std::string_view text) {
    if (!text.starts_with('(')) {
        return 0;
    }
    constexpr std::string_view closing = "): ";
    for (std::size_t at = text.find(closing); at != std::string_view::npos;
         at = text.find(closing, at + 1)) {
        std::size_t digits = at;
        while (isDigit(text[digits - 1])) {
            --digits;
        }
        if (digits < at && text[digits - 1] == ':') {
            return at + closing.size();
        }
    }
    return 0;
}

/// The first line, which is taken off.
std::string_view takeSourceLine(std::string_view& text) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    const std::string_view line = text.substr(0, end);
    const std::size_t length = text.substr(end, 2) == "\r\n" ? 2 : 1;
    text.remove_prefix(std::min(end + length, text.size()));
    return line;
}

}  // namespace

std::vector<std::string_view> sourceLinesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        lines.push_back(takeSourceLine(text));
    }
    return lines;
}

std::string_view SourceLines::line(std::size_t number) {
    if (number < count_) {
        rest_ = text_;
        count_ = 0;
        last_ = {};
    }
    for (; count_ < number; ++count_) {
        if (rest_.empty()) {
            return {};
        }
        last_ = takeSourceLine(rest_);
    }
    return last_;
}

std::vector<TextLine> linesOf(std::string_view text) {
    std::vector<TextLine> lines;
    while (!text.empty()) {
        lines.push_back(takeLine(text));
    }
    return lines;
}

std::string withLineFeeds(std::string text) {
    std::size_t length = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\r' || i + 1 == text.size() || text[i + 1] != '\n') {
            text[length++] = text[i];
        }
    }
    text.resize(length);
    return text;
}

bool haveSameLines(std::string_view a, std::string_view b) {
    while (!a.empty() && !b.empty()) {
        if (takeLine(a).text != takeLine(b).text) {
            return false;
        }
    }
    return a.empty() && b.empty();
}

LineWithoutPosition withoutPosition(std::string_view line) {
    if (isMarkerLine(line)) {
        const std::size_t begin = line.find(unconvertibleMarker) + unconvertibleMarker.size() + 1;
        const std::size_t length = positionEnd(line.substr(std::min(begin, line.size())));
        if (length > 0) {
            return {line.substr(0, begin), line.substr(begin + length)};
        }
    }
    return {line, {}};
}

std::uint32_t LineNumbers::numberOf(std::string_view line) {
    const auto [front, behind] =
        positions_ == Positions::compared ? LineWithoutPosition{line, {}} : withoutPosition(line);
    std::string key(front);
    if (front.size() < line.size()) {
        // No other line has it: a line ends in front of a line feed.
        key += '\n';
        key += behind;
    }
    return numbers_.try_emplace(std::move(key), static_cast<std::uint32_t>(numbers_.size()))
        .first->second;
}

std::vector<std::uint32_t> LineNumbers::numbersOf(const std::vector<TextLine>& lines) {
    std::vector<std::uint32_t> numbers;
    numbers.reserve(lines.size());
    for (const TextLine& line : lines) {
        numbers.push_back(numberOf(line.text));
    }
    return numbers;
}

}  // namespace torvel::migrate
