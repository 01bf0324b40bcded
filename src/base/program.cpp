#include "src/base/program.h"

namespace torvel {

void appendLine(LineList& list, const SourcePosition& position, TextSpan text, TextSpan comment) {
    list.lines.push_back({text, comment, static_cast<std::uint32_t>(list.tokens.size()),
                          position.lineNumber, position.inclusion});
}

Token makeDefineToken(Program& program, TokenType type, const DefineTexts& texts) {
    const auto number = static_cast<std::uint32_t>(program.defineTexts.size());
    program.defineTexts.push_back(texts);
    return makeNumberedToken(type, number);
}

}  // namespace torvel
