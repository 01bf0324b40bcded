#pragma once

#include <cstdint>

#include "src/expr/variables.h"

namespace torvel {

/// Whether what stands under a number of a table is known, not composed: docs/reference-data.md.
bool isKnownRow(ItemTable table, std::uint32_t number);

}  // namespace torvel
