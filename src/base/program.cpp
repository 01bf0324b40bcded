#include "src/base/program.h"

namespace torvel {

Token makeDefineToken(Program& program, TokenType type, const DefineTexts& texts) {
    const auto number = static_cast<std::uint32_t>(program.defineTexts.size());
    program.defineTexts.push_back(texts);
    return makeNumberedToken(type, number);
}

}  // namespace torvel
