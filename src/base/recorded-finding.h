#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "src/base/findings.h"

namespace torvel {

/// What is kept of a finding until it is told. A program may have one on every line, so it is small: its position is
/// that of its line, and its text is put together when it is told.
struct RecordedFinding {
    /// Number of no directive.
    static constexpr std::uint32_t ofLine = UINT32_MAX;

    /// A message, or the name that a check is about. It belongs to the program, or to the record.
    const char* text = nullptr;
    std::uint32_t textLength = 0;
    /// The number of the line in the preprocessed program.
    std::uint32_t programLine = 0;
    ColumnRange columns{};
    /// The directive of the record that it stands at, if it does not stand at its line.
    std::uint32_t directive = ofLine;
    /// A Message, or else a Check.
    std::uint16_t row = 0;
    FindingOrigin origin = FindingOrigin::check;
    FindingTodo todo = FindingTodo::look;
};
static_assert(sizeof(RecordedFinding) == 32);

/// The line and what is left to do are not known yet. `text` has to live as long as the record.
RecordedFinding recordedFinding(Check check, ColumnRange columns = {}, std::string_view about = {});
RecordedFinding recordedFinding(Message message, std::string_view text);

/// The finding with its texts, at that position. It holds until `room` changes.
Finding findingOf(const RecordedFinding& recorded, const SourcePosition& position,
                  std::string& room);

}  // namespace torvel
