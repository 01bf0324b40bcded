#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "src/base/findings.h"
#include "src/base/program.h"

namespace torvel {

/// What a line says that a pass over the whole program asks for.
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
        variable,     // a variable of the program
        valueUse,     // a define that is written as its value
        opens,        // a line of the output that opens a block
        closes,       // one that closes a block
        continues,    // one that closes a branch and opens the next
        refused,      // a line that could not be converted
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
    std::uint32_t programLine = 0;
    SourcePosition position;
    ColumnRange columns;
    std::string name;
    /// What a define stands for.
    std::string value;
};

/// What the converter gathers for who asks for findings. Without one nothing is gathered.
struct CheckRecord {
    /// The text of the line being converted, for the columns of findings.
    TextSpan lineText{};
    std::vector<Finding> findings;
    std::vector<Fact> facts;
    /// Variables of which a fact is there, as they stand in the program's text.
    std::unordered_set<std::string_view> variables;
    /// Some of them, by a number made of their letters: most variables were met a few lines ago.
    std::array<std::string_view, 1024> recentVariables;
    /// Names of the defines that were met, and those that were met again. Only these can have several values.
    std::unordered_set<std::string> defined;
    std::unordered_set<std::string> definedAgain;
    /// The record of the run of which this one has a part; null: it is that.
    const CheckRecord* run = nullptr;
};

/// Whether the ways through the conditionals may have given a name different values.
bool mayHaveSeveralValues(const CheckRecord& record, std::string_view name);

/// Notes that a name is defined.
void enterDefined(CheckRecord& record, std::string_view name);

/// Records a comment that the output does not have, on that line.
void recordDroppedComment(CheckRecord& record, const Program& program,
                          const SourcePosition& position);

/// How much a record held at some time.
struct RecordMark {
    std::size_t findings = 0;
    std::size_t facts = 0;
};

inline RecordMark markOf(const CheckRecord& record) {
    return {record.findings.size(), record.facts.size()};
}

/// Takes off what came behind a mark.
void takeOff(CheckRecord& record, const RecordMark& mark);

/// The columns of the line of source that begins with `lineText`, from the first of `tokens` to the last, as far
/// as they stand in it.
ColumnRange columnsOf(const Program& program, const SourcePosition& position, TextSpan lineText,
                      std::span<const Token> tokens);

/// The same for a piece of text.
ColumnRange columnsOf(const Program& program, const SourcePosition& position, TextSpan lineText,
                      TextSpan text);

}  // namespace torvel
