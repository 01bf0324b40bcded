#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "src/limits.h"
#include "tests/support/case-file.h"

namespace torvel::test {

std::string repeated(std::string_view text, std::size_t count);

/// `make(0)`, `make(1)` and so on up to `count` of them, one behind the other.
template <typename Make>
std::string forEach(std::size_t count, Make make) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text += make(std::to_string(i));
    }
    return text;
}

/// Converts a program main.pgm in this process, with further files beside it.
Outcome convertText(std::string program, std::vector<CaseEntry> more = {},
                    const Limits& limits = {});

/// Where two texts part, for people, without the texts themselves; empty if they are equal.
std::string firstDifference(std::string_view expected, std::string_view actual);

}  // namespace torvel::test
