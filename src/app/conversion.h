#pragma once

#include <cstddef>
#include <vector>

#include "src/app/work-sharing.h"
#include "src/base/file-system.h"
#include "src/base/text-buffer.h"
#include "src/expr/parser-core.h"

namespace torvel {

/// Converts the lines of a program and writes them to `output` in order. Messages are appended to the
/// context's log in the order of their lines. A record of the context, in which the preprocessor has written
/// before, holds all findings afterwards. Throws std::bad_alloc.
void convertProgram(ConversionContext& context, OutputFile& output,
                    const WorkSharing& sharing = {});

/// The output of a program in memory, with line feeds.
struct ProgramOutput {
    TextBuffer text;
    /// Where the text of each line of the program ends in it.
    std::vector<std::size_t> lineEnds;
};

/// The same into memory.
void convertProgram(ConversionContext& context, ProgramOutput& output,
                    const WorkSharing& sharing = {});

/// Appends a message as it stands in the log, with its line end.
void appendLogLine(const ConversionMessage& message, TextBuffer& log);

/// The messages about what the files of a program hold, which stand in front of those about its lines.
MessageLog messagesOfReading(const Program& program);

}  // namespace torvel
