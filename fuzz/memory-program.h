#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "src/preprocess/preprocessor-run.h"
#include "tests/support/program-text.h"

namespace torvel::fuzz {

/// A program of one file that is preprocessed without touching the file system. The object stays where it is
/// made.
class MemoryProgram {
public:
    /// Stops at the first error, as a run does. Lines that include files are passed over.
    MemoryProgram(std::string_view content, const Limits& limits);
    MemoryProgram(const MemoryProgram&) = delete;
    MemoryProgram& operator=(const MemoryProgram&) = delete;

    /// The diagnostic that ended it; empty if it was read to its end.
    const std::string& diagnostic() const { return diagnostic_; }
    Program& program() { return text_.program; }
    const AxisNames& axes() const { return axes_; }
    /// What the preprocessor knows behind the last line.
    PreprocessorRun& preprocessorRun() { return run_; }

private:
    void readLines();

    test::ProgramText text_;
    AxisNames axes_;
    FileSource source_ = fileSystemSource();
    PreprocessorRun run_;
    std::string diagnostic_;
};

}  // namespace torvel::fuzz
