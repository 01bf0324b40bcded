#pragma once

#include "src/stmt/statement.h"

namespace torvel {

// Statements whose operands go into one Torvel call in the order in which they stand are rows of a
// table: what is read, and the text with a hole for each operand.

/// Reads the operands that `pattern` names and writes `form` with each in its hole, "{}", in order:
///
///   a  one axis                  v  an expression
///   A  axes: one alone stands    s  a string
///      without brackets          ,  a comma that must stand there
///   L  axes in brackets          ;  a comma that may stand there
///   V  expressions with commas between   r  a variable that is read
///      them
///
/// `lead`, if it is not empty, fills the first hole; a form without holes drops it. `advice` is logged
/// when all operands are read.
bool writeForm(Statement& statement, std::string_view pattern, std::string_view form,
               std::string_view lead = {}, std::optional<Message> advice = {});

/// Reads the operand that a letter of a pattern names and appends it to `out`.
bool readOperand(Statement& statement, char letter, std::string& out);

}  // namespace torvel
