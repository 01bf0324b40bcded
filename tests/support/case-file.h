#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "src/limits.h"

// Case files hold a program, what it is converted with, and what is expected, in one text file. The form
// is told in tests/golden/README.md.

namespace torvel::test {

/// A file of a case, its path seen from the case's folder.
struct CaseEntry {
    std::string path;
    std::string content;
};

/// What a run of the program leaves behind: files that are not there are absent. Paths of the case's
/// folder are written `{dir}`.
struct Outcome {
    int status = 0;
    std::string standardOutput;
    std::string standardError;
    std::optional<std::string> output;
    std::optional<std::string> log;
    std::vector<CaseEntry> files;
    /// The checks, a line each, where they are asked for.
    std::optional<std::string> checks;
};

struct Case {
    std::string head;
    std::vector<CaseEntry> files;
    std::vector<std::string> directories;
    std::vector<CaseEntry> links;
    std::vector<CaseEntry> hardLinks;
    std::vector<std::string> arguments;
    bool linefeedsOnly = false;
    bool withoutComments = false;
    /// Why the case is for POSIX systems only; empty if it is not.
    std::string posixOnly;
    Limits limits;
    bool hasLimits = false;
    Outcome expected;

    /// Where the run writes, seen from the case's folder: what follows `-o`, without "{dir}/".
    std::string outputDirectory() const;
    /// The stem of the program's name, which is the last argument.
    std::string stem() const;
};

/// Reads a case. Throws std::runtime_error with file and line if the form is not kept.
Case readCase(const std::filesystem::path& path);

/// The text of a case file with its `expect` parts replaced by `outcome`; all others stay as they are.
std::string withExpectations(std::string_view caseText, const Outcome& outcome);

}  // namespace torvel::test
