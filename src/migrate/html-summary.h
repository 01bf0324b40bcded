#pragma once

#include <cstdint>

#include "src/migrate/html-tables.h"
#include "src/migrate/report-totals.h"
#include "src/migrate/text-sink.h"

namespace torvel::migrate {

/// Where the page has what it shows of single programs.
enum class HtmlDetails : std::uint8_t { inside, files };

struct HtmlSummary {
    const Report& report;
    const Places& places;
    const ReportTotals& totals;
    const HtmlTables& tables;
    /// Seconds since 1970.
    std::int64_t made = 0;
    HtmlDetails details = HtmlDetails::inside;
};

/// Writes the summary of a page as JSON (web/src/data/format.ts).
void writeHtmlSummary(const HtmlSummary& summary, const TextSink& sink);

}  // namespace torvel::migrate
