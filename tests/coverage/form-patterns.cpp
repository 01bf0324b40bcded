#include "tests/coverage/form-patterns.h"

#include <algorithm>
#include <map>
#include <stdexcept>

#include "tests/coverage/operand-choices.h"
#include "tests/coverage/row-text.h"

namespace torvel::test {

namespace {

/// A word of a pattern, or what may stand in its place.
struct PatternWord {
    OperandChoice choice;
    bool hasHole = false;
    /// It gets a number where the form has several of its name.
    bool isNumbered = false;
};

PatternWord operandCalled(const std::string& name) {
    return {{name, name, ""}, true, true};
}

/// An operand without a set.
std::vector<PatternWord> operandOf(const std::string& word, bool isBracketed) {
    if (word == "axes" && isBracketed) {
        return {{{"axis1 axis2", "axis1, axis2", ""}, true, false}};
    }
    if (word == "path") {
        return {operandCalled("string")};
    }
    if (word == "[value]") {
        return {{{"", "", ""}, true, false}, operandCalled("value")};
    }
    static const std::string_view known[] = {"axis",   "axes",     "value", "values",
                                             "string", "variable", "task"};
    if (std::find(std::begin(known), std::end(known), word) == std::end(known)) {
        throw std::runtime_error("a pattern has an unknown word, " + word);
    }
    return {operandCalled(word)};
}

std::vector<PatternWord> possibilitiesOf(const std::string& word, bool isBracketed) {
    if (!isOperand(word)) {
        return {{{word, "", ""}, false, false}};
    }
    std::vector<PatternWord> possibilities;
    for (const OperandChoice& choice : choicesOf(word)) {
        possibilities.push_back({choice, true, choice.brannic == "variable"});
    }
    return possibilities.empty() ? operandOf(word, isBracketed) : possibilities;
}

/// Whether an operand stands in brackets of the text.
bool isBracketed(const RowText& text, std::size_t operand) {
    return text.inFrontOf(operand).ends_with('[') && text.behind(operand).starts_with(']');
}

/// One of the forms of a pattern.
struct Alternative {
    std::vector<PatternWord> words;
    std::string_view message;
    bool isRefused = false;

    Alternative with(const PatternWord& word) const {
        Alternative longer = *this;
        longer.words.push_back(word);
        longer.isRefused = isRefused || word.choice.isRefused;
        longer.message = message.empty() ? word.choice.message : message;
        return longer;
    }
    bool hasSeveral(const std::string& name) const {
        return std::count_if(words.begin(), words.end(), [&](const PatternWord& each) {
                   return each.isNumbered && each.choice.brannic == name;
               }) > 1;
    }
    /// Gives numbers to the operands of which there are several.
    void number() {
        std::map<std::string, int> numbers;
        Alternative numbered = *this;
        for (PatternWord& word : numbered.words) {
            if (word.isNumbered && hasSeveral(word.choice.brannic)) {
                const std::string suffix = std::to_string(++numbers[word.choice.brannic]);
                word.choice.brannic += suffix;
                word.choice.torvel += suffix;
            }
        }
        words = numbered.words;
    }
    std::string brannic() const {
        std::string text;
        for (const PatternWord& word : words) {
            text += text.empty() || word.choice.brannic.empty() ? "" : " ";
            text += word.choice.brannic;
        }
        return text;
    }
    std::string torvel(const RowText& text) const {
        std::vector<std::string> fillings;
        for (const PatternWord& word : words) {
            if (word.hasHole) {
                fillings.push_back(word.choice.torvel);
            }
        }
        std::string filled;
        for (const RowText::Hole& hole : text.holes) {
            filled += std::string(hole.before) + fillings.at(hole.operand);
        }
        return filled + std::string(text.rest);
    }
};

/// Every alternative with every possibility, but what is refused with the first of the others only.
std::vector<Alternative> combined(const std::vector<Alternative>& alternatives,
                                  const std::vector<PatternWord>& possibilities) {
    std::vector<Alternative> longer;
    for (const Alternative& alternative : alternatives) {
        for (const PatternWord& word : possibilities) {
            const bool isFirst = &alternative == alternatives.data();
            const bool isFirstWord = &word == possibilities.data();
            if ((isFirst || !word.choice.isRefused) && (isFirstWord || !alternative.isRefused)) {
                longer.push_back(alternative.with(word));
            }
        }
    }
    return longer;
}

}  // namespace

std::vector<std::string> wordsOfPattern(std::string_view pattern) {
    std::vector<std::string> words;
    while (!pattern.empty()) {
        const std::size_t end = pattern[0] == '[' ? pattern.find(']') + 1 : pattern.find(' ');
        words.emplace_back(pattern.substr(0, end));
        pattern.remove_prefix(std::min(pattern.size(), words.back().size() + 1));
    }
    return words;
}

bool isOperand(const std::string& word) {
    return word.size() > 1 &&
           std::any_of(word.begin(), word.end(), [](char c) { return c >= 'a' && c <= 'z'; });
}

std::vector<StatementForm> formsOfPattern(std::string_view pattern, std::string_view text,
                                          std::string_view message) {
    const RowText rowText(text);
    std::vector<Alternative> alternatives(1);
    std::size_t operands = 0;
    for (const std::string& word : wordsOfPattern(pattern)) {
        alternatives =
            combined(alternatives, possibilitiesOf(word, isBracketed(rowText, operands)));
        operands += alternatives.front().words.back().hasHole ? 1 : 0;
    }
    std::stable_partition(alternatives.begin(), alternatives.end(),
                          [](const Alternative& each) { return !each.isRefused; });
    std::vector<StatementForm> forms;
    for (Alternative& alternative : alternatives) {
        alternative.number();
        if (alternative.isRefused || text.empty()) {
            forms.push_back(
                refusedForm(alternative.brannic(), text.empty() ? message : alternative.message));
        } else {
            forms.push_back(convertedForm(alternative.brannic(), alternative.torvel(rowText),
                                          {alternative.message, message}));
        }
    }
    return forms;
}

}  // namespace torvel::test
