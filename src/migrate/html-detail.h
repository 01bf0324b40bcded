#pragma once

#include <cstddef>

#include "src/migrate/html-tables.h"
#include "src/migrate/text-sink.h"

namespace torvel::migrate {

class JsonWriter;

/// Writes a list with the runs of lines that belong together: how many, file, depth, first line, lines of output,
/// converted or not.
void writeLineRuns(const std::vector<MappedLine>& lines, JsonWriter& json);

/// Writes what a page has of a single program as JSON (web/src/data/format.ts). Texts have a line feed at the end of
/// each line.
void writeHtmlDetail(const ReportTexts& texts, const HtmlTables& tables, std::size_t program,
                     const TextSink& sink);

}  // namespace torvel::migrate
