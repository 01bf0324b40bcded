#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "src/expr/parser-core.h"
#include "src/lex/file-system.h"
#include "src/stmt/statement.h"

namespace torvel {

/// Puts converted lines together as the output has them: indented by the nesting of blocks, with their
/// comments, and lines that could not be converted behind their marker.
class OutputLayout {
public:
    /// Appends the line, with its line end, to `out`. `text` is its converted text; none: it could not
    /// be converted.
    void write(const Program& program, const SourceLine& line, std::optional<std::string_view> text,
               BlockEffect effect, std::string& out);

private:
    unsigned level_ = 0;
};

/// How the conversion of a program's lines is shared out. The result is the same whatever it says.
struct WorkSharing {
    /// Lines that are converted in one go. A program that has no more is converted without threads.
    std::size_t linesPerPart = 8192;
    /// Threads beside the caller's own; none: as many as make all processors busy.
    std::optional<unsigned> helpers;
};

/// Converts the lines of a program and writes them to `output` in order. Messages are appended to the
/// context's log in the order of their lines. Throws std::bad_alloc.
void convertProgram(ConversionContext& context, OutputFile& output,
                    const WorkSharing& sharing = {});

}  // namespace torvel
