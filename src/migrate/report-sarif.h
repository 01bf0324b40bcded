#pragma once

#include <string>
#include <string_view>

#include "src/migrate/places.h"
#include "src/migrate/report-totals.h"
#include "src/migrate/report.h"
#include "src/migrate/text-sink.h"

namespace torvel::migrate {

/// Writes what is open as SARIF 2.1.0 for editors and code hosts: one run, a result for each place of the sources, the
/// most urgent first, since hosts show so many and no more. The level is the urgency (finding-order.h). Reads the
/// report once for each level.
void writeSarif(const Report& report, const Places& places, const ReportTotals& totals,
                const TextSink& sink);

/// A key as the reference of a URI, percent-encoded; an absolute one has the scheme "file".
std::string uriOf(std::string_view key);

}  // namespace torvel::migrate
