#include "src/lex/program.h"

namespace torvel {

Token makeDefineToken(Program& program, TokenType type, const DefineTexts& texts) {
    const auto index = static_cast<std::uint32_t>(program.defineTexts.size());
    program.defineTexts.push_back(texts);
    return {type, {index, 0}};
}

}  // namespace torvel
