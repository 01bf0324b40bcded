#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "src/app/output-layout.h"
#include "src/lex/axis-names.h"
#include "src/limits.h"

// What holds for every program that converts, checked line by line. A fault is told as a text for people; the
// empty text is none.

namespace torvel::test {

/// What one line of a program became.
struct ConvertedLine {
    SourcePosition position;
    bool isConverted = false;
    std::string text;
    std::size_t messagesBefore = 0;
    std::size_t messagesAfter = 0;
    /// Lines of the output that it makes.
    std::size_t linesOfText() const;
};

/// The conversion of a preprocessed program, one line at a step.
class LineByLine {
public:
    LineByLine(const Program& program, const AxisNames& axes, const Limits& limits);
    LineByLine(const LineByLine&) = delete;
    LineByLine& operator=(const LineByLine&) = delete;

    /// Converts the next line; false if there is none.
    bool step();
    LineByLine& finish();

    const Program& program() const { return context_.program; }
    const AxisNames& axes() const { return context_.axes; }
    const std::vector<ConvertedLine>& lines() const { return lines_; }
    const MessageLog& log() const { return log_; }
    /// Constructs of an expression that the last line left open.
    unsigned nesting() const { return context_.nesting; }

    /// The output of the lines so far, and the text of the log, as a run writes them.
    const std::string& output() const { return output_; }
    std::string logText() const;

private:
    MessageLog log_;
    ConversionContext context_;
    OutputLayout layout_;
    std::string output_;
    std::vector<ConvertedLine> lines_;
};

/// Whether a message can be the one that refuses a line.
bool mayRefuse(std::string_view message);

/// Whether a message can stand beside a text. Only one can be both: the index of a parameter or a status item
/// that is no integer is reported and taken as 0.
bool mayStandBesideText(std::string_view message);

/// Every message stands at its line; a line without a text has a message, the last of which refused it, and a
/// line with a text has none that refuses it. A macro has those of its body, whose lines are not these.
std::string messageFault(const LineByLine& conversion);

/// The output has a line for every statement: none is lost or added, but where the rules make several (a label,
/// a macro, a define of several lines).
std::string outputFault(const LineByLine& conversion);

/// What differs between two conversions of one program.
std::string conversionDifference(const LineByLine& a, const LineByLine& b);

/// Every logical line of every file that was read is a line of the program with its text and its comment, or
/// belongs to a directive that says otherwise. The files are cut into lines anew for this.
std::string sourceLineFault(Program& program);

}  // namespace torvel::test
