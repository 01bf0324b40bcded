#pragma once

#include <string_view>

namespace torvel::fuzz {

/// Ends the process with a report: a property does not hold. `fault` tells which, for people.
[[noreturn]] void fail(std::string_view fault);

inline void require(bool holds, std::string_view fault) {
    if (!holds) {
        fail(fault);
    }
}

/// For checks that give what is wrong as a text, empty if nothing is.
inline void requireNone(std::string_view fault) {
    require(fault.empty(), fault);
}

}  // namespace torvel::fuzz
