#pragma once

#include <string_view>

#include "src/expr/parser-core.h"

namespace torvel {

/// A word of a circular move or an axis point: a name and a value.
struct AxisWord {
    /// An axis as Torvel text, or one upper-case letter.
    ExpressionText name;
    bool isAxis = false;
    ExpressionText value;
};

/// Reads an axis or an address letter (not G, M or N), an optional "=", and a value.
AxisWord readAxisWord(Statement& statement);

/// Reads axes and values up to the end of the line and calls visit(axis, value) for each. If one of them is no axis, the
/// statement is refused behind the last.
template <typename Visit>
void visitAxisPoints(Statement& statement, Visit visit) {
    bool areAxes = true;
    while (!statement.cursor.atEnd()) {
        const AxisWord point = readAxisWord(statement);
        areAxes = areAxes && point.isAxis;
        visit(std::string_view(point.name), std::string_view(point.value));
    }
    if (!areAxes) {
        refuse(statement, Message::AxisPointExpected);
    }
}

}  // namespace torvel
