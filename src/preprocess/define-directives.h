#pragma once

#include "src/preprocess/directive-line.h"

namespace torvel {

/// #define NAME value
/// A value that Torvel takes is kept as it is there; any other behind "#error_unconvertible ".
void runDefine(PreprocessorRun& run, DirectiveLine& directive);

/// #macro NAME($a, $b) body
/// The body's lines are lexed now and converted where the directive stands.
void runMacro(PreprocessorRun& run, DirectiveLine& directive);

}  // namespace torvel
