#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "src/expr/named-operands.h"
#include "src/expr/precedence.h"

// Most statements and functions are a call whose arguments are their operands. They are rows of tables: a
// pattern of what is read, and a text with a hole for each operand. Both are taken apart by the compiler,
// which refuses a word that it does not know and a hole without an operand.
//
// A pattern is a list of these, with blanks between them:
//
//   axis      one axis                    ,        a comma that must stand there
//   axes      axes next to each other     [,]      a comma that may stand there
//   value     an expression               ( )      parentheses that must stand there
//   values    expressions with commas     WORD     a keyword that must stand there
//             between them                set      a word or number that Torvel has a name for: a set of
//   string    a string expression                  named-operands.def
//   path      a string operand            [set]    one that may be left out, [, set] with the comma in
//   variable  a variable that is read              front of it
//   [value]   an expression, unless the
//             line ends
//
// A hole is "{}", filled by the operands in their order, or "{2}" by the second one. In "[{}]" axes are
// written without brackets of their own. An operand that stands beside an operator of the text gets
// parentheses where it would be taken apart.

namespace torvel {

/// What a step of a form reads.
enum class FormOperand : std::uint8_t {
    none,
    /// Read before the form was known; its text is handed over.
    lead,
    axis,
    axes,
    value,
    valueOrNothing,
    values,
    string,
    path,
    variable,
    named,
};

/// Reads a token that must or may stand there, or an operand.
struct FormStep {
    FormOperand operand = FormOperand::none;
    TokenType token = TokenType::INVALID;
    bool isOptional = false;
    OperandSet set{};
    Presence presence{};
    /// A value in a form whose commas may be left out.
    bool mayBeJoined = false;
};

/// A place of an operand in a form's text.
struct FormHole {
    /// The text in front of it.
    std::string_view before;
    /// The number of the operand from 0.
    std::uint8_t operand = 0;
    /// It stands in brackets of its own.
    bool isBracketed = false;
    /// The operators beside it: their numbers in binaryOperators from 1; 0 is none.
    std::uint8_t operatorInFront = 0;
    std::uint8_t operatorBehind = 0;
};

/// A pattern and a text, taken apart.
struct Form {
    static constexpr std::size_t mostSteps = 12;
    static constexpr std::size_t mostHoles = 6;

    std::array<FormStep, mostSteps> steps{};
    std::uint8_t stepCount = 0;
    std::array<FormHole, mostHoles> holes{};
    std::uint8_t holeCount = 0;
    /// The text behind the last hole.
    std::string_view rest;
    /// Every operand but the lead has a hole, in the order in which they are read.
    bool isInOrder = true;
    /// A comma between its operands may be left out.
    bool hasOptionalComma = false;
    /// How loosely the text binds.
    Precedence precedence = Precedence::primary;
};

namespace form_rows {

/// The keyword that is spelled `word`.
consteval TokenType keywordCalled(std::string_view word) {
#define KIND(enumerator, display)
#define KEYWORD(enumerator, spelling)         \
    if (word == std::string_view(spelling)) { \
        return TokenType::enumerator;         \
    }
#define DIRECTIVE(enumerator, spelling)
#include "src/base/token-kinds.def"
    throw "a word of a pattern is no keyword";
}

consteval std::optional<FormOperand> operandCalled(std::string_view word) {
    struct Name {
        std::string_view word;
        FormOperand operand;
    };
    constexpr Name names[] = {
        {"axis", FormOperand::axis},     {"axes", FormOperand::axes},
        {"value", FormOperand::value},   {"[value]", FormOperand::valueOrNothing},
        {"values", FormOperand::values}, {"string", FormOperand::string},
        {"path", FormOperand::path},     {"variable", FormOperand::variable},
    };
    for (const Name& name : names) {
        if (name.word == word) {
            return name.operand;
        }
    }
    return std::nullopt;
}

consteval FormStep namedStep(std::string_view word) {
    Presence presence = Presence::required;
    if (word.starts_with('[')) {
        const bool hasComma = word.starts_with("[, ");
        presence = hasComma ? Presence::behindComma : Presence::optional;
        word.remove_prefix(hasComma ? 3 : 1);
        word.remove_suffix(1);
    }
    const std::optional<OperandSet> set = findOperandSet(word);
    if (!set || (presence != Presence::required && !mayBeLeftOut(*set))) {
        throw "an operand of a pattern is unknown, or may not be left out";
    }
    return {FormOperand::named, TokenType::INVALID, false, *set, presence};
}

consteval FormStep stepCalled(std::string_view word) {
    if (word == "," || word == "[,]") {
        return {FormOperand::none, TokenType::COMMA, word != ",", {}, {}};
    }
    if (word == "(" || word == ")") {
        return {FormOperand::none,
                word == "(" ? TokenType::LEFT_PAREN : TokenType::RIGHT_PAREN,
                false,
                {},
                {}};
    }
    if (const std::optional<FormOperand> operand = operandCalled(word)) {
        return {*operand, TokenType::INVALID, false, {}, {}};
    }
    if (word[0] >= 'A' && word[0] <= 'Z') {
        return {FormOperand::none, keywordCalled(word), false, {}, {}};
    }
    return namedStep(word);
}

/// The length of the pattern's first word; a bracket ends it where it closes.
consteval std::size_t wordLength(std::string_view pattern) {
    const std::size_t end = pattern[0] == '[' ? pattern.find(']') + 1 : pattern.find(' ');
    return end < pattern.size() ? end : pattern.size();
}

consteval void readPattern(Form& form, std::string_view pattern) {
    while (!pattern.empty()) {
        const std::size_t length = wordLength(pattern);
        form.steps[form.stepCount++] = stepCalled(pattern.substr(0, length));
        form.hasOptionalComma =
            form.hasOptionalComma || pattern.substr(0, length) == std::string_view("[,]");
        pattern.remove_prefix(length < pattern.size() ? length + 1 : length);
    }
    for (std::size_t number = 0; number < form.stepCount; ++number) {
        FormStep& step = form.steps[number];
        step.mayBeJoined = form.hasOptionalComma && (step.operand == FormOperand::value ||
                                                     step.operand == FormOperand::values);
    }
}

/// The number of the operator that `text` begins or ends with, from 1; 0 if there is none.
consteval std::uint8_t operatorAt(std::string_view text, bool atBegin) {
    for (std::size_t number = 0; number < std::size(binaryOperators); ++number) {
        const BinaryOperator& entry = binaryOperators[number];
        if (!entry.refusal &&
            (atBegin ? text.starts_with(entry.text) : text.ends_with(entry.text))) {
            return static_cast<std::uint8_t>(number + 1);
        }
    }
    return 0;
}

consteval void readHoles(Form& form, std::string_view text) {
    std::uint8_t next = 0;
    for (std::size_t open = text.find('{'); open != std::string_view::npos; open = text.find('{')) {
        const std::size_t close = text.find('}', open);
        if (close == std::string_view::npos || close > open + 2) {
            throw "a hole is {} or {1}";
        }
        const bool isNumbered = close == open + 2;
        FormHole& hole = form.holes[form.holeCount++];
        hole.before = text.substr(0, open);
        hole.operand = isNumbered ? static_cast<std::uint8_t>(text[open + 1] - '1') : next++;
        text.remove_prefix(close + 1);
        hole.isBracketed = hole.before.ends_with('[') && text.starts_with(']');
        hole.operatorInFront = operatorAt(hole.before, false);
        hole.operatorBehind = operatorAt(text, true);
    }
    form.rest = text;
}

/// How loosely a text binds whose holes hold together; a bracket that is not closed does not compile.
consteval Precedence precedenceOf(std::string_view text) {
    Precedence loosest = Precedence::primary;
    int depth = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        depth += text[at] == '(' || text[at] == '[' ? 1 : 0;
        depth -= text[at] == ')' || text[at] == ']' ? 1 : 0;
        const std::uint8_t number = operatorAt(text.substr(at), true);
        if (depth == 0 && number != 0 && binaryOperators[number - 1].level < loosest) {
            loosest = binaryOperators[number - 1].level;
        }
    }
    if (depth != 0) {
        throw "a bracket of a text is not closed";
    }
    return loosest;
}

/// Every hole has an operand, and every operand but a lead has one hole.
consteval void checkHoles(Form& form) {
    std::uint8_t operands = 0;
    for (std::size_t step = 0; step < form.stepCount; ++step) {
        if (form.steps[step].operand == FormOperand::none) {
            continue;
        }
        std::size_t holes = 0;
        for (std::size_t hole = 0; hole < form.holeCount; ++hole) {
            holes += form.holes[hole].operand == operands ? 1 : 0;
        }
        if (holes > 1 || (holes == 0 && form.steps[step].operand != FormOperand::lead)) {
            throw "an operand has no hole, or two";
        }
        ++operands;
    }
    for (std::size_t hole = 0; hole < form.holeCount; ++hole) {
        if (form.holes[hole].operand >= operands) {
            throw "a hole has no operand";
        }
        if (hole > 0 && form.holes[hole].operand < form.holes[hole - 1].operand) {
            form.isInOrder = false;
        }
    }
    for (std::size_t hole = 0; hole < form.holeCount; ++hole) {
        const bool isBeside =
            form.holes[hole].operatorInFront != 0 || form.holes[hole].operatorBehind != 0;
        if (!form.isInOrder && (isBeside || form.holes[hole].isBracketed)) {
            throw "only operands in their order may stand in brackets or beside operators";
        }
    }
}

}  // namespace form_rows

/// Takes a form apart. `leadPattern` is that of an operand that is read before the form is known, or empty.
consteval Form makeForm(std::string_view leadPattern, std::string_view pattern,
                        std::string_view text) {
    Form form;
    if (!leadPattern.empty()) {
        form.steps[form.stepCount++].operand = FormOperand::lead;
    }
    form_rows::readPattern(form, pattern);
    form_rows::readHoles(form, text);
    form_rows::checkHoles(form);
    form.precedence = form_rows::precedenceOf(text);
    return form;
}

/// Translates the operands of a form and writes it. `leadText` is its lead, translated.
Precedence writeForm(Statement& statement, const Form& form, ExpressionText& out,
                     std::string_view leadText = {});

/// Translates one operand. In brackets of the text axes have none of their own.
Precedence translateOperand(Statement& statement, const FormStep& step, bool isBracketed,
                            ExpressionText& out);

}  // namespace torvel
