#include "src/expr/axis-lists.h"

#include "src/expr/expressions.h"
#include "src/expr/number-text.h"

namespace torvel {

bool translateAxisExpression(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    const OpenConstruct at(context);
    if (!at) {
        return false;
    }
    cursor.advance();
    out += '@';
    return translateExpression(context, cursor, out) ||
           logConversionMessage(context, Message::ArgumentExpected);
}

bool translateAxisList(ConversionContext& context, TokenCursor& cursor, AxisDemand demand,
                       std::vector<std::string>& axes) {
    while (true) {
        if (isAxis(cursor.type())) {
            axes.emplace_back(cursor.text());
            cursor.advance();
        } else if (cursor.is(TokenType::AT)) {
            if (!translateAxisExpression(context, cursor, axes.emplace_back())) {
                return false;
            }
        } else if (cursor.is(TokenType::PERCENT)) {
            return logConversionMessage(context, Message::AxisMaskUnsupported);
        } else {
            break;
        }
    }
    if (demand == AxisDemand::one && axes.size() != 1) {
        return logConversionMessage(context, Message::SingleAxisExpected);
    }
    return true;
}

bool translateAxes(ConversionContext& context, TokenCursor& cursor,
                   std::vector<std::string>& axes) {
    if (!translateAxisList(context, cursor, AxisDemand::anyNumber, axes)) {
        return false;
    }
    static constexpr TokenType accepted[] = {TokenType::AXIS_NAME, TokenType::AXIS_DEFINE,
                                             TokenType::AT};
    return !axes.empty() || reportUnexpectedToken(context, cursor, accepted);
}

bool translateSingleAxis(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    std::vector<std::string> axes;
    if (!translateAxisList(context, cursor, AxisDemand::one, axes)) {
        return false;
    }
    out += axes[0];
    return true;
}

bool translateAxisNumber(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    const std::vector<std::string>& names = context.axes.names();
    const std::optional<std::int32_t> number = parseIntegerText(cursor.text());
    if (!number || static_cast<std::size_t>(*number) >= names.size() ||
        names[static_cast<std::size_t>(*number)].empty()) {
        return logConversionMessage(context, Message::AxisIndexInvalid);
    }
    cursor.advance();
    out += names[static_cast<std::size_t>(*number)];
    return true;
}

bool translateAxisSelector(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    switch (cursor.type()) {
        case TokenType::AXIS_NAME:
        case TokenType::AXIS_DEFINE:
            out += cursor.text();
            cursor.advance();
            return true;
        case TokenType::INTEGER_LITERAL: return translateAxisNumber(context, cursor, out);
        case TokenType::AT: return translateAxisExpression(context, cursor, out);
        case TokenType::PERCENT: return logConversionMessage(context, Message::AxisMaskUnsupported);
        default: {
            static constexpr TokenType accepted[] = {TokenType::AXIS_NAME, TokenType::AXIS_DEFINE,
                                                     TokenType::INTEGER_LITERAL, TokenType::AT,
                                                     TokenType::PERCENT};
            return reportUnexpectedToken(context, cursor, accepted);
        }
    }
}

}  // namespace torvel
