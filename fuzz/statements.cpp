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

void checkStatements(const Target& target, std::string_view input) {
    std::string text(prelude);
    bool goesOn = false;  // a directive's body, which is kept with it
    for (const std::string_view line : test::splitLines(input)) {
        if (goesOn || isOfTarget(target, line)) {
            text += line;
            text += '\n';
            goesOn = line.ends_with('\\');
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
        require(!line.isConverted ||
                    bringsOwnBrackets(
                        program, test::lexedTokens(program, program.lines, i, memory.axes())) ||
                    hasBalancedBrackets(line.text),
                "unbalanced: " + line.text);
    }
    test::LineByLine again(program, memory.axes(), limits);
    requireNone(test::conversionDifference(conversion, again.finish()));
}

}  // namespace torvel::fuzz
