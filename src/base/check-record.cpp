#include "src/base/check-record.h"

#include <algorithm>

namespace torvel {

namespace {

/// Behind so many bytes of a line nobody asks for columns, and each would cost as much.
constexpr std::uint32_t mostColumns = 1U << 16U;

bool hasText(TokenType type) {
    return !isPreservedDefine(type) && type != macroDefinitionToken;
}

}  // namespace

bool mayHaveSeveralValues(const CheckRecord& record, std::string_view name) {
    return !record.definedAgain.empty() && record.definedAgain.contains(name);
}

void enterDefined(CheckRecord& record, std::string_view name) {
    if (!record.defined.insert(name)) {
        record.definedAgain.insert(name);
    }
}

void takeOff(CheckRecord& record, const RecordMark& mark) {
    record.findings.truncate(mark.findings);
    record.facts.truncate(mark.facts);
}

void recordDroppedComment(CheckRecord& record, const Program& program,
                          const SourcePosition& position) {
    record.droppedComments.push_back({position, static_cast<std::uint32_t>(program.lines.size())});
}

ColumnRange columnsOf(const Program& program, const SourcePosition& position, TextSpan lineText,
                      TextSpan text) {
    // A line that lost a block comment was put together anew and does not stand in the file.
    if (position.inclusion == nullptr || text.empty() || !text.isWithin(lineText) ||
        !lineText.isWithin(position.inclusion->file->text)) {
        return {};
    }
    const TextSpan file = position.inclusion->file->text;
    const std::uint32_t length = std::min(text.offset - file.offset, mostColumns);
    const std::string_view before = program.text.view({text.offset - length, length});
    const auto lineStart =
        std::find_if(before.rbegin(), before.rend(), [](char c) { return c == '\n' || c == '\r'; });
    if (lineStart == before.rend() && text.offset - file.offset > mostColumns) {
        return {};
    }
    const auto first = static_cast<std::uint32_t>(lineStart - before.rbegin() + 1);
    return {first, first + text.length - 1};
}

TextSpan placeOf(std::span<const Token> tokens, TextSpan lineText) {
    TextSpan whole;
    for (const Token& token : tokens) {
        if (!hasText(token.type) || !token.text.isWithin(lineText)) {
            continue;
        }
        TextSpan text = token.text;
        if (token.type == TokenType::STRING_LITERAL) {
            text = {text.offset - 1, text.length + 2};  // its quotes
        }
        if (whole.empty()) {
            whole = text;
        }
        const std::uint32_t begin = std::min(whole.offset, text.offset);
        const std::uint32_t end = std::max(whole.offset + whole.length, text.offset + text.length);
        whole = {begin, end - begin};
    }
    return whole;
}

}  // namespace torvel
