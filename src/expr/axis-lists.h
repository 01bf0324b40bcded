#pragma once

#include "src/base/text-list.h"
#include "src/expr/parser-core.h"

namespace torvel {

/// Whether a token begins an axis: an axis name, a preserved axis define.
constexpr bool isAxis(TokenType type) {
    return type == TokenType::AXIS_NAME || type == TokenType::AXIS_DEFINE;
}

/// Reads axes that stand next to each other: names, preserved axis defines, "@" expressions. The list
/// ends at any other token; it may be empty.
TextList translateAxisList(Statement& statement);

/// Reads axes, at least one: for statements and terms that Torvel has one of per axis.
TextList translateAxes(Statement& statement);

/// Reads axes, of which there must be exactly one.
void translateSingleAxis(Statement& statement, ExpressionText& out);

/// The axis behind a ".": a name, a preserved define, an axis number, or "@" with one operand.
void translateAxisSelector(Statement& statement, ExpressionText& out);

/// The name of the axis whose number the current token is, an integer literal. An axis without a name cannot
/// be selected.
void translateAxisNumber(Statement& statement, ExpressionText& out);

/// The same where it is an axis for certain.
void translateNumberedAxis(Statement& statement, ExpressionText& out);

}  // namespace torvel
