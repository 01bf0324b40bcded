#include "tests/support/program-text.h"

#include <stdexcept>

#include "src/lex/lexer.h"

namespace torvel::test {

ProgramText::ProgramText(std::string_view content) {
    SourceFile file;
    file.path = "/programs/main.pgm";
    file.displayPath = "main.pgm";
    file.name = "main.pgm";
    file.text = program.text.add(content);
    program.files.push_back(file);
    inclusion = &program.inclusions.emplace_back(Inclusion{&program.files.back(), {}});
    LineList& list = program.lines.last();
    list.append(position(), text(), {});
    list.setCode(text().length);
}

LexedTokens::LexedTokens(std::span<const Token> tokens) : tokens_(tokens.begin(), tokens.end()) {
    tokens_.resize(tokens_.size() + LineTokens::endTokens, Token{TokenType::END_OF_FILE, {}});
}

LexedTokens lexedTokens(const Program& program, const LineList& list, std::size_t line,
                        const AxisNames& axes) {
    GrowingArray<Token> room;
    return LexedTokens(tokensOf(program, list, line, axes, room));
}

LexedTokens lexedTokens(const Program& program, const ProgramLines& lines, std::size_t line,
                        const AxisNames& axes) {
    const ProgramPart& part = lines.partOf(line);
    return lexedTokens(program, part.list, line - part.first, axes);
}

std::vector<Token> lexText(const Program& program, const AxisNames& axes, TextSpan code,
                           const SourcePosition& position) {
    GrowingArray<Token> tokens;
    lexLine(program.text, axes, code, position, tokens);
    return {tokens.begin(), tokens.end()};
}

std::string printTokens(const Program& program, std::span<const Token> tokens) {
    std::string printed;
    for (const Token& token : tokens) {
        if (!printed.empty()) {
            printed += " | ";
        }
        if (token.type == macroDefinitionToken) {
            printed += "macro:" + std::string(program.text.view(program.macros[token.number].head));
            continue;
        }
        printed += token.type == macroCallToken ? "macro call" : tokenTypeName(token.type);
        printed += ':';
        TextBuffer text;
        appendTokenText(token.type, program.textOf(token), text);
        printed += text;
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
