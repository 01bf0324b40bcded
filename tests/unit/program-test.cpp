// What a program tells of its tokens.

#include "src/base/program.h"

#include <gtest/gtest.h>

namespace torvel::test {

TEST(Program, OnlyAPreservedDefineHasAValue) {
    Program program;
    const TextSpan name = program.text.add("COUNT");
    program.defineTexts.append(DefineTexts{name, program.text.add("5")});
    const Token define = makeNumberedToken(TokenType::NUMBER_DEFINE, 0);
    EXPECT_EQ(program.textOf(define), "COUNT");
    EXPECT_EQ(program.valueOf(define), "5");
    const Token word{TokenType::IDENTIFIER, {name}};
    EXPECT_EQ(program.textOf(word), "COUNT");
    EXPECT_EQ(program.valueOf(word), "");
}

}  // namespace torvel::test
