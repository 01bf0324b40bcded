#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "src/expr/parser-core.h"

namespace torvel {

/// The sets of operands that Torvel has names for. Rows: named-operands.def.
enum class OperandSet : std::uint8_t {
#define WORDS(set) set,
#define WORDS_OR(set, name) set,
#define NUMBERS(set, notConstant, unknown) set,
#define NUMBERS_OR(set, notConstant, name) set,
#define NUMBERS_OR_PLACEHOLDER(set, placeholder, message) set,
#include "src/expr/named-operands.def"
};

/// The set that is called `name`; nothing if there is none.
constexpr std::optional<OperandSet> findOperandSet(std::string_view name) {
    constexpr std::string_view names[] = {
#define WORDS(set) #set,
#define WORDS_OR(set, name) #set,
#define NUMBERS(set, notConstant, unknown) #set,
#define NUMBERS_OR(set, notConstant, name) #set,
#define NUMBERS_OR_PLACEHOLDER(set, placeholder, message) #set,
#include "src/expr/named-operands.def"
    };
    for (std::size_t set = 0; set < std::size(names); ++set) {
        if (names[set] == name) {
            return static_cast<OperandSet>(set);
        }
    }
    return std::nullopt;
}

/// Whether the operand may be left out.
constexpr bool mayBeLeftOut(OperandSet set) {
    switch (set) {
#define WORDS_OR(set, name) case OperandSet::set:
#include "src/expr/named-operands.def"
        return true;
        default: return false;
    }
}

/// Whether an operand must stand there. What may be left out has a name in its set.
enum class Presence : std::uint8_t { required, optional, behindComma };

/// Reads a word or value of the set and appends Torvel's name for it.
void translateNamedOperand(Statement& statement, OperandSet set, Presence presence,
                           ExpressionText& out);

/// Checks whether the number chose its name as an octal one. Its tokens are those from `first` up to the cursor.
void checkOctalName(const Statement& statement, OperandSet set, std::string_view text,
                    const Token* first);

/// Appends the name of a number of the set, `text` being the number as Torvel text.
void writeNumberName(Statement& statement, OperandSet set, std::string_view text,
                     ExpressionText& out);

}  // namespace torvel
