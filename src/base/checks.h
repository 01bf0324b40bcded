#pragma once

#include <cstdint>
#include <string_view>

namespace torvel {

/// What is converted and yet needs a look. Rows: checks.def.
enum class Check : std::uint8_t {
#define CHECK(symbol, code, severity, title, happens, todo) symbol,
#include "src/base/checks.def"
};

/// What may come of it.
enum class Severity : std::uint8_t { none, moves, stops, reads };

struct CheckRow {
    std::string_view code;
    Severity severity{};
    std::string_view title;
    std::string_view happens;
    std::string_view todo;
};

const CheckRow& checkRow(Check check);

/// "moves", "stops", "reads"; empty for none.
std::string_view severityName(Severity severity);

}  // namespace torvel
