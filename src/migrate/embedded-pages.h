#pragma once

#include <span>
#include <string_view>

namespace torvel::migrate {

/// docs/messages.md, docs/checks.md and docs/plant-findings.md as they were when the program was built, in pieces that end with a line.
std::span<const std::string_view> messagesPage();
std::span<const std::string_view> checksPage();
std::span<const std::string_view> plantPage();

/// The report page without data, as it was built of web/ before the program; empty: there was none.
std::span<const std::string_view> reportPage();

}  // namespace torvel::migrate
