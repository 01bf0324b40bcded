#pragma once

#include <string_view>
#include <vector>

namespace torvel::test {

/// The text of a row, taken apart at its holes.
struct RowText {
    struct Hole {
        std::string_view before;
        /// The number of the operand that fills it, from 0.
        std::size_t operand = 0;
    };

    std::vector<Hole> holes;
    /// Behind the last hole.
    std::string_view rest;

    explicit RowText(std::string_view text);

    /// What stands in front of the hole of an operand up to the hole in front, and behind it; empty if the
    /// operand has no hole.
    std::string_view inFrontOf(std::size_t operand) const;
    std::string_view behind(std::size_t operand) const;
};

}  // namespace torvel::test
