// Each line as the value of a define.

#include "src/preprocess/classification.h"

#include "fuzz/require.h"
#include "fuzz/target.h"
#include "src/base/characters.h"
#include "tests/support/text-difference.h"

namespace torvel::fuzz {

namespace {

bool isNumber(std::string_view text) {
    std::size_t digits = 0;
    std::size_t points = 0;
    const bool isHexadecimal = text.starts_with("0x");
    for (const char c : text.substr(isHexadecimal ? 2 : 0)) {
        digits += isHexadecimal ? std::size_t{isHexDigit(c)} : std::size_t{isDigit(c)};
        points += !isHexadecimal && c == '.' ? 1U : 0U;
    }
    return digits > 0 && points <= 1 && digits + points == text.size() - (isHexadecimal ? 2 : 0);
}

bool isElementOf(std::string_view array, std::string_view text) {
    return text.size() > array.size() + 2 && text.starts_with(array) && text[array.size()] == '[' &&
           text.find(']') == text.size() - 1;
}

bool fits(const Classification& found, const AxisNames& axes) {
    const std::string_view value = found.value;
    switch (found.type) {
        case TokenType::AXIS_DEFINE: return axes.contains(value);
        case TokenType::NUMBER_DEFINE: return isNumber(value);
        case TokenType::STRING_DEFINE:
            return value.size() >= 2 && value[0] == '"' && value.find('"', 1) == value.size() - 1;
        case TokenType::PROGRAM_VARIABLE_DEFINE: return value.size() >= 2 && value[0] == '$';
        case TokenType::GLOBAL_VARIABLE_DEFINE: return isElementOf("$rglobal", value);
        case TokenType::GLOBAL_STRING_DEFINE: return isElementOf("$sglobal", value);
        default: return false;
    }
}

}  // namespace

void checkClassification(const Target& /*target*/, std::string_view input) {
    const AxisNames axes;
    for (const std::string_view value : test::splitLines(input)) {
        const auto found = classifyDefine(value, axes);
        require(found || !axes.contains(value), "an axis is not kept");
        if (!found) {
            continue;
        }
        require(fits(*found, axes), "not of its kind: " + found->value);
        // What Torvel keeps is kept once more as it is, but elements of the global arrays, which are spelled
        // in another way.
        if (found->value == value) {
            continue;
        }
        require(found->type != TokenType::AXIS_DEFINE && found->type != TokenType::STRING_DEFINE &&
                    found->type != TokenType::PROGRAM_VARIABLE_DEFINE,
                "kept with another value: " + found->value);
    }
}

}  // namespace torvel::fuzz
