#pragma once

#include <functional>
#include <string_view>

#include "src/base/check-record.h"
#include "src/base/file-source.h"
#include "src/base/program.h"
#include "src/lex/axis-names.h"
#include "src/limits.h"
#include "src/preprocess/predefined-constants.h"

namespace torvel {

/// Takes a part of a program, which may be converted from now on.
using PartTaker = std::function<void(const ProgramPart&)>;

/// Reads the program file `path` (as the command line has it) and everything it includes into
/// `program`: directives carried out, defines substituted, every line cut into tokens. Throws a
/// ParseException at the first error, its position being none for the program file itself. Its files come
/// from `source`. What needs a look is entered in `record`, if there is one. `taker` is told of each part of the
/// lines that is complete, but for the last, while further lines are read.
void preprocessProgram(Program& program, std::string_view path, const AxisNames& axes,
                       const Limits& limits,
                       const PredefinedTable& predefined = predefinedConstants(),
                       const FileSource& source = fileSystemSource(), CheckRecord* record = nullptr,
                       const PartTaker& taker = {});

}  // namespace torvel
