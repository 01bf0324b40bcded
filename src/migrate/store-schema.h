#pragma once

#include <cstdint>
#include <span>

namespace torvel::migrate {

/// Tells a store from other databases: "Torv".
constexpr std::int64_t storeApplication = 0x546f7276;

/// The statements that make each version of the tables out of the one before; the first makes them from nothing. A step
/// that was given away is never changed.
std::span<const char* const> storeSteps();

/// Who reads takes stores of older versions from this one on as they are; they may have no `project.identity`, and
/// know nothing of logs and of what machines gave.
constexpr std::int64_t oldestReadableStore = 1;

}  // namespace torvel::migrate
