#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

// What became of the lines of a text. Lines are numbers here, equal ones for equal lines.

namespace torvel::migrate {

/// The lines from `oldBegin` to `oldEnd`, that one not included, became those from `newBegin` to `newEnd`. One of the
/// two may be empty.
struct LineChange {
    std::size_t oldBegin = 0;
    std::size_t oldEnd = 0;
    std::size_t newBegin = 0;
    std::size_t newEnd = 0;

    bool operator==(const LineChange&) const = default;
};

/// More lines than these, on both sides together, are not compared: they are one change. Lines at the beginning and
/// the end that are equal do not count, nor do lines that only one of the sides has.
inline constexpr std::size_t mostComparedLines = 400'000;

/// The changes in their order, as few lines as can be found. Between two of them stands at least one line that both
/// sides have.
std::vector<LineChange> changesBetween(std::span<const std::uint32_t> before,
                                       std::span<const std::uint32_t> after);

}  // namespace torvel::migrate
