// Calls of built-in functions. Most keep their arguments and are rows of functions.def; the others
// have a routine here, with the Brannic form and the Torvel form above it.

#include "src/expr/functions.h"

#include <vector>

#include "src/expr/axis-lists.h"
#include "src/expr/expressions.h"
#include "src/expr/number-text.h"
#include "src/expr/strings.h"
#include "src/expr/variables.h"

namespace torvel {

namespace {

bool openArguments(ConversionContext& context, TokenCursor& cursor) {
    return expectToken(context, cursor, TokenType::LEFT_PAREN).has_value();
}

bool nextArgument(ConversionContext& context, TokenCursor& cursor) {
    return expectToken(context, cursor, TokenType::COMMA).has_value();
}

bool closeArguments(ConversionContext& context, TokenCursor& cursor) {
    return expectToken(context, cursor, TokenType::RIGHT_PAREN).has_value();
}

/// ( argument , argument ... ) of the kinds in `kinds`; written with the call's own ")".
bool translateArguments(ConversionContext& context, TokenCursor& cursor, std::string_view kinds,
                        ExpressionText& out) {
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        if (i == 0 ? !openArguments(context, cursor) : !nextArgument(context, cursor)) {
            return false;
        }
        out += i == 0 ? "" : ", ";
        if (kinds[i] == 's' ? !translateStringExpression(context, cursor, out)
                            : !translateExpression(context, cursor, out)) {
            return false;
        }
    }
    out += ')';
    return closeArguments(context, cursor);
}

/// LOG ( x , base )
/// Log(x) / Log(base)
bool translateLog(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    out += "Log(";
    if (!openArguments(context, cursor) || !translateExpression(context, cursor, out) ||
        !nextArgument(context, cursor)) {
        return false;
    }
    out += ") / Log(";
    if (!translateExpression(context, cursor, out)) {
        return false;
    }
    out += ')';
    return closeArguments(context, cursor);
}

/// RAND ( x )
/// RandomNextReal() if x is the integer 0, else RandomSeed(x)
bool translateRand(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    ExpressionText seed;
    if (!openArguments(context, cursor) || !translateExpression(context, cursor, seed)) {
        return false;
    }
    out += parseIntegerText(seed) == 0 ? "RandomNextReal()" : "RandomSeed(" + seed + ")";
    return closeArguments(context, cursor);
}

/// TIMER ( n [ , NORMAL | PERFORMANCE ] )
/// TimerRead(n, TimerMode.Standard | TimerMode.Precise)
bool translateTimer(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    out += "TimerRead(";
    if (!openArguments(context, cursor) || !translateExpression(context, cursor, out)) {
        return false;
    }
    bool isPrecise = false;
    if (acceptToken(cursor, TokenType::COMMA)) {
        isPrecise = cursor.is(TokenType::PERFORMANCE);
        if (!expectToken(context, cursor, {TokenType::NORMAL, TokenType::PERFORMANCE})) {
            return false;
        }
    }
    out += isPrecise ? ", TimerMode.Precise)" : ", TimerMode.Standard)";
    return closeArguments(context, cursor);
}

/// INDEXTOMASK ( n )
/// (1 << n)
bool translateIndexToMask(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    out += "(1 << ";
    return translateArguments(context, cursor, "n", out);
}

/// function ( s1 , s2 , flag ): the flag is dropped, and unless it is a constant other than 0 the
/// comparison was not case-sensitive.
bool translateComparison(ConversionContext& context, TokenCursor& cursor, std::string_view call,
                         ExpressionText& out) {
    out += call;
    ExpressionText flag;
    if (!openArguments(context, cursor) || !translateStringExpression(context, cursor, out) ||
        !nextArgument(context, cursor)) {
        return false;
    }
    out += ", ";
    if (!translateStringExpression(context, cursor, out) || !nextArgument(context, cursor) ||
        !translateExpression(context, cursor, flag) || !closeArguments(context, cursor)) {
        return false;
    }
    out += ')';
    if (parseIntegerText(flag).value_or(0) == 0) {
        logConversionMessage(context, Message::ComparisonCaseSensitive);
    }
    return true;
}

bool translateStrcmp(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    return translateComparison(context, cursor, "StringEquals(", out);
}

bool translateStrfind(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    return translateComparison(context, cursor, "StringFindSubstringIndex(", out);
}

/// function ( axis , x )
bool translateScaling(ConversionContext& context, TokenCursor& cursor, std::string_view call,
                      ExpressionText& out) {
    out += call;
    if (!openArguments(context, cursor) || !translateSingleAxis(context, cursor, out) ||
        !nextArgument(context, cursor)) {
        return false;
    }
    out += ", ";
    if (!translateExpression(context, cursor, out)) {
        return false;
    }
    out += ')';
    return closeArguments(context, cursor);
}

bool translateUnitsToCounts(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    return translateScaling(context, cursor, "UnitsToCounts(", out);
}

bool translateCountsToUnits(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    return translateScaling(context, cursor, "CountsToUnits(", out);
}

/// ISDONE ( axes )
/// (StatusGetAxisItem(axis, ...) != 0) for each axis, joined by &&
bool translateIsDone(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    std::vector<std::string> axes;
    if (!openArguments(context, cursor) || !translateAxes(context, cursor, axes)) {
        return false;
    }
    for (std::size_t i = 0; i < axes.size(); ++i) {
        out += i == 0 ? "" : " && ";
        out += "(StatusGetAxisItem(" + axes[i] +
               ", AxisStatusItem.AxisStatus, AxisStatus.WaitDone) != 0)";
    }
    return closeArguments(context, cursor);
}

/// item [ , argument ] )
bool translateStatusItem(ConversionContext& context, TokenCursor& cursor, ItemTable table,
                         ExpressionText& out) {
    ExpressionText item;
    if (!translateExpression(context, cursor, item)) {
        return false;
    }
    const std::optional<std::int32_t> number = parseIntegerText(item);
    if (!number) {
        return logConversionMessage(context, Message::IntegerLiteralExpected);
    }
    if (!translateItem(context, table, *number, out)) {
        return false;
    }
    if (acceptToken(cursor, TokenType::COMMA)) {
        out += ", ";
        if (!translateExpression(context, cursor, out)) {
            return false;
        }
    }
    out += ')';
    return closeArguments(context, cursor);
}

/// The axis whose status is read: an axis number, a string variable that names it, or an axis.
bool translateStatusAxis(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    switch (cursor.type()) {
        case TokenType::INTEGER_LITERAL: return translateAxisNumber(context, cursor, out);
        case TokenType::STRGLOB_VARIABLE:
        case TokenType::STRTASK_VARIABLE:
        case TokenType::GLOBAL_STRING_DEFINE:
            out += '@';
            return translateStringExpression(context, cursor, out);
        default: return translateSingleAxis(context, cursor, out);
    }
}

/// ( axis , item [ , argument ] )
bool writeAxisStatus(ConversionContext& context, TokenCursor& cursor, std::string_view call,
                     ExpressionText& out) {
    out += call;
    if (!openArguments(context, cursor) || !translateStatusAxis(context, cursor, out) ||
        !nextArgument(context, cursor)) {
        return false;
    }
    out += ", ";
    return translateStatusItem(context, cursor, ItemTable::axisStatus, out);
}

/// AXISSTATUS ( axis , item [ , argument ] )
/// StatusGetAxisItem(axis, AxisStatusItem.Item, argument)
bool translateAxisStatus(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    return writeAxisStatus(context, cursor, "StatusGetAxisItem(", out);
}

/// AXISSTATUSFAST likewise
/// StatusGetAxisItemFast(axis, AxisStatusItem.Item, argument), at other rates
bool translateAxisStatusFast(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    if (!writeAxisStatus(context, cursor, "StatusGetAxisItemFast(", out)) {
        return false;
    }
    logConversionMessage(context, Message::AxisItemRatesDiffer);
    return true;
}

/// ( task , item [ , argument ] )
bool writeTaskStatus(ConversionContext& context, TokenCursor& cursor, std::string_view call,
                     ExpressionText& out) {
    out += call;
    if (!openArguments(context, cursor) || !translateExpression(context, cursor, out) ||
        !nextArgument(context, cursor)) {
        return false;
    }
    out += ", ";
    return translateStatusItem(context, cursor, ItemTable::taskStatus, out);
}

/// TASKSTATUS ( task , item [ , argument ] )
/// StatusGetTaskItem(task, TaskStatusItem.Item, argument)
bool translateTaskStatus(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    return writeTaskStatus(context, cursor, "StatusGetTaskItem(", out);
}

/// TASKSTATUSFAST likewise
/// StatusGetTaskItemFast(task, TaskStatusItem.Item, argument), at other rates
bool translateTaskStatusFast(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    if (!writeTaskStatus(context, cursor, "StatusGetTaskItemFast(", out)) {
        return false;
    }
    logConversionMessage(context, Message::TaskItemRatesDiffer);
    return true;
}

/// SYSTEMSTATUS ( item [ , argument ] )
/// StatusGetSystemItem(SystemStatusItem.Item, argument)
bool translateSystemStatus(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    out += "StatusGetSystemItem(";
    return openArguments(context, cursor) &&
           translateStatusItem(context, cursor, ItemTable::systemStatus, out);
}

struct Function {
    TokenType keyword;
    std::string_view call;
    std::string_view arguments;
    bool (*translate)(ConversionContext&, TokenCursor&, ExpressionText&);
    Message refusal;
};

constexpr Function functions[] = {
#define FUNCTION(keyword, call, arguments) {TokenType::keyword, call, arguments, nullptr, {}},
#define SPECIAL(keyword, translate) {TokenType::keyword, {}, {}, translate, {}},
#define REFUSED(keyword, message) {TokenType::keyword, {}, {}, nullptr, Message::message},
#include "src/expr/functions.def"
};

const Function* findFunction(TokenType keyword) {
    for (const Function& function : functions) {
        if (function.keyword == keyword) {
            return &function;
        }
    }
    return nullptr;
}

}  // namespace

bool translateFunction(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    const Function* function = findFunction(cursor.type());
    if (function == nullptr) {
        return reportUnexpectedToken(context, cursor);
    }
    if (function->translate == nullptr && function->call.empty()) {
        return logConversionMessage(context, function->refusal);
    }
    const OpenConstruct arguments(context);
    if (!arguments) {
        return false;
    }
    cursor.advance();
    if (function->translate != nullptr) {
        return function->translate(context, cursor, out);
    }
    out += function->call;
    return translateArguments(context, cursor, function->arguments, out);
}

}  // namespace torvel
