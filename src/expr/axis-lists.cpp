#include "src/expr/axis-lists.h"

#include "src/expr/expressions.h"
#include "src/expr/number-checks.h"
#include "src/expr/number-text.h"

namespace torvel {

namespace {

/// "@" and what `translate` reads: an axis that is known at run time only. If that fails, so does the
/// axis, with a second message.
void translateAxisAtRunTime(Statement& statement,
                            Precedence (*translate)(Statement&, ExpressionText&),
                            ExpressionText& out) {
    const OpenConstruct at(statement);
    if (statement.isRefused) {
        return;
    }
    statement.cursor.advance();
    out += '@';
    translate(statement, out);
    if (statement.isRefused) {
        statement.isRefused = false;
        refuse(statement, Message::ArgumentExpected);
    }
}

}  // namespace

TextList translateAxisList(Statement& statement) {
    TextList axes;
    while (!statement.isRefused) {
        if (isAxis(statement.cursor.type())) {
            axes.add(statement.cursor.text());
            statement.cursor.advance();
        } else if (statement.cursor.is(TokenType::AT)) {
            translateAxisAtRunTime(statement, translateExpression, axes.begin());
        } else if (statement.cursor.is(TokenType::PERCENT)) {
            refuse(statement, Message::AxisMaskUnsupported);
        } else {
            break;
        }
    }
    return axes;
}

TextList translateAxes(Statement& statement) {
    static constexpr TokenType accepted[] = {TokenType::AXIS_NAME, TokenType::AXIS_DEFINE,
                                             TokenType::AT};
    TextList axes = translateAxisList(statement);
    if (axes.empty()) {
        reportUnexpectedToken(statement, accepted);
    }
    return axes;
}

void translateSingleAxis(Statement& statement, ExpressionText& out) {
    TokenCursor& cursor = statement.cursor;
    const TokenType following = cursor.following();
    if (isAxis(cursor.type()) && !isAxis(following) && following != TokenType::AT &&
        following != TokenType::PERCENT) {
        out += cursor.text();
        cursor.advance();
        return;
    }
    const TextList axes = translateAxisList(statement);
    if (axes.size() != 1) {
        refuse(statement, Message::SingleAxisExpected);
        return;
    }
    out += axes[0];
}

void translateAxisNumber(Statement& statement, ExpressionText& out) {
    const std::vector<std::string>& names = statement.context.axes.names();
    const std::optional<std::int32_t> number = parseIntegerText(statement.cursor.text());
    if (!number || static_cast<std::size_t>(*number) >= names.size() ||
        names[static_cast<std::size_t>(*number)].empty()) {
        refuse(statement, Message::AxisIndexInvalid);
        return;
    }
    const Token* const first = statement.cursor.place();
    const std::string_view text = statement.cursor.text();
    statement.cursor.advance();
    checkOctal(statement, text, first);
    out += names[static_cast<std::size_t>(*number)];
}

void translateNumberedAxis(Statement& statement, ExpressionText& out) {
    const Token* const first = statement.cursor.place();
    translateAxisNumber(statement, out);
    if (!statement.context.axes.areOfParameterFile()) {
        noteCheck(statement, Check::AxisNumber, first);
    }
}

void translateAxisSelector(Statement& statement, ExpressionText& out) {
    static constexpr TokenType accepted[] = {TokenType::AXIS_NAME, TokenType::AXIS_DEFINE,
                                             TokenType::INTEGER_LITERAL, TokenType::AT,
                                             TokenType::PERCENT};
    switch (statement.cursor.type()) {
        case TokenType::AXIS_NAME:
        case TokenType::AXIS_DEFINE:
            out += statement.cursor.text();
            statement.cursor.advance();
            break;
        case TokenType::INTEGER_LITERAL: translateNumberedAxis(statement, out); break;
        case TokenType::AT: translateAxisAtRunTime(statement, translateUnary, out); break;
        case TokenType::PERCENT: refuse(statement, Message::AxisMaskUnsupported); break;
        default: reportUnexpectedToken(statement, accepted); break;
    }
}

}  // namespace torvel
