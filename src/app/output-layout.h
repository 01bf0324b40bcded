#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "src/expr/parser-core.h"

namespace torvel {

/// Puts converted lines together as the output has them: indented by the nesting of blocks, with their
/// comments, and lines that could not be converted behind their marker.
class OutputLayout {
public:
    /// Appends a line of a list of the program's, with its line end, to `out`. `text` is its converted text, in a
    /// TextBuffer; none: it could not be converted.
    void write(const Program& program, const LineList& list, std::size_t number,
               std::optional<std::string_view> text, BlockEffect effect, TextBuffer& out);

private:
    unsigned level_ = 0;
};

}  // namespace torvel
