// What calls a macro is told from the line as it is written, before defines are put in. The scan in front of
// the name is loose: what it skips is lexed like any other text, and these are looked at once more.

#include "src/preprocess/macro-calls.h"

#include <algorithm>

#include "src/base/characters.h"

namespace torvel {

namespace {

/// The length of the word that `code` begins with if it is a macro's name and "(" follows.
std::size_t callLength(PreprocessorRun& run, std::string_view code) {
    if (!run.defines.mayBeginWithName(code)) {
        return 0;
    }
    std::size_t length = 0;
    while (length < code.size() && !isWhiteSpace(code[length]) && code[length] != '(') {
        ++length;
    }
    const std::string_view rest = trimBlanks(code.substr(length));
    return rest.starts_with('(') && run.defines.isMacro(code.substr(0, length)) ? length : 0;
}

/// How much of `text` is made of characters for which `predicate` holds.
template <typename Predicate>
std::size_t runOf(std::string_view text, Predicate predicate) {
    std::size_t length = 0;
    while (length < text.size() && predicate(text[length])) {
        ++length;
    }
    return length;
}

/// The length of what may be a block delete with its levels at the front of `code`.
std::size_t blockDeleteLength(std::string_view code) {
    return !code.starts_with('/')
               ? 0
               : runOf(code, [](char c) { return c == '/' || isDigit(c) || isBlank(c); });
}

/// What a label is made of; only its first character may be "#".
bool isLabelCharacter(char c) {
    return isWordCharacter(c) || c == '#';
}

/// The length of what may be a label ("name:", ":name") or an N-code ("N100") at the front of `code`, the
/// blanks behind it counted.
std::size_t labelLength(std::string_view code) {
    const auto blanksAt = [&](std::size_t at) { return at + runOf(code.substr(at), isBlank); };
    if (code.starts_with(':')) {
        const std::size_t name = blanksAt(1);
        return blanksAt(name + runOf(code.substr(name), isLabelCharacter));
    }
    const std::size_t colon = blanksAt(runOf(code, isLabelCharacter));
    if (colon < code.size() && code[colon] == ':') {
        return blanksAt(colon + 1);
    }
    if (code.starts_with('N') || code.starts_with('n')) {
        const std::size_t number = blanksAt(1);
        return blanksAt(number + runOf(code.substr(number), isDigit));
    }
    return 0;
}

/// Whether a block delete or an N-code can stand in front of what `code` begins with.
bool mayHaveNumberInFront(std::string_view code) {
    return code.starts_with('/') || code.starts_with('N') || code.starts_with('n');
}

}  // namespace

CallPlace findCallOfMacro(PreprocessorRun& run, std::string_view code, std::size_t sign) {
    const bool hasColon = code[sign] == ':';
    if (hasColon && code.find('(', sign) == std::string_view::npos) {
        return {};
    }
    CallPlace place = {0, callLength(run, code)};
    // In front of a "(" a label has its ":".
    if (!hasColon && !mayHaveNumberInFront(code)) {
        return place;
    }
    for (const auto prologueLength : {blockDeleteLength, labelLength}) {
        if (place.length == 0) {
            const std::size_t skipped = prologueLength(code.substr(place.start));
            place.start += skipped;
            place.length = skipped == 0 ? 0 : callLength(run, code.substr(place.start));
        }
    }
    return place;
}

bool isCallPrologue(std::span<const Token> tokens) {
    using enum TokenType;
    std::size_t at = 0;
    const auto accept = [&](TokenType type) {
        const bool isNext = at < tokens.size() && tokens[at].type == type;
        at += isNext ? 1 : 0;
        return isNext;
    };
    bool isComplete = true;
    if (accept(SLASH)) {
        if (accept(SLASH)) {
            isComplete = accept(INTEGER_LITERAL);
        } else {
            accept(INTEGER_LITERAL);
            if (accept(SLASH)) {
                accept(INTEGER_LITERAL);
            }
        }
    }
    if (accept(LETTER_N)) {
        isComplete = isComplete && accept(INTEGER_LITERAL);
    } else if (accept(IDENTIFIER)) {
        isComplete = isComplete && accept(COLON);
    } else if (accept(COLON)) {
        isComplete = isComplete && accept(IDENTIFIER);
    }
    return isComplete && at == tokens.size();
}

}  // namespace torvel
