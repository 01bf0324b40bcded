#pragma once

#include <bit>
#include <cstddef>
#include <span>
#include <string_view>

#include "src/base/byte-block.h"
#include "src/base/program.h"
#include "src/preprocess/preprocessor-run.h"

namespace torvel {

/// Where the name of the macro stands that a line calls; without a length it calls none.
struct CallPlace {
    std::size_t start = 0;
    std::size_t length = 0;
};

/// The same as findMacroCall() where there are macros. `sign` is the place of the first "(" or ":".
CallPlace findCallOfMacro(PreprocessorRun& run, std::string_view code, std::size_t sign);

/// A line calls a macro if its first word, at its front or behind a block delete, a label or an N-code, is the
/// name of one and "(" follows. With substitution switched off no line does. `code` is a text of a TextStore.
inline CallPlace findMacroCall(PreprocessorRun& run, std::string_view code) {
    if (!run.substitutes || run.program.macros.empty()) {
        return {};
    }
    for (std::size_t at = 0; at < code.size(); at += ByteBlock::size) {
        const std::uint32_t signs = ByteBlock(code.data() + at).oneOf<'(', ':'>();
        if (signs != 0) {
            const std::size_t sign = at + static_cast<std::size_t>(std::countr_zero(signs));
            return sign < code.size() ? findCallOfMacro(run, code, sign) : CallPlace();
        }
    }
    return {};
}

/// Whether a call may stand behind `tokens`: nothing, or a block delete, a label or an N-code. Defines can make
/// something else of what was written there; the name is then a word like any other.
bool isCallPrologue(std::span<const Token> tokens);

}  // namespace torvel
