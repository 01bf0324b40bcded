#pragma once

#include "bench/corpus.h"

namespace torvel::bench {

/// A program of assignments and flow control in many files: the program file includes rows of files, each of
/// which includes the next one in its middle, to the depth of 25; and every file includes one of eight
/// that come again and again. Of the options the families are not used.
Corpus generateIncludeTree(const CorpusOptions& options);

/// The program with its includes in their places.
std::string inOneText(const Corpus& corpus);

}  // namespace torvel::bench
