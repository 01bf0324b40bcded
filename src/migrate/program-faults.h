#pragma once

#include <array>
#include <string_view>

// Codes of findings about programs that are not converted. They stand beside those of messages and checks, and have
// their entries in docs/plant-findings.md.

namespace torvel::migrate {

constexpr std::string_view outputCollides = "output-collides";
constexpr std::string_view parametersUnreadable = "parameters-unreadable";

/// What a browser says of a program that is too much for it.
constexpr std::string_view conversionEnded = "conversion-ended";

constexpr std::array<std::string_view, 3> programFaults{outputCollides, parametersUnreadable,
                                                        conversionEnded};

}  // namespace torvel::migrate
