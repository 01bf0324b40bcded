#pragma once

#include <cstddef>

#include "bench/corpus.h"

// What a program is made of, counted in its text and not by what made it.

namespace torvel::bench {

struct CorpusShares {
    std::size_t files = 0;
    std::size_t bytes = 0;
    std::size_t lines = 0;
    /// Lines that hold a comment and nothing else.
    std::size_t commentLines = 0;
    /// #define directives; names that are defined twice count twice.
    std::size_t defines = 0;
    /// Lines, directives included, whose code uses a name of a #define.
    std::size_t linesWithNames = 0;

    double share(std::size_t part) const {
        return lines == 0 ? 0 : static_cast<double>(part) / static_cast<double>(lines);
    }
};

/// Reads comments as generated programs have them: markers do not stand in strings, and block
/// comments end on their line.
CorpusShares countShares(const Corpus& corpus);

}  // namespace torvel::bench
