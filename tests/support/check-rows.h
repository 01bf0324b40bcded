#pragma once

#include <string_view>
#include <vector>

#include "src/base/checks.h"

namespace torvel::test {

/// The rows of src/base/checks.def, and those of what is no check.
const std::vector<CheckRow>& checkRows();

}  // namespace torvel::test
