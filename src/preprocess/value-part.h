#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace torvel {

/// A part of a define's value, seen by the question whether Torvel can keep the value: how it leads on from
/// everything that may stand in front of it. Parts are joined in a few steps however long they are, so
/// defines that use each other need not be written out to be told apart.
struct ValuePart {
    static constexpr std::size_t stateCount = 28;

    /// By the state in front of the part: the state behind it.
    std::array<std::uint8_t, stateCount> behind{};
};

/// The part that `text` is.
ValuePart examineValue(std::string_view text);

/// Appends `next` to `part`.
void appendPart(ValuePart& part, const ValuePart& next);

/// Whether a value that is this part alone, trimmed, is a number, a string, a variable of the program or a
/// global element: what classifyDefine() keeps beside axis names.
bool isKept(const ValuePart& value);

}  // namespace torvel
