#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

#include "src/expr/parser-core.h"

// What becomes of the arguments of macros, for who asks for findings: a macro's text stands in the place of its
// call, so what an argument means depends on what stands beside it in the body.

namespace torvel {

/// The arguments of a macro, by what the body calls them.
class ArgumentNames {
public:
    /// `head` is "#macro NAME($a, $b)".
    explicit ArgumentNames(std::string_view head);

    std::string_view macro() const { return macro_; }

    /// Notes what a line of the body does with them.
    void noteUses(const Statement& statement, std::span<const Token> tokens) const;

private:
    std::string_view macro_;
    std::unordered_map<std::string_view, std::size_t> numbers_;
};

/// Notes what became of the argument `number` of a call, whose tokens begin at `first` and end at the cursor.
void noteArgument(Statement& statement, std::string_view macro, std::size_t number,
                  const Token* first, std::string_view text);

}  // namespace torvel
