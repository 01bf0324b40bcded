#pragma once

#include <string>
#include <string_view>

namespace torvel::migrate {

/// What came of bringing together the edits of a person and a new generation.
struct MergedText {
    std::string text;
    /// Both changed the same or neighbouring lines: the text has conflict markers there, each with the edited lines,
    /// those that were last generated, and the new ones.
    bool hasConflicts = false;
};

/// Merges by lines. `base` is the text that `edited` was made from, `generated` the new one.
///
/// - Where only one side changed lines, its lines are taken; where both made the same of them, these are taken once.
///   Changes of the two sides that touch are a conflict, also if they are on neighbouring lines.
/// - Lines that could not be converted are equal when they differ in their position only; the new one is written.
/// - CR LF and a missing last line end are no changes. The line ends of `edited` are kept, line by line; a new line
///   has that of the line in front of it.
/// - Texts that are too different to be compared (line-changes.h) are changed as a whole.
MergedText mergeByLines(std::string_view base, std::string_view edited, std::string_view generated);

/// Whether a text has lines that begin a conflict and end it, as mergeByLines writes them.
bool hasConflictMarkers(std::string_view text);

}  // namespace torvel::migrate
