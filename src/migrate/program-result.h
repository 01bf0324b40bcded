#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "src/base/findings.h"
#include "src/migrate/content-hash.h"

// What a conversion of one program gave: plain values that outlive the program in memory. Paths are keys: bytes,
// relative to the project's folder, with "/" on every system; what lies outside it has "..", or begins with "/" or a
// drive.

namespace torvel::migrate {

/// A file that a conversion asked for.
struct Input {
    std::string path;
    /// None: no file was there.
    std::optional<ContentHash> hash;

    bool operator==(const Input&) const = default;
};

/// A line of an `#include` that led to a file.
struct IncludedFrom {
    std::string file;
    std::uint32_t line = 0;

    bool operator==(const IncludedFrom&) const = default;
};

/// A finding, with all that is told of it.
struct FindingRow {
    /// The file that holds the line; the program's own, or one that it includes.
    std::string file;
    /// From 1; 0: the finding is about the file as a whole.
    std::uint32_t line = 0;
    ColumnRange columns;
    std::string code;
    FindingOrigin origin = FindingOrigin::check;
    FindingTodo todo = FindingTodo::look;
    Severity severity = Severity::none;
    std::string text;
    /// The line of the source, without its line end.
    std::string lineText;
    /// Further lines of the file that it is about.
    std::vector<std::uint32_t> lines;
    /// From the innermost `#include` to the program.
    std::vector<IncludedFrom> includedFrom;
    /// The first line of the generated output that the source line became, from 1; 0: none.
    std::uint32_t outputLine = 0;
    /// How many lines of it.
    std::uint32_t outputLineCount = 0;

    bool operator==(const FindingRow&) const = default;
};

/// Which lines of the output a line of source became. In the order of the output.
struct MappedLine {
    /// The number of the file in ProgramResult::files.
    std::uint32_t file = 0;
    std::uint32_t line = 0;
    /// The depth of `#include`: 0 in the program itself.
    std::uint32_t depth = 0;
    std::uint32_t outputLineCount = 0;
    bool isConverted = false;

    bool operator==(const MappedLine&) const = default;
};

/// A file of the program as it was converted.
struct ConvertedFile {
    std::string path;
    ContentHash hash;
    std::string text;
};

enum class ProgramStatus : std::uint8_t {
    converted,
    unreadable,  // something of it could not be read as a program: there is a finding that says what
    collides,    // another program has the same output: nothing was converted
};

struct ProgramResult {
    std::string program;
    /// The key of its output; the log stands beside it, with the extension ".log".
    std::string output;
    ProgramStatus status = ProgramStatus::converted;
    /// Source lines with code, directives counted, a file that is included again counted once.
    std::uint64_t lines = 0;
    /// Those of them without a marker.
    std::uint64_t convertedLines = 0;
    /// In the order in which they were first asked for.
    std::vector<Input> inputs;
    /// The program first.
    std::vector<ConvertedFile> files;
    std::vector<FindingRow> findings;
    std::vector<MappedLine> lineMap;
    /// The texts of the two files, with line feeds. Empty if the program was not converted.
    std::string outputText;
    std::string logText;
};

}  // namespace torvel::migrate
