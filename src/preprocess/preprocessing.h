#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "src/lex/axis-names.h"
#include "src/lex/messages.h"
#include "src/lex/program.h"
#include "src/limits.h"
#include "src/preprocess/defines.h"
#include "src/preprocess/line-splitter.h"
#include "src/preprocess/source-files.h"

namespace torvel {

/// A conditional that is open. Which names its branches define is the define table's matter.
struct ConditionFrame {
    /// Some branch's condition has held.
    bool taken = false;
    bool elseSeen = false;
};

/// What the preprocessor carries from line to line and from file to file.
struct Preprocessing {
    Preprocessing(Program& program, const AxisNames& axes, const Limits& limits,
                  const PredefinedTable& predefined)
        : program(program),
          axes(axes),
          limits(limits),
          files(program, limits),
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
    /// Room for cutting lines and values, kept from one to the next.
    Defines::Cut lineCut;
    Defines::Cut defineCut;
};

/// Throws a ParseException.
[[noreturn]] void failAt(const SourcePosition& position, Message message,
                         std::initializer_list<std::string_view> holes = {});

/// Reads a file and appends its lines, with those of the files it includes. `path` is as written.
void preprocessFile(Preprocessing& run, std::string_view path, const SourcePosition& includedFrom);

/// Cuts `text` at the names of defines. False: it stays one piece, since it holds no name or substitution
/// is switched off.
bool substitute(Preprocessing& run, TextSpan text, Defines::Cut& cut);

/// Appends a line without tokens.
void appendLine(LineList& list, const SourcePosition& position, TextSpan text, TextSpan comment);

/// Appends a line that stands for a directive: one token of `type` with `text`.
void appendDirectiveLine(Preprocessing& run, const SourcePosition& position, TextSpan source,
                         TextSpan comment, TokenType type, TextSpan text);

/// Appends an ordinary line: its code with the defines substituted, cut into tokens. A define of
/// several lines makes further lines.
void prepareLine(Preprocessing& run, const ScannedLine& line, const SourcePosition& position);

/// Appends a line of a macro's body to `list`: as an ordinary line, but that its words which are
/// `arguments` of the macro are variables.
void prepareBodyLine(Preprocessing& run, LineList& list, TextSpan code,
                     const SourcePosition& position,
                     const std::unordered_set<std::string_view>& arguments);

/// Carries out the directive that begins `line`; its body may take further lines from `splitter`.
/// False if the line begins with "#" but is no directive of the preprocessor.
bool runDirective(Preprocessing& run, LineSplitter& splitter, const Inclusion& inclusion,
                  const ScannedLine& line);

}  // namespace torvel
