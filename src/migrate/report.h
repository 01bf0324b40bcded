#pragma once

#include <functional>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "src/migrate/program-result.h"
#include "src/migrate/project.h"
#include "src/migrate/store.h"

// What a report tells: the results of the stores, with what the outputs are now.

namespace torvel::migrate {

/// What stands at the place of an output.
enum class OutputState : std::uint8_t {
    none,         // the program was not converted
    asGenerated,  // what the converter wrote
    edited,       // a person changed it
    conflict,     // edits and a new generation wait to be brought together
    deleted,      // a person took it away
    foreign,      // it is there, and nobody knows from what it was made: the store was lost
    notWritten,   // what the converter generated is not in place, because it could not be put there
};

struct ReportFinding {
    FindingRow row;
    /// Its marker or placeholder stands in the output as it is now; for the others: it was found.
    bool isOpen = true;
};

struct ReportProgram {
    std::string program;
    std::string output;
    std::string machine;
    ProgramStatus status{};
    OutputState outputState{};
    std::uint64_t lines = 0;
    std::uint64_t convertedLines = 0;
    std::vector<ReportFinding> findings;
};

/// A file of a program as it was converted.
struct ReportFile {
    std::string path;
    std::string text;
};

/// The texts of a program. They are bytes.
struct ReportTexts {
    /// The program first. None, if its conversion was not begun.
    std::vector<ReportFile> files;
    std::vector<MappedLine> lineMap;
    /// What it was converted to; empty if it was not.
    std::string generated;
    /// The output as it is now, unless it is as it was generated or not there.
    std::optional<std::string> current;
};

/// What tells the project from others.
struct ReportProject {
    /// 32 hexadecimal digits, the same from wherever it is reported.
    std::string identity;
    /// The name of its folder.
    std::string name;
};

/// Takes the programs one by one, in the order of their keys.
using ReportProgramTaker = std::function<void(const ReportProgram&)>;

/// What is reported. A source that gives its programs again each time that it is asked, so that no format needs all
/// of them in memory.
struct Report {
    std::vector<RunRow> runs;
    ReportProject project;
    Effort effort;
    /// What is told about the files as a whole.
    std::vector<std::string> notices;
    std::function<void(const ReportProgramTaker&)> forEachProgram;
    /// The texts of a program by its place in that order, from 0, when the programs were read once. Any thread may ask.
    std::function<ReportTexts(std::size_t number)> textsOf;
    /// The programs, and the files that they were converted from. None: nobody asks.
    std::function<std::unordered_set<std::string>()> files;
};

}  // namespace torvel::migrate
