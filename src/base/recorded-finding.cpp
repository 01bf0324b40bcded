#include "src/base/recorded-finding.h"

namespace torvel {

namespace {

/// The check's title and what it is about.
std::string_view textOf(Check check, std::string_view about, std::string& room) {
    const std::string_view title = checkRow(check).title;
    if (about.empty()) {
        return title;
    }
    return room.assign(title).append(1, ' ').append(about);
}

void complete(Finding& finding, const RecordedFinding& recorded) {
    finding.origin = recorded.origin;
    finding.todo = recorded.todo;
    finding.programLine = recorded.programLine;
}

}  // namespace

RecordedFinding recordedFinding(Check check, ColumnRange columns, std::string_view about) {
    RecordedFinding finding;
    finding.row = static_cast<std::uint16_t>(check);
    finding.columns = columns;
    finding.about = about.data();
    finding.aboutLength = static_cast<std::uint32_t>(about.size());
    return finding;
}

RecordedFinding recordedFinding(Message message, std::size_t number) {
    RecordedFinding finding;
    finding.origin = FindingOrigin::message;
    finding.row = static_cast<std::uint16_t>(message);
    finding.number = static_cast<std::uint32_t>(number);
    return finding;
}

Finding messageFinding(const RecordedFinding& recorded, const SourcePosition& position,
                       std::string_view text) {
    Finding finding = makeFinding(static_cast<Message>(recorded.row), text, position);
    complete(finding, recorded);
    return finding;
}

Finding checkFinding(const RecordedFinding& recorded, const SourcePosition& position,
                     std::string& room) {
    const auto check = static_cast<Check>(recorded.row);
    Finding finding = makeFinding(check, position, recorded.columns);
    finding.text = textOf(check, {recorded.about, recorded.aboutLength}, room);
    complete(finding, recorded);
    return finding;
}

}  // namespace torvel
