#pragma once

#include <string>
#include <string_view>

#include "src/base/program.h"

namespace torvel::test {

/// A program with one file, main.pgm, that stands in memory only. The object stays where it is made.
class ProgramText {
public:
    explicit ProgramText(std::string_view content);
    ProgramText(const ProgramText&) = delete;
    ProgramText& operator=(const ProgramText&) = delete;

    Program program;
    const Inclusion* inclusion = nullptr;

    TextSpan text() const { return inclusion->file->text; }
    SourcePosition position() const { return {inclusion, 1}; }
};

/// The tokens of a line as the unit tables print them: "display name:text" separated by " | "; a preserved
/// define's text is followed by "=" and its value.
std::string printTokens(const Program& program, const LineList& list, std::size_t line);

/// The message of a diagnostic of main.pgm: without its place and its line end.
std::string withoutPlace(std::string_view diagnostic);

/// Parts of a table's input that stand between " :: ".
std::pair<std::string, std::string> splitInput(const std::string& input);

}  // namespace torvel::test
