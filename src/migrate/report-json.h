#pragma once

#include "src/migrate/json-writer.h"
#include "src/migrate/places.h"
#include "src/migrate/report-totals.h"
#include "src/migrate/report.h"
#include "src/migrate/text-sink.h"

namespace torvel::migrate {

/// Writes the runs as the member "runs" of the object that is begun.
void writeRuns(const std::vector<RunRow>& runs, JsonWriter& json);

/// Writes the report as JSON; docs/report.schema.json says what is in it. Reads the report once.
void writeJsonReport(const Report& report, const Places& places, const ReportTotals& totals,
                     const TextSink& sink);

}  // namespace torvel::migrate
