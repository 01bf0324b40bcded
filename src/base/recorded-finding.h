#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "src/base/findings.h"

namespace torvel {

/// What is kept of a finding until it is told. A program may have one on every line, so it is small: its position is
/// that of its line, and its text is put together when it is told.
struct RecordedFinding {
    /// The number of nothing.
    static constexpr std::uint32_t none = UINT32_MAX;

    /// The name that a check is about. It belongs to the program, or to the record.
    const char* about = nullptr;
    std::uint32_t aboutLength = 0;
    /// The number of the line in the preprocessed program.
    std::uint32_t programLine = 0;
    ColumnRange columns{};
    /// Of a message: which of its part it is. Of a check: the directive of the record that it stands at, if it does not
    /// stand at its line.
    std::uint32_t number = none;
    /// A Message, or else a Check.
    std::uint16_t row = 0;
    FindingOrigin origin = FindingOrigin::check;
    FindingTodo todo = FindingTodo::look;
};
static_assert(sizeof(RecordedFinding) <= 32);

/// By which findings are ordered.
template <typename AnyFinding>
std::pair<std::uint32_t, std::uint32_t> placeInProgram(const AnyFinding& finding) {
    return {finding.programLine, finding.columns.first};
}

/// The line and what is left to do are not known yet. `about` has to live as long as the record.
RecordedFinding recordedFinding(Check check, ColumnRange columns = {}, std::string_view about = {});
RecordedFinding recordedFinding(Message message, std::size_t number);

/// The finding of a message with that text, at that position.
Finding messageFinding(const RecordedFinding& recorded, const SourcePosition& position,
                       std::string_view text);

/// The finding of a check at that position. It holds until `room` changes.
Finding checkFinding(const RecordedFinding& recorded, const SourcePosition& position,
                     std::string& room);

}  // namespace torvel
