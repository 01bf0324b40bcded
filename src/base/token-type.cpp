#include "src/base/token-type.h"

#include <array>
#include <stdexcept>

namespace torvel {

namespace {

constexpr std::array<std::string_view, tokenTypeCount> displayNames = {
#define KIND(enumerator, display) display,
#define KEYWORD(enumerator, spelling) spelling " keyword",
#define DIRECTIVE(enumerator, spelling) spelling " directive",
#include "src/base/token-kinds.def"
};

}  // namespace

std::string_view tokenTypeName(TokenType type) {
    const auto index = static_cast<std::uint32_t>(type);
    if (index >= displayNames.size()) {
        throw std::logic_error("Unknown token type.");
    }
    return displayNames[index];
}

}  // namespace torvel
