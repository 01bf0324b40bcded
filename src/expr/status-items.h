#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace torvel {

// The Torvel names of status items by legacy number, prefix included ("AxisStatusItem.PositionError").
// Rows: data/data-items.def. An empty name: the item was removed. Nothing: there never was one of that
// number.

std::optional<std::string_view> lookupAxisStatusItem(std::uint32_t number);
std::optional<std::string_view> lookupTaskStatusItem(std::uint32_t number);
std::optional<std::string_view> lookupSystemStatusItem(std::uint32_t number);

}  // namespace torvel
