#include "tests/limits/conversions.h"

#include <algorithm>
#include <utility>

#include "src/app/command.h"
#include "tests/support/case-run.h"
#include "tests/support/escapes.h"

namespace torvel::test {

std::string repeated(std::string_view text, std::size_t count) {
    if (text.size() == 1) {
        return std::string(count, text.front());
    }
    // Doubled, since the sanitizers make a step dear.
    const std::size_t size = text.size() * count;
    std::string result;
    result.reserve(2 * size);
    result = count == 0 ? "" : text;
    while (result.size() < size) {
        result += result;
    }
    result.resize(size);
    return result;
}

Outcome convertText(std::string program, std::vector<CaseEntry> more, const Limits& limits) {
    Case test;
    test.arguments = {"-o", "out", "main.pgm"};
    test.files = std::move(more);
    test.files.push_back({"main.pgm", std::move(program)});
    test.limits = limits;
    return runCase(test, test.files, runCommand);
}

std::string firstDifference(std::string_view expected, std::string_view actual) {
    if (expected == actual) {
        return {};
    }
    const auto [atExpected, atActual] =
        std::mismatch(expected.begin(), expected.end(), actual.begin(), actual.end());
    const auto at = static_cast<std::size_t>(atExpected - expected.begin());
    const std::size_t start = at < 30 ? 0 : at - 30;
    return "at byte " + std::to_string(at) + " of " + std::to_string(expected.size()) +
           " expected\n  " + encodeEscapes(expected.substr(start, 80)) + "\ngot\n  " +
           encodeEscapes(actual.substr(std::min(start, actual.size()), 80)) + '\n';
}

}  // namespace torvel::test
