#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/coverage/statement-form.h"

namespace torvel::test {

/// The words of a pattern of src/expr/form.h.
std::vector<std::string> wordsOfPattern(std::string_view pattern);

/// Whether a word of a pattern is an operand.
bool isOperand(const std::string& word);

/// The forms of a pattern and a text, with a message beside it or none. An empty text: the message refuses it.
/// "task" in the pattern is the number of a task.
std::vector<StatementForm> formsOfPattern(std::string_view pattern, std::string_view text,
                                          std::string_view message);

}  // namespace torvel::test
