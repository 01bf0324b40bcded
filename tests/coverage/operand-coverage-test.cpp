// Every name of an operand that has a set of them, and every way of refusing another, is used by some golden
// case of each statement, value and function that takes the set.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "tests/coverage/form-patterns.h"
#include "tests/coverage/golden-rows.h"
#include "tests/coverage/operand-choices.h"
#include "tests/coverage/row-text.h"

namespace torvel::test {

namespace {

/// Whether an operand stands in front of the row's word.
bool hasLead(const TableRow& row) {
    if (!row.isWord) {
        return false;
    }
    TableRow first = row;
    first.isSecond = false;
    return !rowInFrontOf(row).pattern.empty() || !rowInFrontOf(first).pattern.empty();
}

using Fits = std::function<bool(const GoldenLine&)>;

/// Whether some golden line that fits has the operand as the choice says, and came out so.
bool isChosen(const OperandChoice& choice, const RowText& text, std::size_t operand,
              const Fits& fits) {
    const std::string written =
        std::string(text.inFrontOf(operand)) + choice.torvel + std::string(text.behind(operand));
    return anyGoldenLine([&](const GoldenLine& line) {
        if (!fits(line) || (!choice.message.empty() && !hasLogged(line, choice.message)) ||
            (choice.word != TokenType::INVALID && !line.has(choice.word))) {
            return false;
        }
        return choice.isRefused ? !line.isConverted
                                : line.isConverted && line.text.find(written) != std::string::npos;
    });
}

bool hasWordOf(const GoldenLine& line, const std::vector<OperandChoice>& choices) {
    return std::any_of(choices.begin(), choices.end(), [&](const OperandChoice& each) {
        return each.word != TokenType::INVALID && line.has(each.word);
    });
}

void checkNames(Missing& missing, const TableRow& row, const Fits& fits) {
    const RowText text(row.text);
    std::size_t operand = hasLead(row) ? 1 : 0;
    for (const std::string& word : wordsOfPattern(row.pattern)) {
        const std::vector<OperandChoice> choices = choicesOf(word);
        for (const OperandChoice& choice : choices) {
            const auto fitsChoice = [&](const GoldenLine& line) {
                return fits(line) && (!choice.brannic.empty() || !hasWordOf(line, choices));
            };
            missing.unless(isChosen(choice, text, operand, fitsChoice),
                           nameOf(row) + ": " + word + " as \"" + choice.brannic + '"');
        }
        operand += isOperand(word) ? 1 : 0;
    }
}

TEST(StatementCoverage, EveryNameOfAnOperandIsUsed) {
    Missing missing;
    for (const TableRow& row : statementRows()) {
        if (row.kind == TableRow::Kind::form) {
            checkNames(missing, row, [&](const GoldenLine& line) { return isOfRow(line, row); });
        }
    }
    for (const TableRow& row : valueRows()) {
        checkNames(missing, row, [&](const GoldenLine& line) { return hasValue(line, row); });
    }
    for (const TableRow& row : functionRows()) {
        checkNames(missing, row, [&](const GoldenLine& line) { return hasFunction(line, row); });
    }
    EXPECT_TRUE(missing.list().empty()) << "have no golden case:\n" << missing.list();
}

bool isInAPattern(const std::string& set) {
    const auto names = [&](const TableRow& row) {
        return row.pattern.find(set) != std::string_view::npos;
    };
    return std::any_of(statementRows().begin(), statementRows().end(), names) ||
           std::any_of(valueRows().begin(), valueRows().end(), names) ||
           std::any_of(functionRows().begin(), functionRows().end(), names);
}

/// A set that only routines ask for.
TEST(StatementCoverage, EveryNameOfARoutinesOperandIsUsed) {
    Missing missing;
    for (const std::string& set : operandSetNames()) {
        if (isInAPattern(set)) {
            continue;
        }
        for (const OperandChoice& choice : choicesOf(set)) {
            missing.unless(
                isChosen(choice, RowText("{}"), 0, [](const GoldenLine&) { return true; }),
                set + " as \"" + choice.brannic + '"');
        }
    }
    EXPECT_TRUE(missing.list().empty()) << "have no golden case:\n" << missing.list();
}

}  // namespace

}  // namespace torvel::test
