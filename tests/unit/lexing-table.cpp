#include <sstream>
#include <string>

#include "src/base/parse-exception.h"
#include "src/lex/keywords.h"
#include "src/lex/lexer.h"
#include "tests/support/program-text.h"
#include "tests/support/table.h"

namespace torvel::test {

namespace {

std::string lex(const std::string& code, const AxisNames& axes) {
    ProgramText source(code);
    try {
        return printTokens(source.program,
                           lexText(source.program, axes, source.text(), source.position()));
    } catch (const ParseException& error) {
        return "! " + withoutPlace(error.what());
    }
}

AxisNames axesNamed(const std::string& list) {
    std::istringstream words(list);
    std::vector<std::string> names;
    for (std::string name; words >> name;) {
        names.push_back(name);
    }
    return AxisNames(names);
}

std::string lexWithAxes(const std::string& input) {
    const auto [axes, code] = splitInput(input);
    return lex(code, axesNamed(axes));
}

std::string axisInFront(const std::string& input) {
    const auto [axes, code] = splitInput(input);
    const std::size_t length = axisNameLength(code, axesNamed(axes));
    return length == 0 ? "none" : code.substr(0, length);
}

/// The characters with which a name goes on behind another.
std::string continuations(const std::string& list) {
    const AxisNames axes = axesNamed(list);
    std::string characters;
    for (int c = 0; c < 256; ++c) {
        if (axes.goesOnWith(static_cast<char>(c))) {
            characters += static_cast<char>(c);
        }
    }
    return characters;
}

std::string keyword(const std::string& word) {
    const TokenType type = keywordKind(word);
    return type == TokenType::INVALID ? "none" : std::string(tokenTypeName(type));
}

std::string lexWithDefaultAxes(const std::string& code) {
    return lex(code, AxisNames());
}

/// The number given; "+" and a number: that many behind the last kind.
std::string nameOfNumber(const std::string& number) {
    const unsigned long first = number.starts_with('+') ? tokenTypeCount - 1 : 0;
    return std::string(tokenTypeName(static_cast<TokenType>(first + std::stoul(number))));
}

const TableTests lexing("lexing", {{"tokens", lexWithDefaultAxes},
                                   {"tokens with axes", lexWithAxes},
                                   {"axis in front", axisInFront},
                                   {"continuations", continuations}});
const TableTests keywords("keywords", {{"keyword", keyword}});
const TableTests tokenTypes("token-types", {{"name", nameOfNumber}});

}  // namespace

}  // namespace torvel::test
