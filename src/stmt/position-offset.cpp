#include "src/stmt/axis-words.h"
#include "src/stmt/routines.h"

namespace torvel {

/// POSOFFSET SET {axis value}
/// PositionOffsetSet([axes], [values])
void convertPositionOffset(Statement& statement, std::string_view) {
    if (statement.cursor.atEnd()) {
        refuse(statement, Message::AxisPointOrWordExpected);
    }
    TextList axes;
    TextList values;
    visitAxisPoints(statement, [&](std::string_view axis, std::string_view value) {
        axes.add(axis);
        values.add(value);
    });
    statement.text += "PositionOffsetSet(";
    formatList(axes, false, statement.text);
    statement.text += ", ";
    formatList(values, false, statement.text);
    statement.text += ')';
}

}  // namespace torvel
