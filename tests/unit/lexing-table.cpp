#include <sstream>
#include <string>

#include "src/lex/keywords.h"
#include "src/lex/lexer.h"
#include "src/lex/parse-exception.h"
#include "tests/support/program-text.h"
#include "tests/support/table.h"

namespace torvel::test {

namespace {

std::string lex(const std::string& code, const AxisNames& axes) {
    ProgramText source(code);
    try {
        lexLine(source.program, source.program.list, axes, source.text(), source.position());
    } catch (const ParseException& error) {
        return "! " + withoutPlace(error.what());
    }
    return printTokens(source.program, source.program.list, 0);
}

std::string lexWithAxes(const std::string& input) {
    const auto [axes, code] = splitInput(input);
    std::istringstream words(axes);
    std::vector<std::string> names;
    for (std::string name; words >> name;) {
        names.push_back(name);
    }
    return lex(code, AxisNames(names));
}

std::string keyword(const std::string& word) {
    const TokenType type = keywordKind(word);
    return type == TokenType::INVALID ? "none" : std::string(tokenTypeName(type));
}

std::string lexWithDefaultAxes(const std::string& code) {
    return lex(code, AxisNames());
}

std::string nameOfNumber(const std::string& number) {
    return std::string(tokenTypeName(static_cast<TokenType>(std::stoul(number))));
}

const TableTests lexing("lexing",
                        {{"tokens", lexWithDefaultAxes}, {"tokens with axes", lexWithAxes}});
const TableTests keywords("keywords", {{"keyword", keyword}});
const TableTests tokenTypes("token-types", {{"name", nameOfNumber}});

}  // namespace

}  // namespace torvel::test
