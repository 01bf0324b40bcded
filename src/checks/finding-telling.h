#pragma once

#include "src/base/parse-exception.h"
#include "src/expr/parser-core.h"

namespace torvel {

/// Tells all findings of the program's finished record in the order of their places. `log` has the messages of the run.
void tellFindings(const Program& program, const CheckRecord& record, const MessageLog& log,
                  const FindingTaker& taker);

/// The finding of a program that could not be read.
Finding unreadableFinding(const ParseException& error);

}  // namespace torvel
