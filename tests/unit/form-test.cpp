// Forms of rows: what a pattern reads, where its operands' tokens stand, and how operands bind in the text.

#include "src/expr/form.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/program-text.h"

namespace torvel::test {

namespace {

struct Written {
    ExpressionText text;
    std::vector<std::string> messages;
    /// The sources of the operands' tokens.
    std::vector<std::string> operands;
};

/// What a form makes of `code`; "LEAD" is the text of its lead.
Written write(const Form& form, const std::string& code) {
    ProgramText source(code);
    const LexedTokens tokens(
        lexText(source.program, AxisNames(), source.text(), source.position()));
    const AxisNames axes;
    const Limits limits;
    MessageLog log;
    ConversionContext context{source.program, axes, limits, log, source.position()};
    Written written;
    std::vector<std::span<const Token>> operandTokens;
    Statement statement{context, TokenCursor(source.program, tokens), written.text};
    statement.operandTokens = &operandTokens;
    writeForm(statement, form, written.text, "LEAD");
    for (const ConversionMessage& message : log) {
        written.messages.emplace_back(message.text);
    }
    for (const std::span<const Token> operand : operandTokens) {
        std::string& text = written.operands.emplace_back();
        for (const Token& token : operand) {
            text += text.empty() ? "" : " ";
            text += source.program.textOf(token);
        }
    }
    return written;
}

using Texts = std::vector<std::string>;

}  // namespace

TEST(Form, TellsWhereItsOperandsStand) {
    static constexpr Form form =
        makeForm("axis", "axes [,] value , values", "Call({}, [{}], {}, [{}])");
    const Written written = write(form, "X Y , $a + 1 , 2 , $b [ 3 ]");
    EXPECT_EQ(written.text, "Call(LEAD, [X, Y], $a + 1, [2, $b[3]])");
    EXPECT_EQ(written.operands, (Texts{"X Y", "$a + 1", "2 , $b [ 3 ]"}));
}

TEST(Form, WritesOperandsInTheOrderOfItsHoles) {
    static constexpr Form form = makeForm("", "axis memoryType [,] value", "Read{2}({1}, {3})");
    const Written written = write(form, "X LONG 5");
    EXPECT_EQ(written.text, "ReadInt32(X, 5)");
    EXPECT_EQ(written.operands, (Texts{"X", "LONG", "5"}));
}

TEST(Form, MayDropItsLead) {
    static constexpr Form form = makeForm("axis", "value", "Call(/* $axis */, {2})");
    EXPECT_EQ(write(form, "7").text, "Call(/* $axis */, 7)");
}

TEST(Form, PutsOperandsIntoParenthesesBesideOperatorsOnly) {
    static constexpr Form form = makeForm("", "value , value", "{} / {}");
    EXPECT_EQ(form.precedence, Precedence::multiplicative);
    EXPECT_EQ(write(form, "$a , $b").text, "$a / $b");
    EXPECT_EQ(write(form, "$a * 2 , $b ** 2").text, "$a * 2 / $b ** 2");
    EXPECT_EQ(write(form, "$a + 2 , $b * 2").text, "($a + 2) / ($b * 2)");
    static constexpr Form call = makeForm("", "value , value", "Call({}, {})");
    EXPECT_EQ(call.precedence, Precedence::primary);
    EXPECT_EQ(write(call, "$a + 2 , $b * 2").text, "Call($a + 2, $b * 2)");
}

TEST(Form, ReadsWhatMayBeLeftOut) {
    static constexpr Form word = makeForm("", "[gearingFilter] [value]", "{}({})");
    EXPECT_EQ(write(word, "").text, "None()");
    EXPECT_EQ(write(word, "FILTERED").text, "Filtered()");
    EXPECT_EQ(write(word, "FILTERED 3").text, "Filtered(3)");
    static constexpr Form mode = makeForm("", "( value [, timerMode] )", "Read({}, {})");
    EXPECT_EQ(write(mode, "( 1 )").text, "Read(1, Standard)");
    EXPECT_EQ(write(mode, "( 1 , PERFORMANCE )").text, "Read(1, Precise)");
    EXPECT_EQ(write(mode, "( 1 , 2 )").messages,
              (Texts{"Unexpected integer literal seen. Expected a token of type NORMAL keyword or "
                     "PERFORMANCE keyword."}));
}

TEST(Form, LogsOneMessageAndReadsNoFurther) {
    static constexpr Form form = makeForm("", "axis , value GET value", "Call({}, {}, {})");
    EXPECT_EQ(write(form, "X 1").messages,
              (Texts{"Unexpected integer literal seen. Expected a token of type ','."}));
    EXPECT_EQ(write(form, "X , 1 2").messages,
              (Texts{"Unexpected integer literal seen. Expected a token of type GET keyword."}));
}

}  // namespace torvel::test
