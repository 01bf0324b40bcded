#pragma once

#include <string>
#include <vector>

#include "src/migrate/commands.h"
#include "src/migrate/discovery.h"
#include "src/migrate/gate.h"
#include "src/migrate/places.h"
#include "src/migrate/report-totals.h"
#include "src/migrate/store-report.h"
#include "src/migrate/summary.h"
#include "src/migrate/text-layout.h"

// A report with what is counted of it, and what commands tell of it.

namespace torvel::migrate {

class Reporting {
public:
    /// Throws StoreError.
    Reporting(std::vector<ReportedStore> stores, const NativePath& directory,
              const Project& project);

    const Report& report() const { return report_; }
    const Places& places() const { return places_; }
    const ReportTotals& totals() const { return totals_; }

private:
    Report report_;
    Places places_;
    ReportTotals totals_;
};

SummaryView summaryViewOf(const Terminal& terminal);

/// A sentence about a file, for a terminal.
std::string noticeLine(const Notice& notice);

/// A file that is there, and that no program of the report was converted from, was not seen by a run. Both have to live
/// as long.
IsUnseenFile unseenFiles(const Report& report, const Project& project);

/// Looks at the baseline and at what fails, and tells of it. The exit status: 0 or 3. Throws std::runtime_error.
int gateStatus(const Reporting& reporting, const Project& project, const Console& console);

}  // namespace torvel::migrate
