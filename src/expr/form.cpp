#include "src/expr/form.h"

#include <string>

#include "src/expr/axis-lists.h"
#include "src/expr/expressions.h"
#include "src/expr/number-checks.h"
#include "src/expr/strings.h"
#include "src/expr/variables.h"

namespace torvel {

namespace {

void translateAxisOperands(Statement& statement, bool isBracketed, ExpressionText& out) {
    const Token* const before = statement.cursor.place() - 1;
    const TextList axes = translateAxisList(statement);
    // No axes behind SYNCAXES is what NONE is.
    if (axes.empty() && before->type != TokenType::SYNCAXES) {
        noteCheck(statement, Check::EmptyAxes, before);
    }
    if (isBracketed) {
        joinItems(axes, out);
    } else {
        formatList(axes, true, out);
    }
}

/// value {, value}
void translateValues(Statement& statement, ExpressionText& out) {
    translateExpression(statement, out);
    while (acceptToken(statement, TokenType::COMMA)) {
        out += ", ";
        translateExpression(statement, out);
    }
}

void readToken(Statement& statement, const FormStep& step) {
    if (step.isOptional) {
        acceptToken(statement, step.token);
    } else {
        expectToken(statement, step.token);
    }
}

/// Translates an operand and tells who asks for it where its tokens stand.
Precedence translateStep(Statement& statement, const FormStep& step, bool isBracketed,
                         std::string_view leadText, ExpressionText& out) {
    if (step.operand == FormOperand::lead) {
        out += leadText;
        return Precedence::primary;
    }
    const Token* const first = statement.cursor.place();
    const Precedence binding = translateOperand(statement, step, isBracketed, out);
    if (step.mayBeJoined) {
        checkJoinedBySign(statement, first);
    }
    if (statement.operandTokens != nullptr) {
        statement.operandTokens->push_back({first, statement.cursor.place()});
    }
    return binding;
}

/// Puts an operand, `out` from `start` on, into parentheses where its hole's neighbours need them.
void bindHole(const FormHole& hole, Precedence binding, std::size_t start, ExpressionText& out) {
    const bool holds = (hole.operatorInFront == 0 ||
                        bindsBehind(binding, binaryOperators[hole.operatorInFront - 1])) &&
                       (hole.operatorBehind == 0 ||
                        bindsInFront(binding, binaryOperators[hole.operatorBehind - 1]));
    if (!holds) {
        parenthesise(out, start);
    }
}

/// The operands are written where they are read.
void writeInOrder(Statement& statement, const Form& form, std::string_view leadText,
                  ExpressionText& out) {
    const FormHole* hole = form.holes.data();
    const FormHole* const lastHole = hole + form.holeCount;
    std::uint8_t operand = 0;
    for (std::size_t number = 0; number < form.stepCount; ++number) {
        const FormStep& step = form.steps[number];
        if (step.operand == FormOperand::none) {
            readToken(statement, step);
            continue;
        }
        if (hole != lastHole && hole->operand == operand) {
            out += hole->before;
            const std::size_t start = out.size();
            const Precedence binding =
                translateStep(statement, step, hole->isBracketed, leadText, out);
            bindHole(*hole, binding, start, out);
            ++hole;
        }
        ++operand;
    }
}

/// The operands are read first, then written in the order of the holes.
void writeOutOfOrder(Statement& statement, const Form& form, std::string_view leadText,
                     ExpressionText& out) {
    std::array<ExpressionText, Form::mostSteps> operands;
    std::size_t count = 0;
    for (std::size_t number = 0; number < form.stepCount; ++number) {
        const FormStep& step = form.steps[number];
        if (step.operand == FormOperand::none) {
            readToken(statement, step);
        } else {
            translateStep(statement, step, false, leadText, operands[count++]);
        }
    }
    for (std::size_t number = 0; number < form.holeCount; ++number) {
        out += form.holes[number].before;
        out += operands[form.holes[number].operand];
    }
}

}  // namespace

Precedence translateOperand(Statement& statement, const FormStep& step, bool isBracketed,
                            ExpressionText& out) {
    switch (step.operand) {
        case FormOperand::axis: translateSingleAxis(statement, out); break;
        case FormOperand::axes: translateAxisOperands(statement, isBracketed, out); break;
        case FormOperand::value: return translateExpression(statement, out);
        case FormOperand::valueOrNothing:
            return statement.cursor.atEnd() ? Precedence::primary
                                            : translateExpression(statement, out);
        case FormOperand::values: translateValues(statement, out); break;
        case FormOperand::string: translateStringExpression(statement, out); break;
        case FormOperand::path: translateStringOperand(statement, out); break;
        case FormOperand::variable: translateVariableRead(statement, out); break;
        default: translateNamedOperand(statement, step.set, step.presence, out); break;
    }
    return Precedence::primary;
}

Precedence writeForm(Statement& statement, const Form& form, ExpressionText& out,
                     std::string_view leadText) {
    if (form.isInOrder) {
        writeInOrder(statement, form, leadText, out);
    } else {
        writeOutOfOrder(statement, form, leadText, out);
    }
    out += form.rest;
    return form.precedence;
}

}  // namespace torvel
