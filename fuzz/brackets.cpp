#include "fuzz/brackets.h"

#include <algorithm>
#include <string>

namespace torvel::fuzz {

bool hasBalancedBrackets(std::string_view text) {
    std::string open;
    for (std::size_t at = 0; at < text.size(); ++at) {
        switch (text[at]) {
            case '"': at = std::min(text.find('"', at + 1), text.size()); break;
            case '(': open += ')'; break;
            case '[': open += ']'; break;
            case ')':
            case ']':
                if (open.empty() || open.back() != text[at]) {
                    return false;
                }
                open.pop_back();
                break;
            default: break;
        }
    }
    return open.empty();
}

bool bringsOwnBrackets(const Program& program, std::span<const Token> tokens) {
    return std::any_of(tokens.begin(), tokens.end(), [&](const Token& token) {
        if (token.type == TokenType::CONVERSION_TEXT || token.type == macroDefinitionToken) {
            return true;
        }
        const bool isNamed = isPreservedDefine(token.type) || token.type == macroCallToken;
        return isNamed && !(hasBalancedBrackets(program.textOf(token)) &&
                            hasBalancedBrackets(program.valueOf(token)));
    });
}

}  // namespace torvel::fuzz
