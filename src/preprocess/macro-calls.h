#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "src/base/program.h"
#include "src/preprocess/preprocessor-run.h"

namespace torvel {

/// Where the name of the macro stands that a line calls; without a length it calls none.
struct CallPlace {
    std::size_t start = 0;
    std::size_t length = 0;
};

/// A line calls a macro if its first word, at its front or behind a block delete, a label or an N-code, is the
/// name of one and "(" follows. With substitution switched off no line does.
CallPlace findMacroCall(PreprocessorRun& run, std::string_view code);

/// Whether a call may stand behind `tokens`: nothing, or a block delete, a label or an N-code. Defines can make
/// something else of what was written there; the name is then a word like any other.
bool isCallPrologue(std::span<const Token> tokens);

}  // namespace torvel
