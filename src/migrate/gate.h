#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "src/migrate/baseline.h"
#include "src/migrate/finding-names.h"
#include "src/migrate/places.h"
#include "src/migrate/report.h"

// The gate: whether a build fails. A finding is known if the baseline has the file that holds its line, its code and its
// line's text, and has them as often: of equal lines the last ones are new. So inserted lines make nothing new, and a
// finding that was repaired pays for none with another text.

namespace torvel::migrate {

/// A place that is not known, with what is told of it. Texts are decoded.
struct NewFinding {
    std::string file;
    std::uint32_t line = 0;
    std::string code;
    FindingTodo todo = FindingTodo::look;
    Severity severity = Severity::none;
    std::string text;
    /// A program that has it; the first one.
    std::string program;
};

/// More are counted only.
inline constexpr std::size_t mostNewFindings = 10000;

struct GateResult {
    /// How many places fail the build, and the first of them in the order of the report.
    std::uint64_t newCount = 0;
    std::vector<NewFinding> newFindings;
    /// How many open places are known.
    std::uint64_t known = 0;
    /// How many are neither known nor of a kind that fails.
    std::uint64_t passed = 0;
    /// What can be taken out of the baseline; the count says how many of it.
    std::vector<BaselineEntry> noLongerNeeded;

    bool fails() const { return newCount > 0; }
};

/// What counts: it is open, and not told once for a whole file.
bool countsInGate(const ReportFinding& finding);

/// Whether a file of the baseline, decoded, is one of which the report tells nothing because no run has seen it yet. Its
/// entries are needed still.
using IsUnseenFile = std::function<bool(const std::string& file)>;

/// Looks at the findings of these kinds; at all if there are none and there is a baseline. Without both nothing fails.
/// Reads the report once.
GateResult gate(const Report& report, const Places& places, const std::optional<Baseline>& baseline,
                const std::vector<FailOn>& failOn, const IsUnseenFile& isUnseen = {});

/// What `accept` takes in: findings of these codes in these programs; empty: of all.
struct AcceptFilter {
    std::vector<std::string> codes;
    std::unordered_set<std::string> programs;
};

/// The baseline with what the filter takes in, and without what is no longer needed. Reads the report once.
Baseline accepted(const Report& report, const Places& places, const Baseline& baseline,
                  const AcceptFilter& filter, const IsUnseenFile& isUnseen = {});

/// What a person is told of a gate, new findings and entries that are no longer needed apart; `most` of each. Empty if
/// there is nothing to tell.
std::string gateText(const GateResult& result, std::size_t most);

}  // namespace torvel::migrate
