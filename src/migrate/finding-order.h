#pragma once

#include <cstdint>

#include "src/migrate/program-result.h"

namespace torvel::migrate {

/// How much a finding asks for attention.
enum class Urgency : std::uint8_t {
    // Nothing but the report tells of it: the machine may move otherwise, or the program is missing.
    error,
    // Torvel refuses the line until somebody has worked on it.
    warning,
    // Worth reading.
    note,
};

/// error: checks that move, and sources that could not be read. warning: lines with a marker or placeholder, and
/// checks that stop. note: the others.
Urgency urgencyOf(const FindingRow& row);

}  // namespace torvel::migrate
