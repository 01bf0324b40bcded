#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace torvel::migrate {

/// What came of bringing together the edits of a person and a new generation.
struct MergedText {
    std::string text;
    /// Both changed the same or neighbouring lines: the text has conflict markers there.
    bool hasConflicts = false;
};

/// Merges by lines. `base` is the text that `edited` was made from. Marker lines that differ in their position only
/// are equal; the new one is written. CR LF and a missing last line end are no edits; the line ends of `edited` are
/// kept.
MergedText mergeByLines(std::string_view base, std::string_view edited, std::string_view generated);

}  // namespace torvel::migrate
