#include "src/base/recorded-finding.h"

namespace torvel {

namespace {

void setText(RecordedFinding& finding, std::string_view text) {
    finding.text = text.data();
    finding.textLength = static_cast<std::uint32_t>(text.size());
}

/// The check's title and what it is about.
std::string_view textOf(Check check, std::string_view about, std::string& room) {
    const std::string_view title = checkRow(check).title;
    if (about.empty()) {
        return title;
    }
    return room.assign(title).append(1, ' ').append(about);
}

}  // namespace

RecordedFinding recordedFinding(Check check, ColumnRange columns, std::string_view about) {
    RecordedFinding finding;
    finding.row = static_cast<std::uint16_t>(check);
    finding.columns = columns;
    setText(finding, about);
    return finding;
}

RecordedFinding recordedFinding(Message message, std::string_view text) {
    RecordedFinding finding;
    finding.origin = FindingOrigin::message;
    finding.row = static_cast<std::uint16_t>(message);
    setText(finding, text);
    return finding;
}

Finding findingOf(const RecordedFinding& recorded, const SourcePosition& position,
                  std::string& room) {
    const std::string_view text(recorded.text, recorded.textLength);
    Finding finding;
    if (recorded.origin == FindingOrigin::message) {
        finding = makeFinding(static_cast<Message>(recorded.row), text, position);
    } else {
        const auto check = static_cast<Check>(recorded.row);
        finding = makeFinding(check, position, recorded.columns);
        finding.origin = recorded.origin;
        finding.text = textOf(check, text, room);
    }
    finding.todo = recorded.todo;
    finding.programLine = recorded.programLine;
    return finding;
}

}  // namespace torvel
