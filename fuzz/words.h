#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "src/base/token-type.h"

namespace torvel::fuzz {

/// A word of the kind: the keyword's spelling, or an example of a kind with many. Empty for the kinds that no
/// text has.
std::string wordOf(TokenType kind);

/// Every spelling of a keyword.
const std::vector<std::string>& allKeywords();

/// Operands, operators and the names of the defines in `prelude`.
const std::vector<std::string>& commonWords();

/// What programs have beside statements: directives, comments, continuations.
const std::vector<std::string>& directiveWords();

/// Defines of each kind that Torvel keeps, and a macro. Inputs can use them.
extern const std::string_view prelude;

/// The words of a row that stand between " | ".
std::vector<std::string> splitWords(std::string_view row);

}  // namespace torvel::fuzz
