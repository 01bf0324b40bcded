#include "src/preprocess/macro-calls.h"

#include "src/lex/characters.h"

namespace torvel {

namespace {

/// The length of the word that `code` begins with if it is a macro's name and "(" follows.
std::size_t callLength(const Preprocessing& run, std::string_view code) {
    std::size_t length = 0;
    while (length < code.size() && !isWhiteSpace(code[length]) && code[length] != '(') {
        ++length;
    }
    const std::string_view rest = trimBlanks(code.substr(length));
    return rest.starts_with('(') && run.defines.isMacro(code.substr(0, length)) ? length : 0;
}

}  // namespace

CallPlace findMacroCall(const Preprocessing& run, std::string_view code) {
    if (!run.substitutes || run.program.macros.empty()) {
        return {};
    }
    return {0, callLength(run, code)};
}

}  // namespace torvel
