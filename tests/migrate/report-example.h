#pragma once

#include <string>
#include <vector>

#include "src/migrate/report.h"
#include "src/migrate/text-sink.h"

namespace torvel::migrate::test {

/// A report of these programs, which are in the order of their paths.
Report reportOf(std::vector<ReportProgram> programs);

/// A program that was converted, with its output as it was generated: "a/b.pgm" becomes "out/a/b.torvel".
ReportProgram converted(const std::string& program, std::uint64_t lines,
                        std::uint64_t convertedLines, std::vector<ReportFinding> findings);

/// A line behind a marker, with a message.
ReportFinding rewrite(const std::string& file, std::uint32_t line, const std::string& lineText);
/// A value that is cut: a check that moves.
ReportFinding valueCut(const std::string& file, std::uint32_t line, const std::string& lineText,
                       ColumnRange columns = {});

/// Three folders. `shared/io.pgm` is included by two programs; the output of one of them was edited, and the line that
/// had to be written anew is finished. One program could not be read, two would have the same output.
Report plant();

/// Names and texts with what the formats might stumble over.
Report hostileReport();
/// The file, and a line of source, of the hostile report.
std::string hostileName();
std::string hostileLine();

/// As many findings, each in a line of its own; they are made anew each time that the report is read.
Report largeReport(std::uint32_t findings);

/// The fingerprints of all findings, in their order.
std::vector<std::string> fingerprintsOf(const Report& report);

/// What a writer hands over, as one text.
template <typename Writer>
std::string textFrom(const Writer& write) {
    std::string text;
    const TextSink sink = [&text](std::string_view piece) { text += piece; };
    write(sink);
    return text;
}

}  // namespace torvel::migrate::test
