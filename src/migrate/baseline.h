#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "src/base/file-system.h"

// migration-baseline.json: the findings that are known, so that only new ones fail a build. It is text for version
// control: sorted, one entry a line.

namespace torvel::migrate {

/// Known findings of equal lines.
struct BaselineEntry {
    /// The file that holds the lines, decoded.
    std::string file;
    std::string code;
    /// The hash of the line's text, blanks made equal: 32 hexadecimal digits. Text and hash are of the same line.
    std::string hash;
    /// How many of them are known.
    std::uint32_t count = 0;
    /// For people only: the first line, and its text, shortened.
    std::uint32_t line = 0;
    std::string text;

    bool operator==(const BaselineEntry&) const = default;
};

struct Baseline {
    std::vector<BaselineEntry> entries;

    bool operator==(const Baseline&) const = default;
};

/// The file's text; entries are sorted by file, code and hash.
std::string baselineText(const Baseline& baseline);

/// Reads the text of a baseline called `name`. Throws std::runtime_error with a complete message that says what is wrong
/// with it and what to do.
Baseline parseBaseline(std::string_view text, std::string_view name);

/// The baseline at `path`; with no entries if there is no file, which `isThere` tells. Throws std::runtime_error with a
/// complete message.
Baseline readBaseline(const NativePath& path, bool& isThere);

/// Writes a new file and gives it the name. Throws std::runtime_error with a complete message.
void writeBaseline(const NativePath& path, const Baseline& baseline);

}  // namespace torvel::migrate
