#pragma once

#include <string>
#include <vector>

#include "src/expr/parser-core.h"

namespace torvel {

/// Whether a token begins an axis: an axis name, a preserved axis define.
constexpr bool isAxis(TokenType type) {
    return type == TokenType::AXIS_NAME || type == TokenType::AXIS_DEFINE;
}

/// How many axes a list may have.
enum class AxisDemand : std::uint8_t { anyNumber, one };

/// Reads axes that stand next to each other: names, preserved axis defines, "@" expressions. The list
/// ends at any other token; it may be empty unless one axis is demanded.
bool translateAxisList(ConversionContext& context, TokenCursor& cursor, AxisDemand demand,
                       std::vector<std::string>& axes);

/// Reads axes, at least one: for statements and terms that Torvel has one of per axis.
bool translateAxes(ConversionContext& context, TokenCursor& cursor, std::vector<std::string>& axes);

/// Reads one axis.
bool translateSingleAxis(ConversionContext& context, TokenCursor& cursor, ExpressionText& out);

/// "@" expression: an axis that is known at run time only.
bool translateAxisExpression(ConversionContext& context, TokenCursor& cursor, ExpressionText& out);

/// The axis behind a ".": a name, a preserved define, an axis number, or "@" expression.
bool translateAxisSelector(ConversionContext& context, TokenCursor& cursor, ExpressionText& out);

/// The name of the axis whose number the current token is, an integer literal. An axis without a name cannot
/// be selected.
bool translateAxisNumber(ConversionContext& context, TokenCursor& cursor, ExpressionText& out);

}  // namespace torvel
