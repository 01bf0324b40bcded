#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "src/base/token-type.h"
#include "src/lex/axis-names.h"

namespace torvel {

/// How Torvel can keep a define: the kind of its tokens, and its value as Torvel text.
struct Classification {
    TokenType type;
    std::string value;
};

/// Tells whether `value`, a define's value after substitution, is one that Torvel's `#define` takes: an
/// axis name, a number, a string literal, a variable of the program, an element of the global numbers
/// or of the global strings. Nothing if it is none of them.
std::optional<Classification> classifyDefine(std::string_view value, const AxisNames& axes);

}  // namespace torvel
