#pragma once

#include <string>

#include "src/expr/parser-core.h"
#include "src/lex/file-system.h"
#include "src/stmt/statement.h"

namespace torvel {

/// Puts converted lines together as the output has them: indented by the nesting of blocks, with their
/// comments, and lines that could not be converted behind their marker.
class OutputLayout {
public:
    /// Appends the line, with its line end, to `out`. `text` is its converted text, or null if it
    /// could not be converted.
    void write(const Program& program, const SourceLine& line, const StatementText* text,
               BlockEffect effect, std::string& out);

private:
    unsigned level_ = 0;
};

/// Converts the lines of a program in order and writes them to `output`. Messages are appended to the
/// context's log.
void convertProgram(ConversionContext& context, OutputFile& output);

}  // namespace torvel
