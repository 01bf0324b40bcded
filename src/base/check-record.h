#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <string_view>
#include <vector>

#include "src/base/block-effect.h"
#include "src/base/findings.h"
#include "src/base/growing-array.h"
#include "src/base/kept-texts.h"
#include "src/base/name-places.h"
#include "src/base/name-set.h"
#include "src/base/names-of-parts.h"
#include "src/base/program.h"
#include "src/base/recorded-finding.h"

namespace torvel {

/// What a line says that a pass over the whole program asks for. Its texts belong to the program, or to the record.
struct Fact {
    enum class Kind : std::uint8_t {
        ifdef,        // #ifdef and #ifndef, which Torvel keeps
        elif,         // #elseif
        otherwise,    // #else
        endif,        // #endif
        undef,        // #undef
        define,       // a #define that Torvel keeps
        lostDefine,   // a #define that it does not take
        macro,        // a #macro that Torvel keeps; the facts of its body stand in front of it
        lostMacro,    // a #macro whose body could not be converted
        macroCall,    // the name of a macro that is called
        argumentUse,  // what a macro's body does with an argument, the name being "MACRO 1"
        argument,     // what became of an argument of a call
        label,        // a label or N-code as the output has it
        jump,         // GOTO
        function,     // DFS
        functionEnd,  // ENDDFS, END DFS
        call,         // CALL
        variable,     // a variable of the program, made of a VariablePlace
        valueUse,     // a define that is written as its value
        opens,        // a line of a macro's body that opens a block
        closes,       // one that closes a block
        continues,    // one that closes a branch and opens the next
    };

    /// Of an argument: a sum that was added up on that side, or an operator there that would take a part of a sum;
    /// a variable that is read by a call, or an argument that the body sets.
    static constexpr std::uint8_t leftSide = 1;
    static constexpr std::uint8_t rightSide = 2;
    static constexpr std::uint8_t isSet = 4;

    Kind kind{};
    std::uint8_t sides = 0;
    /// It belongs to the body of a macro.
    bool isInBody = false;
    /// It is a DirectiveFact.
    bool isDirective = false;
    std::uint32_t programLine = 0;
    /// Where it stands in its line, if that is known.
    ColumnRange columns{};
    std::string_view name;
};

/// What the preprocessor notes, which has a line of its own or belongs to the program's line behind it.
struct DirectiveFact : Fact {
    SourcePosition position;
    /// What a define stands for, or a condition asks for.
    std::string_view value;
};

/// A line of the program that opens or closes blocks: as many as all other facts together.
struct BlockLine {
    std::uint32_t programLine = 0;
    BlockEffect effect{};
    /// It opens an IF.
    bool isIf = false;
};

/// Where a variable stands: most programs have more of them than of all facts.
struct VariablePlace {
    std::uint32_t programLine = 0;
    TextSpan lineText{};
    TextSpan name{};
};

/// A define that a line writes as its value, whatever the define.
struct ValueUse {
    std::uint32_t programLine = 0;
    TextSpan name{};
};

/// A comment that the output does not have.
struct DroppedComment {
    SourcePosition position;
    std::uint32_t programLine = 0;
};

/// The findings of some thousand converted lines.
struct PartFindings {
    GrowingArray<RecordedFinding> findings;
    /// Where the messages of these lines begin among those of the run.
    std::size_t firstMessage = 0;
};

/// What the converter gathers for who asks for findings. Without one nothing is gathered.
struct CheckRecord {
    /// The text of the line being converted, for the columns of findings, and its number in the program.
    TextSpan lineText{};
    std::uint32_t programLine = 0;
    /// Those of the lines that are converted just now; in the end those of the passes over the whole program.
    GrowingArray<RecordedFinding> findings;
    /// Those of the files as such, and those of converted lines, some thousand lines after the other. All are in the
    /// order of their places.
    GrowingArray<Finding> ofFiles;
    std::vector<PartFindings> ofLines;
    /// Those of the preprocessor.
    GrowingArray<DirectiveFact> directives;
    /// Those of the lines that are converted just now; behind them those of converted lines.
    GrowingArray<Fact> facts;
    std::vector<GrowingArray<Fact>> factsOfLines;
    GrowingArray<BlockLine> blocks;
    std::vector<GrowingArray<BlockLine>> blocksOfLines;
    GrowingArray<DroppedComment> droppedComments;
    KeptTexts texts;
    /// The further lines of findings.
    std::deque<std::vector<std::uint32_t>> lines;
    /// Those of the lines that are converted just now; behind them those of converted lines. A variable may stand there
    /// several times.
    GrowingArray<VariablePlace> variables;
    std::vector<GrowingArray<VariablePlace>> variablesOfLines;
    /// The same of the defines that are written as their values.
    GrowingArray<ValueUse> valueUses;
    std::vector<GrowingArray<ValueUse>> valueUsesOfLines;
    /// The names of the variables that need not be recorded once more; null where nothing is converted.
    std::unique_ptr<NameSet> recordedVariables;
    /// Where the parts of this run have theirs from.
    NamesOfParts variablesOfParts;
    /// Names of the defines that were met, and those that were met again. Only these can have several values.
    NameSet defined;
    NameSet definedAgain;
    /// Takes where names stand, in a conversion of one thread; null: nobody asks.
    NamePlaces* places = nullptr;
};

/// Whether the ways through the conditionals may have given a name different values, as far as the program was read.
bool mayHaveSeveralValues(const CheckRecord& record, std::string_view name);

/// Notes that a name, which is one of the record's texts, is defined.
void enterDefined(CheckRecord& record, std::string_view name);

/// Records a comment that the output does not have, on that line.
void recordDroppedComment(CheckRecord& record, const Program& program,
                          const SourcePosition& position);

/// How much a record held at some time.
struct RecordMark {
    std::size_t findings = 0;
    std::size_t facts = 0;

    bool operator==(const RecordMark&) const = default;
};

inline RecordMark markOf(const CheckRecord& record) {
    return {record.findings.size(), record.facts.size()};
}

/// Takes off what came behind a mark.
void takeOff(CheckRecord& record, const RecordMark& mark);

/// From the first of `tokens` to the last, as far as they stand in `lineText`.
TextSpan placeOf(std::span<const Token> tokens, TextSpan lineText);

/// The columns of a place in the line of source that begins with `lineText`.
ColumnRange columnsOf(const Program& program, const SourcePosition& position, TextSpan lineText,
                      TextSpan place);
inline ColumnRange columnsOf(const Program& program, const SourcePosition& position,
                             TextSpan lineText, std::span<const Token> tokens) {
    return columnsOf(program, position, lineText, placeOf(tokens, lineText));
}

}  // namespace torvel
