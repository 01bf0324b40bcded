// A value is read byte by byte by a machine whose state tells what it can still become; the forms are
// those of classifyDefine(). A part is the machine run from every state at once.

#include "src/preprocess/value-part.h"

#include <iterator>

#include "src/lex/characters.h"

namespace torvel {

namespace {

enum State : std::uint8_t {
    start,          // nothing yet but blanks
    refused,        // nothing that can be kept
    complete,       // all of it, blanks may follow
    zero,           // 0
    digits,         // 12
    point,          // .
    fraction,       // 1. or .5
    hexPrefix,      // 0x
    hexDigits,      // 0x1F
    string,         // "abc
    globalDigits,   // $GLOB3
    bracket,        // $GLOB[
    index,          // $GLOB[I
    otherVariable,  // $ and letters that do not begin the name of an array
    firstWord,      // $ and the letters of words[state - firstWord]
};

/// The beginnings of the global arrays' names.
constexpr std::string_view words[] = {"",  "G",  "GL",  "GLO",  "GLOB",  "GLOBA",  "GLOBAL",
                                      "S", "ST", "STR", "STRG", "STRGL", "STRGLO", "STRGLOB"};
static_assert(firstWord + std::size(words) == ValuePart::stateCount);

constexpr bool isArray(std::string_view word) {
    return word == "GLOB" || word == "GLOBAL" || word == "STRGLOB";
}

constexpr State stateOfWord(std::string_view word, char letter) {
    for (std::size_t i = 0; i < std::size(words); ++i) {
        if (words[i].size() == word.size() + 1 && words[i].starts_with(word) &&
            words[i].back() == upperCase(letter)) {
            return static_cast<State>(firstWord + i);
        }
    }
    return otherVariable;
}

/// Whether a value may end in `state`.
constexpr bool isEnd(State state) {
    switch (state) {
        case complete:
        case zero:
        case digits:
        case fraction:
        case hexDigits:
        case globalDigits:
        case otherVariable: return true;
        default: return state > firstWord && !isArray(words[state - firstWord]);
    }
}

constexpr State beginValue(char c) {
    switch (c) {
        case '0': return zero;
        case '.': return point;
        case '$': return firstWord;
        case '"': return string;
        default: return isDigit(c) ? digits : refused;
    }
}

constexpr State behindWord(std::string_view word, char c) {
    if (isLetter(c)) {
        return stateOfWord(word, c);
    }
    return !isArray(word) ? refused : isDigit(c) ? globalDigits : c == '[' ? bracket : refused;
}

/// The state behind `c`, which is no blank.
constexpr State behindSolid(State state, char c) {
    const auto only = [](bool holds, State next) { return holds ? next : refused; };
    switch (state) {
        case start: return beginValue(c);
        case zero:
            if (upperCase(c) == 'X' || upperCase(c) == 'H') {
                return hexPrefix;
            }
            [[fallthrough]];
        case digits: return c == '.' ? fraction : only(isDigit(c), digits);
        case point:
        case fraction: return only(isDigit(c), fraction);
        case hexPrefix:
        case hexDigits: return only(isHexDigit(c), hexDigits);
        case string: return c == '"' ? complete : string;
        case globalDigits: return c == '[' ? bracket : only(isDigit(c), globalDigits);
        case bracket: return only(c != ']', index);
        case index: return c == ']' ? complete : index;
        case otherVariable: return only(isLetter(c), otherVariable);
        case refused:
        case complete: return refused;
        default: return behindWord(words[state - firstWord], c);
    }
}

constexpr State behindByte(State state, char c) {
    if (!isBlank(c)) {
        return behindSolid(state, c);
    }
    switch (state) {
        case start:
        case string: return state;
        case bracket:
        case index: return index;
        default: return isEnd(state) ? complete : refused;
    }
}

}  // namespace

ValuePart examineValue(std::string_view text) {
    ValuePart part;
    for (std::size_t from = 0; from < part.behind.size(); ++from) {
        auto state = static_cast<State>(from);
        for (const char c : text) {
            if (state == refused) {
                break;
            }
            state = behindByte(state, c);
        }
        part.behind[from] = state;
    }
    return part;
}

void appendPart(ValuePart& part, const ValuePart& next) {
    for (std::uint8_t& state : part.behind) {
        state = next.behind[state];
    }
}

bool isKept(const ValuePart& value) {
    return isEnd(static_cast<State>(value.behind[start]));
}

}  // namespace torvel
