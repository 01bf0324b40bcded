#pragma once

#include <string>
#include <string_view>

#include "src/migrate/report.h"
#include "src/migrate/text-sink.h"

namespace torvel::migrate {

/// Writes the report as JUnit XML for CI servers: a test case for each program, which fails once for each code that it
/// has open findings of, what moves otherwise first. A program that was not converted is an error. Reads the report
/// twice.
void writeJUnit(const Report& report, const TextSink& sink);

/// A decoded text for an attribute or between tags. Control characters that XML cannot hold are made visible.
std::string escapedXml(std::string_view text);

}  // namespace torvel::migrate
