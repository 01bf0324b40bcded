// Programs with very much of one thing: of lines, of messages, of names, of text in one line, of what
// can stand in itself. Each has one size that the sanitizers can bear, and one for the plain program.

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "tests/limits/conversions.h"
#include "tests/limits/run-program.h"
#include "tests/support/temporary-directory.h"

namespace torvel::test {

namespace {

using Text = std::function<std::string(std::size_t)>;

/// A program that grows with a number, and what it is converted to.
struct Growing {
    const char* name;
    std::size_t count;
    /// For the plain program.
    std::size_t large;
    Text program;
    Text output;
    Text log;
};

void PrintTo(const Growing& growing, std::ostream* stream) {
    *stream << growing.name;
}

void expectSame(const char* what, const std::string& expected, std::string_view actual) {
    const std::string difference = firstDifference(expected, actual);
    EXPECT_TRUE(difference.empty()) << what << ' ' << difference;
}

Text nothing = [](std::size_t) { return std::string(); };

/// A message of line 1.
Text message(const std::string& text) {
    return [text](std::size_t) { return "main.pgm:1: " + text + "\n\n"; };
}

constexpr std::string_view marker = "#error_unconvertible ";
constexpr std::string_view markerOfLine1 = "#error_unconvertible (main.pgm:1): ";

Text oneLine(const std::string& lead, const std::string& repeatedPart, const std::string& tail) {
    return [=](std::size_t n) { return lead + repeated(repeatedPart, n) + tail; };
}

/// `text` as it stands, as the only line of the output.
Text asItStands(const Text& text) {
    return [text](std::size_t n) { return text(n) + '\n'; };
}

/// `text` behind a marker, as the only line of the output.
Text refused(const Text& text) {
    return [text](std::size_t n) { return std::string(markerOfLine1) + text(n) + '\n'; };
}

/// A line that is converted to itself.
Growing kept(const char* name, std::size_t count, std::size_t large, const Text& line) {
    return {name, count, large, line, asItStands(line), nothing};
}

/// A line that ends in one message.
Growing failing(const char* name, std::size_t count, std::size_t large, const Text& line,
                const std::string& text) {
    return {name, count, large, line, refused(line), message(text)};
}

std::vector<Growing> manyLines() {
    using S = const std::string&;
    return {
        {"EmptyLines", 300'000, 5'000'000, [](std::size_t n) { return repeated("\n", n); },
         [](std::size_t n) { return repeated("\n", n + 1); }, nothing},
        {"Labels", 50'000, 1'000'000,
         [](std::size_t n) { return forEach(n, [](S i) { return "spot" + i + ": $a = 1\n"; }); },
         [](std::size_t n) {
             return forEach(n, [](S i) { return "spot" + i + ":\n\n$a = 1\n"; }) + '\n';
         },
         nothing},
        {"Messages", 10'000, 100'000, [](std::size_t n) { return repeated("PROBE X\n", n); },
         [](std::size_t n) {
             return forEach(n,
                            [](S i) {
                                return "#error_unconvertible (main.pgm:" +
                                       std::to_string(std::stoul(i) + 1) + "): PROBE X\n";
                            }) +
                    '\n';
         },
         [](std::size_t n) {
             return forEach(n, [](S i) {
                 return "main.pgm:" + std::to_string(std::stoul(i) + 1) +
                        ": PROBE is no longer supported.\n\n";
             });
         }},
        {"LinesOfABlockComment", 300'000, 5'000'000,
         [](std::size_t n) { return "/*" + repeated("x\n", n) + "*/ $a = 1"; },
         [](std::size_t) { return std::string("$a = 1\n"); }, nothing},
        {"BlockCommentsOfALine", 100'000, 5'000'000, oneLine("", "/**/", "$a = 1"),
         [](std::size_t) { return std::string("$a = 1\n"); }, nothing},
        {"LinesOfADefine", 20'000, 400'000,
         [](std::size_t n) { return "#define TEXT " + repeated("x \\\n", n) + "y"; },
         [](std::size_t n) {
             const std::string lead(marker);
             return lead + "#define TEXT " + repeated("x \\\n" + lead, n) + "y\n";
         },
         nothing},
        {"LinesOfAMacro", 5'000, 200'000,
         [](std::size_t n) { return "#macro M($v) " + repeated("$v = 1 \\\n", n) + "$v = 2"; },
         [](std::size_t n) { return "#macro M($v) " + repeated("$v = 1 \\\n", n) + "$v = 2\n"; },
         nothing},
    };
}

std::vector<Growing> manyNames() {
    using S = const std::string&;
    const auto same = [](const Text& text) { return asItStands(text); };
    const Text conditionals = [](std::size_t n) {
        return forEach(n, [](S i) { return "#ifdef A" + i + "\n"; }) + "$a = 1\n" +
               repeated("#endif\n", n);
    };
    const Text conditionalsWithNames = [](std::size_t n) {
        return forEach(n,
                       [](S i) { return "#ifndef A" + i + "\n#define B" + i + " " + i + "\n"; }) +
               repeated("#endif\n", n) + "$a = ";
    };
    const Text undefined = [](std::size_t n) {
        return repeated("#define A 5\n$a = 5\n#undef A\n", n);
    };
    const Text chain = [](std::size_t n) {
        std::string text = "#define A0 $x + $y\n";
        for (std::size_t i = 1; i < n; ++i) {
            text += "#define A" + std::to_string(i) + " A" + std::to_string(i - 1) + '\n';
        }
        return text;
    };
    return {
        {"ConditionalsInEachOther", 20'000, 1'000'000, conditionals, same(conditionals), nothing},
        {"NamesOfConditionalsInEachOther", 5'000, 100'000,
         [=](std::size_t n) { return conditionalsWithNames(n) + "B" + std::to_string(n - 1); },
         [=](std::size_t n) { return conditionalsWithNames(n) + std::to_string(n - 1) + '\n'; },
         nothing},
        {"BranchesOfAConditional", 20'000, 500'000,
         [](std::size_t n) {
             return "#ifdef A\n" + forEach(n, [](S i) { return "#elseif A" + i + "\n"; }) +
                    "#endif";
         },
         [](std::size_t n) {
             return "#ifdef A\n" + forEach(n, [](S i) { return "#elif A" + i + "\n"; }) +
                    "#endif\n";
         },
         nothing},
        {"DefinesOfOneName", 5'000, 200'000,
         [](std::size_t n) { return repeated("#define A 5\n$a = A\n#undef A\n", n); },
         same(undefined), nothing},
        {"DefinesThatUseEachOther", 5'000, 100'000,
         [=](std::size_t n) { return chain(n) + "$z = A" + std::to_string(n - 1); },
         [=](std::size_t n) {
             std::string text;
             for (std::size_t i = 0; i < n; ++i) {
                 text += std::string(marker) + "#define A" + std::to_string(i) +
                         (i == 0 ? " $x + $y\n" : " A" + std::to_string(i - 1) + '\n');
             }
             return text + "$z = $x + $y\n";
         },
         nothing},
        {"ArgumentsOfAMacro", 5'000, 200'000,
         [](std::size_t n) {
             return "#macro M($v" + forEach(n, [](S i) { return ", $a" + i; }) + ") $v = 1";
         },
         [](std::size_t n) {
             return "#macro M($v" + forEach(n, [](S i) { return ", $a" + i; }) + ") $v = 1\n";
         },
         nothing},
    };
}

/// Blocks are indented by their depth, so the output grows with its square.
std::vector<Growing> manyBlocks() {
    const auto indented = [](std::size_t n) {
        std::string text;
        for (std::size_t i = 0; i < n; ++i) {
            text += std::string(i, '\t') + "if $x == 1\n";
        }
        for (std::size_t i = n; i > 0; --i) {
            text += std::string(i - 1, '\t') + "end\n";
        }
        return text + '\n';
    };
    return {
        {"BlocksInEachOther", 500, 3'000,
         [](std::size_t n) { return repeated("IF $x == 1 THEN\n", n) + repeated("ENDIF\n", n); },
         indented, nothing}};
}

/// Lines of one piece. The plain program gets the first three in 100 MB.
std::vector<Growing> longLines() {
    const std::size_t million = 1'000'000;
    const Text names = oneLine("", "N", "");
    return {
        kept("LongSum", million, 25 * million, oneLine("$y = $x", " + $x", "")),
        kept("LongComment", 20 * million, 100 * million, oneLine("// ", "x", "")),
        {"LongString", 5 * million, 100 * million, oneLine("$STRGLOB[0] = \"", "x", "\""),
         oneLine("$sglobal[0] = \"", "x", "\"\n"), nothing},
        failing("LongWord", million, 20 * million, names,
                "Unexpected end of line seen. Expected a token of type ':'."),
        failing("LongParentheses", million, 20 * million, oneLine("$y = ", "(", ""),
                "The expression is nested too deeply."),
        failing("LongSigns", million, 20 * million, oneLine("$y = ", "- ", "$x"),
                "The expression is nested too deeply."),
        failing("LongBrackets", million, 20 * million, oneLine("$y = $x", "[", ""),
                "Unexpected '[' seen."),
        failing("LongNameOfNoStatement", million, 20 * million, oneLine("#", "x", ""),
                "Unexpected end of line seen. Expected a token of type ':'."),
        {"LongAxisList", million / 2, 5 * million, oneLine("HOME X", " Y", ""),
         oneLine("Home([X", ", Y", "])\n"), nothing},
        {"LongGcodes", million / 2, 10 * million, oneLine("G1", "G1", ""),
         oneLine("G1", " G1", "\n"), nothing},
        {"LongStringSum", million / 4, 3 * million, oneLine("$STRGLOB[0] = \"a\"", " + \"a\"", ""),
         oneLine("$sglobal[0] = \"a\"", " + \"a\"", "\n"), nothing},
        {"LongDeclaration", million / 4, 4 * million, oneLine("DVAR $a", ", $a", ""),
         [](std::size_t n) { return repeated("var $a\n", n + 1); }, nothing},
        {"LongNameOfADefine", million, 20 * million,
         [=](std::size_t n) { return "#define " + names(n) + " 5\n$y = " + names(n); },
         [=](std::size_t n) { return "#define " + names(n) + " 5\n$y = 5\n"; }, nothing},
        {"LongNameOfAConditional", million, 20 * million,
         [=](std::size_t n) { return "#ifdef " + names(n) + "\n#endif"; },
         [=](std::size_t n) { return "#ifdef " + names(n) + "\n#endif\n"; }, nothing},
    };
}

std::vector<Growing> allGrowing() {
    std::vector<Growing> all;
    for (const auto& some : {manyLines(), manyNames(), manyBlocks(), longLines()}) {
        all.insert(all.end(), some.begin(), some.end());
    }
    return all;
}

class LargePrograms : public testing::TestWithParam<Growing> {};

TEST_P(LargePrograms, InThisProcess) {
    const Growing& growing = GetParam();
    const Outcome outcome = convertText(growing.program(growing.count));
    ASSERT_EQ(outcome.status, 0) << outcome.standardError;
    expectSame("output", growing.output(growing.count), outcome.output.value_or(""));
    expectSame("log", growing.log(growing.count), outcome.log.value_or(""));
}

TEST_P(LargePrograms, WithThePlainProgram) {
    const Growing& growing = GetParam();
    const TemporaryDirectory directory;
    const std::string program = growing.program(growing.large);
    writeFile(directory.path() / "main.pgm", program);
    const ProgramEnd end = runProgram({.arguments = {"main.pgm"},
                                       .program = TORVEL_PLAIN_PROGRAM,
                                       .directory = directory.path()});
    ASSERT_EQ(endOf(end), "status 0") << end.standardError;
    const std::filesystem::path& folder = directory.path();
    expectSame("output", growing.output(growing.large), readFile(folder / "main.torvel"));
    expectSame("log", growing.log(growing.large), readFile(folder / "main.log"));
    expectSame("source", program, readFile(folder / "main.pgm"));
}

INSTANTIATE_TEST_SUITE_P(Growing, LargePrograms, testing::ValuesIn(allGrowing()),
                         [](const auto& tested) { return tested.param.name; });

}  // namespace

}  // namespace torvel::test
