#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "src/migrate/places.h"
#include "src/migrate/report.h"

namespace torvel::migrate {

/// Findings, counted in both ways.
struct FindingCount {
    /// Lines of the sources: a finding in an included file is one, however many programs include it.
    std::uint64_t places = 0;
    /// What the outputs hold: one for each output.
    std::uint64_t inOutputs = 0;

    bool operator==(const FindingCount&) const = default;
};

/// A folder of programs with what is left in their outputs.
struct FolderWork {
    /// "." for the project's own.
    std::string folder;
    std::uint64_t programs = 0;
    std::uint64_t open = 0;
    /// The estimate's middle, by which folders are compared.
    double minutes = 0;
};

/// What a report comes to.
struct ReportTotals {
    std::uint64_t programs = 0;
    /// By ProgramStatus.
    std::array<std::uint64_t, 3> byStatus{};
    /// By OutputState.
    std::array<std::uint64_t, 7> byOutputState{};
    /// Of the programs that were converted.
    std::uint64_t lines = 0;
    std::uint64_t convertedLines = 0;
    /// By FindingTodo. A place is open while one output holds it.
    std::array<FindingCount, 4> open{};
    /// What a person has finished in the outputs.
    std::array<FindingCount, 4> finished{};
    /// Open ones by Severity.
    std::array<FindingCount, 4> bySeverity{};
    /// Open ones by code.
    std::map<std::string, FindingCount> byCode;
    /// In the order of their names.
    std::vector<FolderWork> folders;

    FindingCount allOpen() const;
    FindingCount allFinished() const;
};

/// Reads the report once.
ReportTotals totalsOf(const Report& report, const Places& places);

/// The folder of a program's key: what stands in front of the last "/", "." if there is none.
std::string folderOf(const std::string& program);

const MinuteRange& minutesOf(const Effort& effort, FindingTodo todo);

/// Minutes for the open findings, counted in one of both ways.
MinuteRange estimate(const ReportTotals& totals, const Effort& effort,
                     std::uint64_t FindingCount::*count);

}  // namespace torvel::migrate
