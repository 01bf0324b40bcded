#include "src/base/check-record.h"

#include <algorithm>

namespace torvel {

namespace {

bool isWithin(TextSpan inner, TextSpan outer) {
    return inner.offset >= outer.offset &&
           inner.offset + inner.length <= outer.offset + outer.length;
}

/// Behind so many bytes of a line nobody asks for columns, and each would cost as much.
constexpr std::uint32_t mostColumns = 1U << 16U;

bool hasText(TokenType type) {
    return !isPreservedDefine(type) && type != macroDefinitionToken;
}

}  // namespace

bool mayHaveSeveralValues(const CheckRecord& record, std::string_view name) {
    const CheckRecord& run = record.run != nullptr ? *record.run : record;
    return !run.definedAgain.empty() && run.definedAgain.contains(std::string(name));
}

void enterDefined(CheckRecord& record, std::string_view name) {
    if (!record.defined.emplace(name).second) {
        record.definedAgain.emplace(name);
    }
}

void takeOff(CheckRecord& record, const RecordMark& mark) {
    record.findings.erase(record.findings.begin() + static_cast<std::ptrdiff_t>(mark.findings),
                          record.findings.end());
    record.facts.erase(record.facts.begin() + static_cast<std::ptrdiff_t>(mark.facts),
                       record.facts.end());
}

void recordDroppedComment(CheckRecord& record, const Program& program,
                          const SourcePosition& position) {
    Finding finding = makeFinding(Check::CommentDropped, position);
    finding.programLine = static_cast<std::uint32_t>(program.list.lines.size());
    finding.lines.push_back(position.lineNumber);
    record.findings.push_back(std::move(finding));
}

ColumnRange columnsOf(const Program& program, const SourcePosition& position, TextSpan lineText,
                      TextSpan text) {
    // A line that lost a block comment was put together anew and does not stand in the file.
    if (position.inclusion == nullptr || text.empty() || !isWithin(text, lineText) ||
        !isWithin(lineText, position.inclusion->file->text)) {
        return {};
    }
    const TextSpan file = position.inclusion->file->text;
    const std::uint32_t length = std::min(text.offset - file.offset, mostColumns);
    const std::string_view before = program.text.view({text.offset - length, length});
    const std::size_t lineEnd = before.find_last_of("\r\n");
    if (lineEnd == std::string_view::npos && text.offset - file.offset > mostColumns) {
        return {};
    }
    const std::size_t lineStart = lineEnd == std::string_view::npos ? 0 : lineEnd + 1;
    const auto first = static_cast<std::uint32_t>(before.size() - lineStart + 1);
    return {first, first + text.length - 1};
}

ColumnRange columnsOf(const Program& program, const SourcePosition& position, TextSpan lineText,
                      std::span<const Token> tokens) {
    TextSpan whole;
    for (const Token& token : tokens) {
        if (!hasText(token.type) || !isWithin(token.text, lineText)) {
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
    return columnsOf(program, position, lineText, whole);
}

}  // namespace torvel
