#pragma once

#include "src/app/work-sharing.h"
#include "src/base/file-system.h"
#include "src/expr/parser-core.h"

namespace torvel {

/// Converts the lines of a program and writes them to `output` in order. Messages are appended to the
/// context's log in the order of their lines. A record of the context, in which the preprocessor has written
/// before, holds all findings afterwards. Throws std::bad_alloc.
void convertProgram(ConversionContext& context, OutputFile& output,
                    const WorkSharing& sharing = {});

}  // namespace torvel
