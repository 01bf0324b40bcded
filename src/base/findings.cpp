#include "src/base/findings.h"

namespace torvel {

Finding makeFinding(Check check, const SourcePosition& position, ColumnRange columns) {
    const CheckRow& row = checkRow(check);
    Finding finding;
    finding.severity = row.severity;
    finding.code = row.code;
    finding.position = position;
    finding.columns = columns;
    finding.text = row.title;
    return finding;
}

Finding makeFinding(Message message, std::string_view text, const SourcePosition& position) {
    Finding finding;
    finding.origin = FindingOrigin::message;
    finding.code = messageCode(message);
    finding.position = position;
    finding.text = text;
    return finding;
}

}  // namespace torvel
