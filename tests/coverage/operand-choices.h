#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "src/base/token-type.h"

namespace torvel::test {

/// What may stand in the place of an operand with a name: a row of named-operands.def, or what such a row
/// refuses.
struct OperandChoice {
    /// In a program; empty: it is left out.
    std::string brannic;
    std::string torvel;
    /// The message of a placeholder or of a refusal.
    std::string_view message;
    bool isRefused = false;
    /// The word; TokenType::INVALID for numbers and for what is left out.
    TokenType word = TokenType::INVALID;
};

/// The names of all sets.
std::vector<std::string> operandSetNames();

/// What may stand in the place of a word of a pattern; nothing if the word is not the name of a set.
std::vector<OperandChoice> choicesOf(const std::string& word);

}  // namespace torvel::test
