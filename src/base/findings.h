#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string_view>

#include "src/base/checks.h"
#include "src/base/messages.h"
#include "src/base/source-position.h"

// A finding is a place of a program that a person has to look at: a message of the log, a check, or a define
// that Torvel does not take. The converter tells them to who asks for them; the log and the output know nothing
// of them.

namespace torvel {

/// Columns of a line of the source from 1, counted in bytes, the last one included. 0: not known.
struct ColumnRange {
    std::uint32_t first = 0;
    std::uint32_t last = 0;

    bool operator==(const ColumnRange&) const = default;
};

/// Where a finding comes from: a message of the log, a check, or a define that could not be kept, of which there
/// is no message.
enum class FindingOrigin : std::uint8_t { message, check, define };

/// What is left to do, told from what became of the line.
enum class FindingTodo : std::uint8_t {
    rewrite,    // the line stands behind a marker
    complete,   // the line has a placeholder
    look,       // neither
    fixSource,  // the program could not be read
};

/// Its texts belong to the record of the conversion, or to the tables.
struct Finding {
    FindingOrigin origin = FindingOrigin::check;
    FindingTodo todo = FindingTodo::look;
    Severity severity = Severity::none;
    std::string_view code;
    SourcePosition position;
    ColumnRange columns;
    /// The message, or the check's title and what it is about.
    std::string_view text;
    /// Further lines of the file that it is about.
    std::span<const std::uint32_t> lines;
    /// The number of the line in the preprocessed program.
    std::uint32_t programLine = 0;
};

Finding makeFinding(Check check, const SourcePosition& position, ColumnRange columns = {});
Finding makeFinding(Message message, std::string_view text, const SourcePosition& position);

/// Is told of every finding, in the order of the program's lines. Positions and texts hold until it returns.
using FindingTaker = std::function<void(const Finding&)>;

}  // namespace torvel
