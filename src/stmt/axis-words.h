#pragma once

#include <string>
#include <vector>

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

/// Reads words up to the end of the line.
std::vector<AxisWord> readAxisPoints(Statement& statement);

}  // namespace torvel
