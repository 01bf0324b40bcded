#pragma once

#include "src/stmt/statement.h"

// The routines that rows of statements.def and values.def name. Each converts or refuses the statement whose
// leading token is the current one. One behind a word is handed the text of the operand in front of it, and the
// cursor stands behind the word. One of a value writes to `out`.

namespace torvel {

#define STATEMENT(token, convert) void convert(Statement& statement);
#define UNCHECKED(token, convert) void convert(Statement& statement);
#define WORD_ROUTINE(token, word, convert) \
    void convert(Statement& statement, std::string_view leadText);
#define SECOND_ROUTINE(token, word, second, convert) \
    void convert(Statement& statement, std::string_view leadText);
#include "src/stmt/statements.def"

#define VALUE_ROUTINE(token, translate) void translate(Statement& statement, ExpressionText& out);
#include "src/stmt/values.def"

}  // namespace torvel
