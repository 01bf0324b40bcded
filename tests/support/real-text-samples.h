#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace torvel::test {

/// Hands over `count` texts of real numbers, the same on every system: numbers of all sizes as they are written and as
/// they may not be, those near the largest and the smallest double, those between two doubles, hexadecimal ones.
void forEachRealText(std::uint32_t count, const std::function<void(const std::string& text)>& take);

/// The bits of a double. What std::bit_cast does, which not every standard library has.
std::uint64_t bitsOf(double value);

/// A double of the same row of numbers, of any bits.
double realSample(std::uint32_t number);

}  // namespace torvel::test
