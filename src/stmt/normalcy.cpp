#include "src/expr/axis-lists.h"
#include "src/stmt/routines.h"

namespace torvel {

/// NORMALCY AXES axis axis
/// NormalcySetAxes(axis, axis)
void convertNormalcyAxes(Statement& statement, std::string_view) {
    const TextList axes = translateAxisList(statement);
    if (axes.size() != 2) {
        refuse(statement, Message::TwoAxesExpected);
    }
    statement.text += "NormalcySetAxes(";
    joinItems(axes, statement.text);
    statement.text += ')';
}

}  // namespace torvel
