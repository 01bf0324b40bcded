#include "tests/support/text-difference.h"

#include <algorithm>

#include "tests/support/escapes.h"

namespace torvel::test {

namespace {

constexpr std::size_t equalLinesShown = 2;
constexpr std::size_t longestCompared = 2000;  // lines of a region that is compared line by line

using Lines = std::vector<std::string_view>;

std::string shown(std::string_view line, char sign) {
    return std::string(1, sign) + ' ' + encodeEscapes(line) + '\n';
}

/// Lengths of the longest common subsequences of the lines from each pair of places on.
std::vector<std::vector<unsigned>> commonLengths(const Lines& expected, const Lines& actual) {
    std::vector<std::vector<unsigned>> lengths(expected.size() + 1,
                                               std::vector<unsigned>(actual.size() + 1));
    for (std::size_t i = expected.size(); i-- > 0;) {
        for (std::size_t j = actual.size(); j-- > 0;) {
            lengths[i][j] = expected[i] == actual[j]
                                ? lengths[i + 1][j + 1] + 1
                                : std::max(lengths[i + 1][j], lengths[i][j + 1]);
        }
    }
    return lengths;
}

void appendDifferingRegion(std::string& text, const Lines& expected, const Lines& actual) {
    const bool compare = expected.size() <= longestCompared && actual.size() <= longestCompared;
    const auto lengths = compare ? commonLengths(expected, actual) : commonLengths({}, {});
    std::size_t i = 0;
    std::size_t j = 0;
    while (compare && i < expected.size() && j < actual.size()) {
        if (expected[i] == actual[j]) {
            text += shown(expected[i], ' ');
            ++i;
            ++j;
        } else if (lengths[i + 1][j] >= lengths[i][j + 1]) {
            text += shown(expected[i++], '-');
        } else {
            text += shown(actual[j++], '+');
        }
    }
    for (; i < expected.size(); ++i) {
        text += shown(expected[i], '-');
    }
    for (; j < actual.size(); ++j) {
        text += shown(actual[j], '+');
    }
}

}  // namespace

std::vector<std::string_view> splitLines(std::string_view text) {
    Lines lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        lines.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

std::string textDifference(std::string_view expected, std::string_view actual) {
    if (expected == actual) {
        return {};
    }
    Lines left = splitLines(expected);
    Lines right = splitLines(actual);
    const std::size_t least = std::min(left.size(), right.size());
    std::size_t front = 0;
    while (front < least && left[front] == right[front]) {
        ++front;
    }
    std::size_t back = 0;
    while (back < least - front && left[left.size() - back - 1] == right[right.size() - back - 1]) {
        ++back;
    }
    std::string text;
    if (left == right) {
        return "only one of the texts ends in a line feed\n";
    }
    const std::size_t shownFront = front - std::min(front, equalLinesShown);
    text += "@ line " + std::to_string(shownFront + 1) + '\n';
    for (std::size_t i = shownFront; i < front; ++i) {
        text += shown(left[i], ' ');
    }
    const auto middle = [front, back](const Lines& lines) {
        return Lines(lines.begin() + static_cast<std::ptrdiff_t>(front),
                     lines.end() - static_cast<std::ptrdiff_t>(back));
    };
    appendDifferingRegion(text, middle(left), middle(right));
    for (std::size_t i = left.size() - back;
         i < left.size() - back + std::min(back, equalLinesShown); ++i) {
        text += shown(left[i], ' ');
    }
    return text;
}

}  // namespace torvel::test
