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
constexpr auto codes = [] {
    std::array list = {
#define CHECK(symbol, code, severity, title, happens, todo) std::string_view(code),
#include "src/base/checks.def"
#define MESSAGE(symbol, code, messageClass, text) std::string_view(code),
#include "src/base/messages.def"
    };
    std::sort(list.begin(), list.end());
    return list;
}();
static_assert(std::adjacent_find(codes.begin(), codes.end()) == codes.end(), "a code stands twice");

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
