#include "bench/hard-corpus.h"

#include <string>

namespace torvel::bench {

namespace {

std::string repeated(std::string_view unit, std::size_t bytes) {
    std::string text;
    text.reserve(bytes + unit.size());
    while (text.size() < bytes) {
        text += unit;
    }
    return text;
}

Corpus program(std::string text) {
    return {{"main.pgm", std::move(text)}};
}

/// One line: `front`, then `unit` as often as `size` bytes need, then `back`.
template <const char* front, const char* unit, const char* back>
Corpus oneLine(std::size_t size) {
    return program(front + repeated(unit, size) + back + "\n");
}

/// A line as often as `size` bytes need.
template <const char* line>
Corpus manyLines(std::size_t size) {
    return program(repeated(line, size));
}

/// `count` lines, each `front`, its number, `back`.
std::string numbered(std::string_view front, std::size_t count, std::string_view back) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text += front;
        text += std::to_string(i);
        text += back;
    }
    return text;
}

Corpus defines(std::size_t count) {
    return program(numbered("#define station_", count, " 5\n"));
}

Corpus definesAndUses(std::size_t count) {
    return program(numbered("#define station_", count, " 5\n") +
                   numbered("$x = station_", count, " + 1\n"));
}

/// Each name stands for the name before it.
Corpus chainOfDefines(std::size_t count) {
    std::string text = "#define station_0 $x+1\n";
    for (std::size_t i = 1; i < count; ++i) {
        text += "#define station_" + std::to_string(i) + " station_" + std::to_string(i - 1) + "\n";
    }
    return program(std::move(text));
}

Corpus redefinition(std::size_t count) {
    return program(numbered("#define station ", count, "\n"));
}

Corpus undefinition(std::size_t count) {
    return program(numbered("#define station_", count, " 5\n") +
                   numbered("#undef station_", count, "\n"));
}

Corpus macros(std::size_t count) {
    return program(numbered("#macro Step_", count, "($a) $x = $a\n") +
                   numbered("Step_", count, "(1)\n"));
}

Corpus macroArguments(std::size_t count) {
    std::string text = "#macro Step($a";
    text += numbered(", $a", count, "");
    return program(std::move(text) + ") $x = $a\nStep(1" + numbered(", ", count, "") + ")\n");
}

Corpus macroBody(std::size_t size) {
    return program("#macro Step($a) $x = $a" + repeated(" \\\n$x = $a", size) + "\n");
}

/// Names of every length, the longest too long for the table of lengths, and words that no name is in.
Corpus longNames(std::size_t size) {
    std::string text;
    for (std::size_t length = 1; text.size() < size / 2; ++length) {
        text += "#define " + repeated("A", length) + "B 1\n";
    }
    return program(text + repeated("$x = A + $y\n", size / 2));
}

/// The same, and one word that is made of what the names are made of.
Corpus longNamesInOneWord(std::size_t size) {
    std::string text;
    for (std::size_t length = 1; text.size() < size / 2; ++length) {
        text += "#define " + repeated("A+", length) + "B 1\n";
    }
    return program(text + "$x = " + repeated("A+", size / 2) + "1\n");
}

Corpus includes(std::size_t count) {
    return {{"main.pgm", repeated("#include \"part.pgm\"\n", 20 * count)},
            {"part.pgm", "$x = $x + 1\n"}};
}

/// `count` messages in a file that thirty others include, one the next.
Corpus messagesInsideIncludes(std::size_t count) {
    constexpr unsigned depth = 31;
    Corpus files;
    const auto nameOf = [](unsigned number) {
        return number == 1 ? std::string("main.pgm") : "part" + std::to_string(number) + ".pgm";
    };
    for (unsigned number = 1; number < depth; ++number) {
        files.push_back({nameOf(number), "#include \"" + nameOf(number + 1) + "\"\n"});
    }
    files.push_back({nameOf(depth), repeated("GOTO\n", 5 * count)});
    return files;
}

/// `levels` blocks, one inside the other.
template <const char* open, const char* close>
Corpus nestedBlocks(std::size_t levels) {
    std::string text;
    for (std::size_t i = 0; i < levels; ++i) {
        text += open;
    }
    text += "$x = 1\n";
    for (std::size_t i = 0; i < levels; ++i) {
        text += close;
    }
    return program(std::move(text));
}

/// As many defines as conditionals, inside the innermost.
Corpus definesInsideConditionals(std::size_t levels) {
    return program(repeated("#ifndef NOTHING\n", 16 * levels) +
                   numbered("#define station_", levels, " 5\n") +
                   repeated("#else\n#endif\n", 13 * levels));
}

/// A define at each level, of a name that every level defines.
Corpus defineAtEachLevel(std::size_t levels) {
    return program(repeated("#ifndef NOTHING\n#define station 5\n", 34 * levels) +
                   repeated("#endif\n", 7 * levels));
}

/// Lines that are nested as deep as `depth`.
template <unsigned depth>
Corpus nestedExpressions(std::size_t size) {
    return program(
        repeated("$x = " + repeated("(", depth) + "$y" + repeated(")", depth) + "\n", size));
}

Corpus labels(std::size_t count) {
    return program(numbered("label_", count, ": $x = 1\n"));
}

Corpus variables(std::size_t count) {
    return program(numbered("$station_", count, " = 1\n"));
}

// Parts of lines; templates take them by address.
constexpr char nothing[] = "";
constexpr char assignment[] = "$x = ";
constexpr char stringAssignment[] = "$STRGLOB[1] = ";
constexpr char openedString[] = "$STRGLOB[1] = \"";
constexpr char quote[] = "\"";
constexpr char one[] = "1";
constexpr char letter[] = "a";
constexpr char digit[] = "7";
constexpr char blank[] = " ";
constexpr char minus[] = "-";
constexpr char plusMinus[] = "+-";
constexpr char comma[] = ",";
constexpr char bracket[] = "(";
constexpr char dollar[] = "$";
constexpr char highByte[] = "\xe4";
constexpr char commentMarker[] = "; ";
constexpr char openedComment[] = "/*";
constexpr char closedComment[] = "*/";
constexpr char commentWord[] = "word ";
constexpr char commentLine[] = "word \n";
constexpr char shortComment[] = "/**/+";
constexpr char sumOfNumbers[] = "1+";
constexpr char sumOfVariables[] = "$a+";
constexpr char power[] = "1**";
constexpr char sumOfFunctions[] = "SIN($a)+";
constexpr char sumOfStrings[] = "\"a\" + ";
constexpr char lastString[] = "\"a\"";
constexpr char home[] = "HOME ";
constexpr char axes[] = "X Y ";
constexpr char axis[] = "X";
constexpr char pvt[] = "PVT ";
constexpr char pvtWords[] = "X 1, 1 ";
constexpr char pvtEnd[] = "TIME 1";
constexpr char ramp[] = "RAMP RATE ";
constexpr char axisPoints[] = "X 1 ";
constexpr char gcode[] = "G1 ";
constexpr char declaration[] = "DVAR $a";
constexpr char declared[] = ", $a";
constexpr char emptyLine[] = "\n";
constexpr char shortLine[] = "$x=1\n";
constexpr char refusedLine[] = "GOTO\n";
constexpr char predefinedLine[] = "$x = AXISSTATUS(X, DATAITEM_PositionFeedback)\n";
constexpr char openIf[] = "IF $a\n";
constexpr char closeIf[] = "ENDIF\n";
constexpr char openWhile[] = "WHILE $a\n";
constexpr char closeWhile[] = "ENDWHILE\n";
constexpr char openConditional[] = "#ifndef NOTHING\n";
constexpr char elseIf[] = "#elseif NOTHING\n";
constexpr char closeConditional[] = "#endif\n";
constexpr char stringLine[] = "$STRGLOB[1] = \"a\" \"b\"\n";

constexpr std::size_t megabytes = 1'000'000;

}  // namespace

const std::vector<HardProgram>& hardPrograms() {
    static const std::vector<HardProgram> programs = {
        {"line: one word", "bytes", 10 * megabytes, oneLine<nothing, letter, nothing>},
        {"line: one number", "bytes", 10 * megabytes, oneLine<assignment, digit, nothing>},
        {"line: one string", "bytes", 10 * megabytes, oneLine<openedString, letter, quote>},
        {"line: one comment", "bytes", 10 * megabytes,
         oneLine<commentMarker, commentWord, nothing>},
        {"line: one block comment", "bytes", 10 * megabytes,
         oneLine<openedComment, commentWord, closedComment>},
        {"line: block comments", "bytes", 10 * megabytes, oneLine<assignment, shortComment, one>},
        {"line: blanks", "bytes", 10 * megabytes, oneLine<assignment, blank, one>},
        {"line: minus signs", "bytes", 5 * megabytes, oneLine<assignment, minus, one>},
        {"line: operators", "bytes", 5 * megabytes, oneLine<assignment, plusMinus, one>},
        {"line: commas", "bytes", 5 * megabytes, oneLine<assignment, comma, one>},
        {"line: parentheses", "bytes", 5 * megabytes, oneLine<assignment, bracket, one>},
        {"line: dollar signs", "bytes", 5 * megabytes, oneLine<assignment, dollar, one>},
        {"line: bytes above 127 in a string", "bytes", 10 * megabytes,
         oneLine<openedString, highByte, quote>},
        {"line: sum of numbers", "bytes", 5 * megabytes, oneLine<assignment, sumOfNumbers, one>},
        {"line: sum of variables", "bytes", 10 * megabytes,
         oneLine<assignment, sumOfVariables, one>},
        {"line: powers", "bytes", 5 * megabytes, oneLine<assignment, power, one>},
        {"line: sum of functions", "bytes", 10 * megabytes,
         oneLine<assignment, sumOfFunctions, one>},
        {"line: sum of strings", "bytes", 10 * megabytes,
         oneLine<stringAssignment, sumOfStrings, lastString>},
        {"line: axes", "bytes", 5 * megabytes, oneLine<home, axes, axis>},
        {"line: axis points", "bytes", 5 * megabytes, oneLine<ramp, axisPoints, nothing>},
        {"line: PVT", "bytes", 5 * megabytes, oneLine<pvt, pvtWords, pvtEnd>},
        {"line: words of G-code", "bytes", 5 * megabytes, oneLine<gcode, axisPoints, nothing>},
        {"line: declarations", "bytes", 5 * megabytes, oneLine<declaration, declared, nothing>},
        {"lines: empty", "bytes", 3 * megabytes, manyLines<emptyLine>},
        {"lines: short", "bytes", 10 * megabytes, manyLines<shortLine>},
        {"lines: refused", "bytes", 5 * megabytes, manyLines<refusedLine>},
        {"lines: two strings", "bytes", 5 * megabytes, manyLines<stringLine>},
        {"lines: predefined constants", "bytes", 10 * megabytes, manyLines<predefinedLine>},
        {"lines: inside one comment", "bytes", 10 * megabytes,
         oneLine<openedComment, commentLine, closedComment>},
        {"defines", "defines", 100'000, defines},
        {"defines and their uses", "defines", 100'000, definesAndUses},
        {"defines that use the one before", "defines", 100'000, chainOfDefines},
        {"one name defined again and again", "defines", 100'000, redefinition},
        {"defines and #undef", "defines", 100'000, undefinition},
        {"names of every length, not used", "bytes", 1 * megabytes, longNames},
        {"names of every length, almost used", "bytes", 1 * megabytes, longNamesInOneWord},
        {"macros and their calls", "macros", 100'000, macros},
        {"arguments of one macro", "arguments", 100'000, macroArguments},
        {"lines of one macro", "bytes", 5 * megabytes, macroBody},
        {"includes of one file", "files", 9'900, includes},
        {"messages at include depth 31", "messages", 10'000, messagesInsideIncludes},
        {"nested IF", "levels", 2'000, nestedBlocks<openIf, closeIf>},
        {"nested WHILE", "levels", 2'000, nestedBlocks<openWhile, closeWhile>},
        {"nested conditionals", "levels", 100'000, nestedBlocks<openConditional, closeConditional>},
        {"branches of one conditional", "bytes", 5 * megabytes,
         oneLine<openConditional, elseIf, closeConditional>},
        {"defines inside nested conditionals", "levels", 2'000, definesInsideConditionals},
        {"a define at each level", "levels", 10'000, defineAtEachLevel},
        {"expressions nested 255 deep", "bytes", 10 * megabytes, nestedExpressions<255>},
        {"expressions nested 5000 deep", "bytes", 10 * megabytes, nestedExpressions<5000>},
        {"labels", "labels", 300'000, labels},
        {"variables", "variables", 300'000, variables},
    };
    return programs;
}

}  // namespace torvel::bench
