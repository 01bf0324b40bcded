// The statements of one family, line by line: a program of the lines that belong to it is preprocessed in
// memory and converted twice.

#include "fuzz/brackets.h"
#include "fuzz/memory-program.h"
#include "fuzz/require.h"
#include "fuzz/target.h"
#include "fuzz/words.h"
#include "tests/support/line-by-line.h"
#include "tests/support/text-difference.h"

namespace torvel::fuzz {

namespace {

/// The brackets of a define's value and of a macro's arguments are the program's own.
bool hasOwnText(const Program& program, std::size_t line) {
    const std::span<const Token> tokens = program.list.tokensOf(line);
    return !tokens.empty() &&
           (tokens[0].type == TokenType::CONVERSION_TEXT || tokens[0].type == macroDefinitionToken);
}

}  // namespace

void checkStatements(const Target& target, std::string_view input) {
    std::string text(prelude);
    for (const std::string_view line : test::splitLines(input)) {
        if (isOfTarget(target, line)) {
            text += line;
            text += '\n';
        }
    }
    const Limits limits = lowLimits();
    MemoryProgram memory(text, limits);
    const Program& program = memory.program();
    test::LineByLine conversion(program, memory.axes(), limits);
    while (conversion.step()) {
        require(conversion.nesting() == 0, "an expression is left open");
    }
    requireNone(test::messageFault(conversion));
    requireNone(test::outputFault(conversion));
    for (std::size_t i = 0; i < conversion.lines().size(); ++i) {
        const test::ConvertedLine& line = conversion.lines()[i];
        require(!line.isConverted || hasOwnText(program, i) || hasBalancedBrackets(line.text),
                "unbalanced: " + line.text);
    }
    test::LineByLine again(program, memory.axes(), limits);
    requireNone(test::conversionDifference(conversion, again.finish()));
}

}  // namespace torvel::fuzz
