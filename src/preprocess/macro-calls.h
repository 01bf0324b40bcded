#pragma once

#include <cstddef>
#include <string_view>

#include "src/preprocess/preprocessing.h"

namespace torvel {

/// Where the name of the macro stands that a line calls; without a length it calls none.
struct CallPlace {
    std::size_t start = 0;
    std::size_t length = 0;
};

/// A line calls a macro if its first word is the name of one and "(" follows. With substitution switched off no
/// line does.
CallPlace findMacroCall(const Preprocessing& run, std::string_view code);

}  // namespace torvel
