#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Programs of any size for benchmarks and property tests. The same options give the same bytes on every
// platform.

namespace torvel::bench {

struct CorpusOptions {
    /// Bytes of all files together; the corpus ends soon after.
    std::size_t bytes = std::size_t{1} << 20U;
    std::uint64_t seed = 1;
    /// Names of the line families that are mixed; empty: the default ones.
    std::vector<std::string> families;
};

struct CorpusFile {
    std::string path;
    std::string text;
};

/// The program file, main.pgm, is the first; every other is included once.
using Corpus = std::vector<CorpusFile>;

/// Throws std::invalid_argument for a family that does not exist.
Corpus generateCorpus(const CorpusOptions& options);

/// The names of all families, the default ones first.
std::vector<std::string_view> corpusFamilies();

}  // namespace torvel::bench
