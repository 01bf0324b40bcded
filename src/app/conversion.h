#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "src/app/work-sharing.h"
#include "src/base/file-system.h"
#include "src/base/text-buffer.h"
#include "src/expr/parser-core.h"

namespace torvel {

/// The output of a program in memory, with line feeds.
struct ProgramOutput {
    TextBuffer text;
    /// Where the text of each line of the program ends in it.
    std::vector<std::size_t> lineEnds;
};

/// The conversion of a program, which may begin while the program is being read: nothing is written before write().
class ProgramConversion {
public:
    /// The program of the context has no lines yet, or all of them.
    explicit ProgramConversion(ConversionContext& context, const WorkSharing& sharing = {});
    /// Waits for the lines that are being converted.
    ~ProgramConversion();
    ProgramConversion(const ProgramConversion&) = delete;
    ProgramConversion& operator=(const ProgramConversion&) = delete;

    /// Has a part of the program converted, the first one first. Others are being read, one at least.
    void add(const ProgramPart& part);

    /// Converts what is left of the program, which was read to its end, and writes all lines to `output` in order. To be
    /// called once. Messages are appended to the context's log in the order of their lines. A record of the context, in
    /// which the preprocessor has written before, holds all findings afterwards. Throws std::bad_alloc.
    void write(OutputFile& output);
    void write(ProgramOutput& output);

private:
    void addRest();

    struct Parts;
    std::unique_ptr<Parts> parts_;
};

/// Converts a program that was read to its end.
void convertProgram(ConversionContext& context, OutputFile& output,
                    const WorkSharing& sharing = {});
void convertProgram(ConversionContext& context, ProgramOutput& output,
                    const WorkSharing& sharing = {});

/// Appends a message as it stands in the log, with its line end.
void appendLogLine(const ConversionMessage& message, TextBuffer& log);

/// The messages about what the files of a program hold, which stand in front of those about its lines.
MessageLog messagesOfReading(const Program& program);

}  // namespace torvel
