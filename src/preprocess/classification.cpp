#include "src/preprocess/classification.h"

#include <algorithm>

#include "src/base/characters.h"
#include "src/lex/keywords.h"

namespace torvel {

namespace {

using Result = std::optional<Classification>;

bool allDigits(std::string_view text) {
    return std::all_of(text.begin(), text.end(), isDigit);
}

std::size_t runOf(std::string_view text, bool (*predicate)(char)) {
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), predicate) -
                                    text.begin());
}

/// "text" with nothing behind the second quote.
Result classifyString(std::string_view value) {
    if (value.size() < 2 || value.find('"', 1) != value.size() - 1) {
        return std::nullopt;
    }
    return Classification{TokenType::STRING_DEFINE, std::string(value)};
}

/// 0x1F, 0X1F, 0h1F, 0H1F
Result classifyHexadecimal(std::string_view value) {
    const std::string_view digits = value.substr(2);
    if (digits.empty() || runOf(digits, isHexDigit) != digits.size()) {
        return std::nullopt;
    }
    return Classification{TokenType::NUMBER_DEFINE, "0x" + std::string(digits)};
}

/// 12, 1.5, 1. or .5; a point alone is no number.
Result classifyNumber(std::string_view value) {
    const std::size_t whole = runOf(value, isDigit);
    if (whole < value.size() &&
        (value[whole] != '.' || value == "." || !allDigits(value.substr(whole + 1)))) {
        return std::nullopt;
    }
    return Classification{TokenType::NUMBER_DEFINE, std::string(value)};
}

/// $GLOB3, $GLOBAL[I], $STRGLOB2[I]: `rest` is what follows the word. Both a number behind the word
/// and brackets make an index that is their sum; what binds looser than "+" is put in parentheses.
Result classifyGlobal(TokenType type, std::string_view array, std::string_view rest) {
    const std::size_t digitCount = runOf(rest, isDigit);
    std::string index(rest.substr(0, digitCount));
    const std::string_view bracket = rest.substr(digitCount);
    if (!bracket.empty()) {
        if (bracket.size() < 3 || bracket.front() != '[' ||
            bracket.find(']') != bracket.size() - 1) {
            return std::nullopt;
        }
        const std::string text(bracket.substr(1, bracket.size() - 2));
        if (index.empty()) {
            index = text;
        } else if (text.find_first_of("<>=&|^") == std::string::npos) {
            index += " + " + text;
        } else {
            index += " + (" + text + ')';
        }
    }
    if (index.empty()) {
        return std::nullopt;
    }
    return Classification{type, std::string(array) + "[" + index + "]"};
}

/// A "$" and letters. A word that has a meaning of its own ($DO, $PGLOB) is no variable of the program: where
/// it is used, it needs what follows it.
Result classifyVariable(std::string_view value) {
    const std::size_t letters = runOf(value.substr(1), isLetter);
    if (letters == 0) {
        return std::nullopt;
    }
    std::string word(value.substr(1, letters));
    std::transform(word.begin(), word.end(), word.begin(), upperCase);
    const std::string_view rest = value.substr(1 + letters);
    if (word == "GLOB" || word == "GLOBAL") {
        return classifyGlobal(TokenType::GLOBAL_VARIABLE_DEFINE, "$rglobal", rest);
    }
    if (word == "STRGLOB") {
        return classifyGlobal(TokenType::GLOBAL_STRING_DEFINE, "$sglobal", rest);
    }
    if (!rest.empty() || variableKind(value) != TokenType::VARIABLE) {
        return std::nullopt;
    }
    return Classification{TokenType::PROGRAM_VARIABLE_DEFINE, std::string(value)};
}

}  // namespace

std::optional<Classification> classifyDefine(std::string_view value, const AxisNames& axes) {
    if (value.empty()) {
        return std::nullopt;
    }
    if (axes.contains(value)) {
        return Classification{TokenType::AXIS_DEFINE, std::string(value)};
    }
    const char first = value[0];
    if (first == '"') {
        return classifyString(value);
    }
    if (first == '$') {
        return classifyVariable(value);
    }
    if (first == '0' && value.size() > 1 &&
        (upperCase(value[1]) == 'X' || upperCase(value[1]) == 'H')) {
        return classifyHexadecimal(value);
    }
    if (isDigit(first) || first == '.') {
        return classifyNumber(value);
    }
    return std::nullopt;
}

}  // namespace torvel
