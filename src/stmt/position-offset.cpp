#include "src/stmt/axis-words.h"
#include "src/stmt/routines.h"

namespace torvel {

/// POSOFFSET SET {axis value}
/// PositionOffsetSet([axes], [values])
void convertPositionOffset(Statement& statement, std::string_view) {
    if (statement.cursor.atEnd()) {
        refuse(statement, Message::AxisPointOrWordExpected);
    }
    std::vector<ExpressionText> axes;
    std::vector<ExpressionText> values;
    for (AxisWord& point : readAxisPoints(statement)) {
        if (!point.isAxis) {
            refuse(statement, Message::AxisPointExpected);
        }
        axes.push_back(std::move(point.name));
        values.push_back(std::move(point.value));
    }
    statement.text += "PositionOffsetSet(";
    formatList(axes, false, statement.text);
    statement.text += ", ";
    formatList(values, false, statement.text);
    statement.text += ')';
}

}  // namespace torvel
