#pragma once

#include <cstdint>
#include <string>

#include "src/migrate/project.h"

namespace torvel::migrate {

/// A range of working time as it can be said of an estimate: "20 to 110 minutes", "3 to 12 hours (0.5 to 1.5
/// person-days of 8 hours)". The lower end is rounded down, the upper one up.
std::string durationText(const MinuteRange& minutes);

/// "10 to 40", "10" if both are the same.
std::string rangeText(double least, double most);

/// `part` of `whole` in percent, whole ones rounded down: "86 %"; "less than 1 %" and "more than 99 %" where it is
/// neither nothing nor all.
std::string shareText(std::uint64_t part, std::uint64_t whole);

/// Seconds since 1970 as "2026-11-21 17:34 UTC".
std::string dateText(std::int64_t seconds);

}  // namespace torvel::migrate
