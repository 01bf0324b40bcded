#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "src/migrate/report-totals.h"
#include "src/migrate/report.h"

// What a terminal shows of a report.

namespace torvel::migrate {

struct SummaryView {
    /// Characters in a line; less than 40 counts as 40. Longer paths are cut in their middle.
    std::size_t width = 80;
    /// With the terminal's signs for bold and red.
    bool hasColour = false;
    /// Where the reports are, as the user knows the paths.
    std::vector<std::string> reports;
};

/// What stands at the end of a run: programs, lines, what is left to do, the five folders with most work, the estimate
/// with its arithmetic, where the report is.
std::string summaryText(const Report& report, const ReportTotals& totals, const SummaryView& view);

/// What there is and what is left on one screen, with the first programs that need a decision. Reads the report once.
std::string statusText(const Report& report, const ReportTotals& totals, const SummaryView& view);

/// Where the reports are, a line each.
std::string reportsText(const SummaryView& view);

}  // namespace torvel::migrate
