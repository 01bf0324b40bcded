#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// What a site may write as its own reference rows.

namespace torvel::migrate {

/// A decimal number without zeros in front: those would make it octal in a program.
std::optional<std::uint32_t> referenceNumber(std::string_view text);

/// Why a program could not use `name` for a constant: the end of a sentence. Nothing: it could.
std::optional<std::string> faultOfConstantName(std::string_view name);

/// Why a constant cannot stand for `text`. Nothing: it can.
std::optional<std::string> faultOfConstantText(std::string_view text);

}  // namespace torvel::migrate
