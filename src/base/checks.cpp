#include "src/base/checks.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace torvel {

namespace {

constexpr CheckRow rows[] = {
#define CHECK(symbol, code, severity, title, happens, todo) \
    {code, Severity::severity, title, happens, todo},
#include "src/base/checks.def"
};

/// The codes of checks and messages, which share one list.
constexpr std::string_view codes[] = {
#define CHECK(symbol, code, severity, title, happens, todo) code,
#include "src/base/checks.def"
#define MESSAGE(symbol, code, messageClass, text) code,
#include "src/base/messages.def"
};

constexpr bool hasCodeTwice() {
    std::array<std::string_view, std::size(codes)> sorted;
    std::copy(std::begin(codes), std::end(codes), sorted.begin());
    std::sort(sorted.begin(), sorted.end());
    return std::adjacent_find(sorted.begin(), sorted.end()) != sorted.end();
}
static_assert(!hasCodeTwice(), "a code stands twice");

}  // namespace

const CheckRow& checkRow(Check check) {
    return rows[static_cast<std::size_t>(check)];
}

std::string_view severityName(Severity severity) {
    switch (severity) {
        case Severity::moves: return "moves";
        case Severity::stops: return "stops";
        case Severity::reads: return "reads";
        default: return {};
    }
}

}  // namespace torvel
