#pragma once

#include <filesystem>

#include "bench/corpus.h"

namespace torvel::bench {

/// Writes the files below `folder`. Throws std::runtime_error if that fails.
void writeCorpus(const Corpus& corpus, const std::filesystem::path& folder);

}  // namespace torvel::bench
