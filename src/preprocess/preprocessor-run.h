#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "src/base/check-record.h"
#include "src/base/parse-exception.h"
#include "src/base/program.h"
#include "src/lex/axis-names.h"
#include "src/limits.h"
#include "src/preprocess/defines.h"
#include "src/preprocess/line-splitter.h"
#include "src/preprocess/macro-arguments.h"
#include "src/preprocess/preprocessor.h"
#include "src/preprocess/source-files.h"

namespace torvel {

/// A conditional that is open. Which names its branches define is the define table's matter.
struct ConditionFrame {
    /// Some branch's condition has held.
    bool taken = false;
    bool elseSeen = false;
};

/// What the preprocessor carries from line to line and from file to file.
struct PreprocessorRun {
    PreprocessorRun(Program& program, const AxisNames& axes, const Limits& limits,
                    const PredefinedTable& predefined, const FileSource& source)
        : program(program),
          axes(axes),
          limits(limits),
          files(program, limits, source),
          defines(program, predefined) {}

    Program& program;
    const AxisNames& axes;
    const Limits& limits;
    SourceFiles files;
    Defines defines;
    std::vector<ConditionFrame> conditions;
    bool substitutes = true;
    unsigned includeDepth = 0;
    std::uint32_t filesIncluded = 0;
    std::uint64_t programBytes = 0;
    /// Room for the lines and values of defines, from one to the next.
    SubstitutedText substitutedLine;
    SubstitutedText substitutedValue;
    /// Takes what needs a look; null: nobody asks.
    CheckRecord* record = nullptr;
    /// Takes parts of the program that are complete; none: nobody asks.
    PartTaker taker;
};

/// Reads a file and appends its lines, with those of the files it includes. `path` is as written.
void preprocessFile(PreprocessorRun& run, std::string_view path,
                    const SourcePosition& includedFrom);

/// Records what a directive or a line says for the passes over the whole program, if somebody asks for checks.
void noteFact(PreprocessorRun& run, Fact::Kind kind, const SourcePosition& position,
              std::string_view name, std::string_view value = {});

/// Tells where the names stand that were replaced just now. Somebody asks for that.
void noteUsePlaces(PreprocessorRun& run, const SourcePosition& position);

/// Replaces the names in `text`. False: it stays one piece, since it holds no name or substitution
/// is switched off.
bool substitute(PreprocessorRun& run, TextSpan text, SubstitutedText& out);

/// Appends a line that stands for a directive: one token.
void appendDirectiveLine(PreprocessorRun& run, const SourcePosition& position, TextSpan source,
                         TextSpan comment, const Token& token);

/// Appends an ordinary line: its code with the defines substituted, lexed. A define of
/// several lines makes further lines.
void prepareLine(PreprocessorRun& run, const ScannedLine& line, const SourcePosition& position);

/// Appends a line of a macro's body to `list`: as an ordinary line, but that its words which are
/// `arguments` of the macro are variables.
void prepareBodyLine(PreprocessorRun& run, LineList& list, TextSpan code,
                     const SourcePosition& position, const MacroArguments& arguments);

/// Carries out the directive that begins `line`; its body may take further lines from `splitter`.
/// False if the line begins with "#" but is no directive of the preprocessor.
bool runDirective(PreprocessorRun& run, LineSplitter& splitter, const Inclusion& inclusion,
                  const ScannedLine& line);

}  // namespace torvel
