#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace torvel {

// The Torvel signals of data items by legacy number, prefix included ("AxisDataSignal.PositionError").
// Rows: data/data-items.def. An empty name: the item was removed. Nothing: it is no item of that kind.

std::optional<std::string_view> lookupAxisDataSignal(std::uint32_t number);
std::optional<std::string_view> lookupTaskDataSignal(std::uint32_t number);
std::optional<std::string_view> lookupSystemDataSignal(std::uint32_t number);

}  // namespace torvel
