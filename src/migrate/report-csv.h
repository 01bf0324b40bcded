#pragma once

#include <string>
#include <string_view>

#include "src/migrate/places.h"
#include "src/migrate/report.h"
#include "src/migrate/text-sink.h"

// Comma separated values as RFC 4180 has them, for spreadsheets: UTF-8 with a byte order mark, CR LF, and a first row
// that names the columns.

namespace torvel::migrate {

/// A row for each finding. Reads the report once.
void writeFindingsCsv(const Report& report, const Places& places, const TextSink& sink);

/// A row for each program. Reads the report once.
void writeProgramsCsv(const Report& report, const TextSink& sink);

/// A decoded text as a field. What a spreadsheet would take for a formula has "'" in front, numbers never. Control
/// characters are made visible but for tabs and line ends. What is longer than a cell can be is cut, and says so.
std::string csvField(std::string_view text);

}  // namespace torvel::migrate
