#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace torvel {

// The Torvel names of the controller's parameters by legacy number, prefix included
// ("AxisParameter.CountsPerUnit"). Rows: data/parameters.def. An empty name: the parameter was removed.
// Nothing: there never was a parameter of that number.

std::optional<std::string_view> lookupAxisParameterName(std::uint32_t number);
std::optional<std::string_view> lookupTaskParameterName(std::uint32_t number);
std::optional<std::string_view> lookupSystemParameterName(std::uint32_t number);

}  // namespace torvel
