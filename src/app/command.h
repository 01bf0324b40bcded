#pragma once

#include <string>
#include <vector>

#include "src/base/findings.h"
#include "src/limits.h"

namespace torvel {

/// What a run of the program leaves behind beside its files.
struct CommandResult {
    /// 0 after a complete run, 1 after any failure.
    int status = 0;
    std::string standardOutput;
    std::string standardError;
};

/// Runs the program on the arguments behind its name: reads the command line, converts the program and
/// writes the output and the log. Throws nothing.
CommandResult runCommand(const std::vector<std::string>& arguments, const Limits& limits = {});

/// The same; `taker` is told of every finding behind the run, or of what kept the program from being read.
CommandResult runCommandForFindings(const std::vector<std::string>& arguments, const Limits& limits,
                                    const FindingTaker& taker);

}  // namespace torvel
