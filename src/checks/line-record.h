#pragma once

#include "src/expr/parser-core.h"
#include "src/stmt/statement.h"

// The record of a conversion, line by line: what the stages noted while they converted a line, and what became of
// it, make the line's findings.

namespace torvel {

/// What the record and the log held in front of a line.
struct LineMark {
    RecordMark record;
    std::size_t messages = 0;

    bool operator==(const LineMark&) const = default;
};

/// Begins the line `number` of the program.
inline void beginLine(const ConversionContext& context, const SourceLine& line,
                      std::size_t number) {
    context.record->lineText = line.text;
    context.record->programLine = static_cast<std::uint32_t>(number);
}

/// Whether there is something to say of a line's comment: it is kept, and ends in a backslash.
inline bool isCommentToNote(const ConversionContext& context, const SourceLine& line) {
    return !line.comment.empty() && context.program.text.view(line.comment).ends_with('\\');
}

inline LineMark markNow(const ConversionContext& context) {
    return {markOf(*context.record), context.log.size()};
}

/// Notes a variable where it stands first.
inline void noteVariable(CheckRecord& record, std::string_view name, const VariablePlace& place) {
    if (record.recordedVariables->insert(name)) {
        record.variables.push_back(place);
    }
}

/// Notes the variables of the line that was begun.
inline void recordVariables(const ConversionContext& context, std::span<const Token> tokens) {
    CheckRecord& record = *context.record;
    for (const Token& token : tokens) {
        if (token.type == TokenType::VARIABLE) {
            noteVariable(record, context.program.text.view(token.text),
                         {record.programLine, record.lineText, token.text});
        }
    }
}

/// Whether there is nothing to record of a converted line but its variables, as with most lines. `mark` is what there
/// was in front of it.
inline bool hasVariablesAtMost(const ConversionContext& context, const LineMark& mark,
                               const SourceLine& line, std::span<const Token> tokens,
                               std::string_view text, BlockEffect effect) {
    return effect == BlockEffect::None && tokens.size() > 1 &&
           tokens[0].type != macroDefinitionToken && !mayBeginWithCode(text) &&
           !isCommentToNote(context, line) && context.record->places == nullptr &&
           markNow(context) == mark;
}

/// What recordLine() does for every other line.
void recordWholeLine(ConversionContext& context, LineMark& mark, const SourceLine& line,
                     const LineTokens& tokens, bool isConverted, std::string_view text,
                     BlockEffect effect);

/// Completes the findings of the line that was begun, which was converted from `tokens` just now. `mark` was what there
/// was in front of it, and becomes what there is behind it.
inline void recordLine(ConversionContext& context, LineMark& mark, const SourceLine& line,
                       const LineTokens& tokens, bool isConverted, std::string_view text,
                       BlockEffect effect) {
    if (isConverted && hasVariablesAtMost(context, mark, line, tokens, text, effect)) {
        recordVariables(context, tokens);
    } else {
        recordWholeLine(context, mark, line, tokens, isConverted, text, effect);
    }
}

/// Appends the record of further lines of the program, whose messages begin at number `firstMessage` of the run.
void append(CheckRecord& record, CheckRecord&& further, std::size_t firstMessage);

/// Looks at the program as a whole.
void finishRecord(const Program& program, CheckRecord& record);

}  // namespace torvel
