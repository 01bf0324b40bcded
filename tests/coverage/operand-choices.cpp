#include "tests/coverage/operand-choices.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "tests/coverage/table-rows.h"

namespace torvel::test {

namespace {

/// A set of named-operands.def: what becomes of an operand that it has no name for.
struct OperandSet {
    std::string_view name;
    /// What is left out, or any other number.
    std::optional<std::string_view> otherName;
    std::string_view notConstant;
    std::string_view unknown;
    std::string_view placeholder;
    bool isNumber = false;
};

constexpr OperandSet operandSets[] = {
#define WORDS(set) {#set, {}, "", "", "", false},
#define WORDS_OR(set, name) {#set, name, "", "", "", false},
#define NUMBERS(set, notConstant, unknown) {#set, {}, #notConstant, #unknown, "", true},
#define NUMBERS_OR(set, notConstant, name) {#set, name, #notConstant, "", "", true},
#define NUMBERS_OR_PLACEHOLDER(set, placeholder, message) \
    {#set, placeholder, "", "", #message, true},
#include "src/expr/named-operands.def"
};

struct OperandName {
    std::string_view set;
    TokenType word = TokenType::INVALID;
    int number = 0;
    std::string_view name;
};

constexpr OperandName operandNames[] = {
#define WORD_NAME(set, word, name) {#set, TokenType::word, 0, name},
#define NUMBER_NAME(set, number, name) {#set, TokenType::INVALID, number, name},
#include "src/expr/named-operands.def"
};

OperandChoice choiceOf(const OperandName& row) {
    return {row.word == TokenType::INVALID ? std::to_string(row.number) : spellingOf(row.word),
            std::string(row.name), "", false, row.word};
}

/// The number behind those of the set, which are counted from 0, and a value that is no constant.
void appendOthers(std::vector<OperandChoice>& choices, const OperandSet& set) {
    const std::string number = std::to_string(choices.size());
    if (set.otherName) {
        choices.push_back({number, std::string(*set.otherName), set.placeholder});
    } else {
        choices.push_back({number, "", set.unknown, true});
    }
    if (set.notConstant.empty()) {
        choices.push_back({"variable", std::string(*set.otherName), set.placeholder});
    } else {
        choices.push_back({"variable", "", set.notConstant, true});
    }
}

std::vector<OperandChoice> choicesOfSet(const OperandSet& set, bool mayBeLeftOut) {
    std::vector<OperandChoice> choices;
    if (mayBeLeftOut) {
        choices.push_back({"", std::string(set.otherName.value()), ""});
    }
    for (const OperandName& row : operandNames) {
        if (row.set == set.name) {
            choices.push_back(choiceOf(row));
        }
    }
    if (set.isNumber) {
        appendOthers(choices, set);
    }
    return choices;
}

}  // namespace

std::vector<std::string> operandSetNames() {
    std::vector<std::string> names;
    for (const OperandSet& set : operandSets) {
        names.emplace_back(set.name);
    }
    return names;
}

std::vector<OperandChoice> choicesOf(const std::string& word) {
    const bool mayBeLeftOut = word.starts_with('[');
    const bool hasComma = word.starts_with("[, ");
    std::string name = word;
    if (mayBeLeftOut) {
        const std::size_t start = hasComma ? 3 : 1;
        name = word.substr(start, word.size() - start - 1);
    }
    const auto* const set = std::find_if(std::begin(operandSets), std::end(operandSets),
                                         [&](const OperandSet& each) { return each.name == name; });
    if (set == std::end(operandSets)) {
        return {};
    }
    std::vector<OperandChoice> choices = choicesOfSet(*set, mayBeLeftOut);
    for (OperandChoice& choice : choices) {
        if (hasComma && !choice.brannic.empty()) {
            choice.brannic.insert(0, ", ");
        }
    }
    return choices;
}

}  // namespace torvel::test
