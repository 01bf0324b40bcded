#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "src/migrate/program-result.h"

// The findings and the line map of a program as the store keeps them: a program is read and written as a whole, and a
// row of a table for each of some hundred thousand findings takes longer than what found them. docs/store.md has the
// form.

namespace torvel::migrate {

std::string packedFindings(const std::vector<FindingRow>& findings);

/// What `packedFindings` was given; nothing if the bytes are not of that kind.
std::optional<std::vector<FindingRow>> unpackedFindings(std::string_view bytes);

/// Lines that follow one another in a file and became equally many lines of the output each.
struct MappedRun {
    std::size_t count = 0;
    MappedLine first;
};

std::vector<MappedRun> mappedRuns(const std::vector<MappedLine>& lines);

std::string packedLineMap(const std::vector<MappedLine>& lines);

std::optional<std::vector<MappedLine>> unpackedLineMap(std::string_view bytes);

}  // namespace torvel::migrate
