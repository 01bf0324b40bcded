#pragma once

#include "src/base/parse-exception.h"
#include "src/expr/parser-core.h"

// The record of a conversion, line by line: what the stages noted while they converted a line, and what became of
// it, make the line's findings.

namespace torvel {

/// What the record and the log held in front of a line.
struct LineMark {
    RecordMark record;
    std::size_t messages = 0;
};

/// Begins the line `number` of the program.
LineMark beginLine(const ConversionContext& context, std::size_t number);

/// Completes the findings of the line `number` of the program, which was converted from `tokens` just now.
void recordLine(ConversionContext& context, const LineMark& mark, std::size_t number,
                std::span<const Token> tokens, bool isConverted, std::string_view text,
                BlockEffect effect);

/// Appends the record of further lines.
void append(CheckRecord& record, CheckRecord&& further);

/// Looks at the program as a whole and puts all findings into the order of its lines.
void finishRecord(const Program& program, CheckRecord& record);

/// The finding of a program that could not be read.
Finding unreadableFinding(const ParseException& error);

}  // namespace torvel
