#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/support/case-file.h"

// A program with a comment " ; #n" at every line of its source that may have one must give the same
// result as without, each number once, in order and at its place. tests/golden/README.md tells which
// lines get no comment.

namespace torvel::test {

/// A comment that was added.
struct NumberedLine {
    std::size_t file = 0;  // in the list of files
    std::size_t line = 0;  // in the file, from 1
    bool isInclude = false;
};

struct NumberedSources {
    std::vector<CaseEntry> files;
    /// The comment " ; #n" stands at `lines[n - 1]`.
    std::vector<NumberedLine> lines;
};

NumberedSources numberComments(const std::vector<CaseEntry>& files);

/// Compares what was converted with and without the comments. `program` is the path of the program file.
/// Returns what is wrong, for people; empty if nothing is.
std::string checkNumberedOutput(const NumberedSources& sources, const std::string& program,
                                std::string_view plain, std::string_view numbered);

}  // namespace torvel::test
