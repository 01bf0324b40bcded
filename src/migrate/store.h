#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "src/base/file-system.h"
#include "src/migrate/program-result.h"

// What a migration remembers, in one SQLite file: docs/store.md has the schema. Text in it is compressed.

namespace torvel::migrate {

/// What stands at the place of an output, beside what the converter generated for it.
struct OutputRecord {
    /// The text that the output on the disk was made from, the base of the next merge. With line feeds.
    ContentHash base{};
    /// The hash of the bytes of a newer generation that was about to be put in place, with its text; none:
    /// nothing was under way. An output that has this hash has the newer text as its base.
    std::optional<ContentHash> placed;
};

/// A program as the store has it, without its texts.
struct StoredProgram {
    std::string program;
    std::string output;
    std::string machine;
    ProgramStatus status{};
    /// What it was converted from and with: its inputs and everything else that counts.
    ContentHash key{};
    std::vector<Input> inputs;
    std::uint64_t lines = 0;
    std::uint64_t convertedLines = 0;
    std::optional<OutputRecord> outputRecord;
};

/// One run of the converter over the project.
struct RunRow {
    std::string version;
    /// Seconds since 1970.
    std::int64_t began = 0;
    std::int64_t ended = 0;
    std::uint64_t programs = 0;
    std::uint64_t converted = 0;
    std::uint64_t lines = 0;
    std::uint64_t convertedLines = 0;
    std::uint64_t openFindings = 0;
};

}  // namespace torvel::migrate
