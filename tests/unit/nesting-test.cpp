// How deep an expression may be nested: 256 open constructs pass, one more fails with one message. Each
// construct that can hold another is tried at 255, 256 and 257.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "src/expr/expressions.h"
#include "src/expr/strings.h"
#include "src/stmt/statement.h"
#include "tests/support/program-text.h"

namespace torvel::test {

namespace {

constexpr const char* tooDeep = "The expression is nested too deeply.";

std::string repeated(const std::string& text, int count) {
    std::string result;
    for (int i = 0; i < count; ++i) {
        result += text;
    }
    return result;
}

struct Outcome {
    bool isConverted = false;
    StatementText text;
    std::vector<std::string> messages;
};

enum class Reading { expression, string, statement };

Outcome convert(const std::string& code, Reading reading, const Limits& limits = {}) {
    ProgramText source(code);
    const AxisNames axes;
    const LexedTokens tokens(lexText(source.program, axes, source.text(), source.position()));
    MessageLog log;
    ConversionContext context{source.program, axes, limits, log, source.position()};

    Outcome outcome;
    if (reading == Reading::statement) {
        BlockEffect effect{};
        outcome.isConverted = convertStatement(context, tokens, outcome.text, effect);
    } else {
        Statement statement{context, TokenCursor(source.program, tokens), outcome.text};
        if (reading == Reading::expression) {
            translateExpression(statement, statement.text);
        } else {
            translateStringExpression(statement, statement.text);
        }
        outcome.isConverted = !statement.isRefused;
    }
    for (const ConversionMessage& message : log) {
        outcome.messages.emplace_back(message.text);
    }
    return outcome;
}

/// A construct that can be put into itself: what stands in front of the inner one and behind it, in
/// Brannic and in Torvel.
struct Construct {
    const char* name;
    Reading reading;
    /// In front of all of them, not repeated.
    const char* lead;
    const char* open;
    const char* inner;
    const char* close;
    const char* torvelLead;
    const char* torvelOpen;
    const char* torvelInner;
    const char* torvelClose;
    /// Constructs that are open beside the repeated ones.
    int others = 0;
};

std::string brannicText(const Construct& construct, int count) {
    return construct.lead + repeated(construct.open, count) + construct.inner +
           repeated(construct.close, count);
}

std::string torvelText(const Construct& construct, int count) {
    return construct.torvelLead + repeated(construct.torvelOpen, count) + construct.torvelInner +
           repeated(construct.torvelClose, count);
}

const std::vector<Construct>& constructs() {
    static const std::vector<Construct> all = {
        {"parentheses", Reading::expression, "", "(", "$x", ")", "", "(", "$x", ")"},
        {"parentheses of a number", Reading::expression, "", "(", "1", ")", "", "", "1", ""},
        {"minus signs", Reading::expression, "", "- ", "$x", "", "", "-", "$x", ""},
        {"plus signs", Reading::expression, "", "+ ", "$x", "", "", "", "$x", ""},
        {"logical nots", Reading::expression, "", "!", "$x", "", "", "!", "$x", ""},
        {"bit complements", Reading::expression, "", "~", "$x", "", "", "~", "$x", ""},
        {"powers", Reading::expression, "", "2 ** ", "$x", "", "", "2 ** ", "$x", ""},
        {"arguments", Reading::expression, "", "ABS(", "$x", ")", "", "Abs(", "$x", ")"},
        {"first arguments", Reading::expression, "", "ATAN2(", "$x", ", 1)", "", "Atan2(", "$x",
         ", 1)"},
        {"last arguments", Reading::expression, "", "ATAN2(1, ", "$x", ")", "", "Atan2(1, ", "$x",
         ")"},
        {"brackets of variables", Reading::expression, "", "$v[", "$x", "]", "", "$v[", "$x", "]"},
        {"brackets of the global array", Reading::expression, "", "$GLOBAL[", "$x", "]", "",
         "$rglobal[", "$x", "]"},
        {"brackets of points", Reading::expression, "", "$BO[", "$x", "]", "",
         "VirtualBinaryOutputGet(", "$x", ")"},
        {"axes by number", Reading::expression, "", "$DI[1].@", "$x", "", "", "DigitalInputGet(@",
         "$x", ", 1)"},
        {"parentheses of strings", Reading::string, "", "(", "\"a\"", ")", "", "(", "\"a\"", ")"},
        {"arguments of string functions", Reading::string, "", "STRUPR(", "\"a\"", ")", "",
         "StringToUpperCase(", "\"a\"", ")"},
        {"parts of strings", Reading::string, "", "STRMID(", "\"a\"", ", 1, 3)", "",
         "StringSubstring(", "\"a\"", ", 1, 2)"},
        {"a size of an array", Reading::statement, "DVAR $n[", "(", "$x", ")", "var $n[", "(", "$x",
         ")", 1},
        {"an index of a target", Reading::statement, "$n[", "(", "$x", ")", "$n[", "(", "$x", ")",
         1},
        {"an index of a string target", Reading::statement, "$STRGLOB[", "(", "$x", ")",
         "$sglobal[", "(", "$x", ")", 1},
    };
    return all;
}

/// What follows the nested part of a statement.
std::string restOf(const Construct& construct) {
    const std::string name = construct.name;
    if (name == "a size of an array") {
        return "]";
    }
    if (name == "an index of a target") {
        return "] = 1";
    }
    if (name == "an index of a string target") {
        return "] = \"a\"";
    }
    return "";
}

TEST(Nesting, PassesUpToTheLimit) {
    for (const Construct& construct : constructs()) {
        for (const int open : {255, 256}) {
            SCOPED_TRACE(std::string(construct.name) + ", " + std::to_string(open) + " open");
            const int count = open - construct.others;
            const Outcome outcome =
                convert(brannicText(construct, count) + restOf(construct), construct.reading);
            EXPECT_TRUE(outcome.isConverted);
            EXPECT_EQ(outcome.text, torvelText(construct, count) + restOf(construct));
            EXPECT_TRUE(outcome.messages.empty());
        }
    }
}

TEST(Nesting, FailsBehindTheLimitWithOneMessage) {
    for (const Construct& construct : constructs()) {
        SCOPED_TRACE(construct.name);
        const Outcome outcome = convert(
            brannicText(construct, 257 - construct.others) + restOf(construct), construct.reading);
        EXPECT_FALSE(outcome.isConverted);
        // An axis by number that fails tells so at each place that it passes.
        ASSERT_FALSE(outcome.messages.empty());
        EXPECT_EQ(outcome.messages.front(), tooDeep);
        if (std::string(construct.name) != "axes by number") {
            EXPECT_EQ(outcome.messages.size(), 1U);
        }
    }
}

TEST(Nesting, CountsWhatIsOpenNotWhatWasOpen) {
    const std::string side = repeated("(", 200) + "$x" + repeated(")", 200);
    const Outcome outcome = convert(side + " + " + side + " * " + side, Reading::expression);
    EXPECT_TRUE(outcome.isConverted);
    EXPECT_EQ(outcome.text, side + " + " + side + " * " + side);
    EXPECT_TRUE(outcome.messages.empty());
}

TEST(Nesting, CountsAllConstructsTogether) {
    const std::string front = repeated("(", 128) + repeated("!", 128);
    const std::string back = repeated(")", 128);
    EXPECT_TRUE(convert(front + "$x" + back, Reading::expression).isConverted);

    const Outcome tooMany = convert(front + "ABS($x)" + back, Reading::expression);
    EXPECT_FALSE(tooMany.isConverted);
    EXPECT_EQ(tooMany.messages, std::vector<std::string>{tooDeep});
}

TEST(Nesting, CountsTheAxisOfAFunction) {
    const auto scaled = [](const char* function, int depth) {
        return repeated("(", depth) + function + "(@$i, $x)" + repeated(")", depth);
    };
    const Outcome most = convert(scaled("UNITSTOCOUNTS", 254), Reading::expression);
    EXPECT_TRUE(most.isConverted);
    EXPECT_EQ(most.text, scaled("UnitsToCounts", 254));

    const Outcome tooMany = convert(scaled("UNITSTOCOUNTS", 255), Reading::expression);
    EXPECT_FALSE(tooMany.isConverted);
    EXPECT_EQ(tooMany.messages, std::vector<std::string>{tooDeep});
}

TEST(Nesting, HoldsForAHostileDepth) {
    for (const Construct& construct : constructs()) {
        SCOPED_TRACE(construct.name);
        const std::string code =
            construct.lead + repeated(construct.open, 100'000) + construct.inner;
        const Outcome outcome = convert(code, construct.reading);
        EXPECT_FALSE(outcome.isConverted);
        ASSERT_FALSE(outcome.messages.empty());
        EXPECT_EQ(outcome.messages.front(), tooDeep);
    }
}

TEST(Nesting, ALongChainIsNotDeep) {
    const Outcome outcome = convert("$x" + repeated(" + $x", 100'000), Reading::expression);
    EXPECT_TRUE(outcome.isConverted);
    EXPECT_EQ(outcome.text, "$x" + repeated(" + $x", 100'000));
}

TEST(Nesting, TheLimitIsAnOption) {
    Limits limits;
    limits.expressionNesting = 2;
    EXPECT_TRUE(convert("(($x))", Reading::expression, limits).isConverted);
    EXPECT_FALSE(convert("((($x)))", Reading::expression, limits).isConverted);
}

}  // namespace

}  // namespace torvel::test
