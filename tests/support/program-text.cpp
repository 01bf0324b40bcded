#include "tests/support/program-text.h"

#include <stdexcept>

namespace torvel::test {

ProgramText::ProgramText(std::string_view content) {
    SourceFile file;
    file.path = "/programs/main.pgm";
    file.displayPath = "main.pgm";
    file.name = "main.pgm";
    file.text = program.text.add(content);
    program.files.push_back(file);
    inclusion = &program.inclusions.emplace_back(Inclusion{&program.files.back(), {}});
    program.list.lines.push_back({text(), {}, 0, 1, inclusion});
}

std::string printTokens(const Program& program, const LineList& list, std::size_t line) {
    std::string printed;
    for (const Token& token : list.tokensOf(line)) {
        if (!printed.empty()) {
            printed += " | ";
        }
        if (token.type == macroDefinitionToken) {
            printed += "macro:" + std::string(program.text.view(program.macros[token.number].head));
            continue;
        }
        printed += token.type == macroCallToken ? "macro call" : tokenTypeName(token.type);
        printed += ':';
        printed += program.textOf(token);
        if (isPreservedDefine(token.type)) {
            printed += '=';
            printed += program.valueOf(token);
        }
    }
    return printed;
}

std::string withoutPlace(std::string_view diagnostic) {
    const std::string_view place = "main.pgm:";
    if (diagnostic.starts_with(place)) {
        diagnostic.remove_prefix(diagnostic.find(": ") + 2);
    }
    return std::string(diagnostic.substr(0, diagnostic.find('\n')));
}

std::pair<std::string, std::string> splitInput(const std::string& input) {
    const std::string padded = ' ' + input + ' ';
    const std::size_t at = padded.find(" :: ");
    if (at == std::string::npos) {
        throw std::invalid_argument("the input has no \" :: \"");
    }
    return {at == 0 ? "" : input.substr(0, at - 1),
            at + 3 > input.size() ? "" : input.substr(at + 3)};
}

}  // namespace torvel::test
