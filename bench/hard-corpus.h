#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "bench/corpus.h"

// Programs that are made to be hard: one thing without measure. Each can be made at any size, so that the
// time per byte of two sizes can be compared.

namespace torvel::bench {

struct HardProgram {
    std::string_view name;
    /// What the size counts: bytes of the program, or lines, names, levels.
    std::string_view unit;
    /// The smaller of the sizes that benchmarks compare; the other is ten times as large.
    std::size_t size;
    Corpus (*make)(std::size_t size);
};

/// All of them, in the order of the table of docs/performance.md.
const std::vector<HardProgram>& hardPrograms();

}  // namespace torvel::bench
