#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "src/base/source-position.h"

namespace torvel {

/// Where a name stands, for who shows a program to a person. Its texts belong to the program, or to the record.
struct NamePlace {
    enum class Kind : std::uint8_t {
        define,       // a #define that Torvel keeps
        lostDefine,   // a #define that it does not take
        macro,        // a #macro
        name,         // a define, macro or predefined constant that is used, asked for or forgotten
        variable,     // a variable of the program
        label,        // a label or N-code; a GOTO leads there
        function,     // a subroutine; a CALL leads there
        functionEnd,  // a line alone, as are those below
        item,         // a parameter or status item, whose value is its Torvel name
        statement,    // the word that begins a statement
        opens,        // a block of the program
        continues,    // another branch of it
        closes,       // its end
        opensConditional,  // #ifdef, #ifndef
        continuesConditional,
        closesConditional,
    };
    enum class Role : std::uint8_t { definition, use };

    Kind kind{};
    Role role = Role::use;
    SourcePosition position;
    /// The text of its line, and its place in it. Without one it stands in that line, or those that continue it.
    TextSpan lineText{};
    TextSpan place{};
    std::string_view name;
    /// What a define or an item stands for.
    std::string_view value;
};

using NamePlaces = std::vector<NamePlace>;

}  // namespace torvel
