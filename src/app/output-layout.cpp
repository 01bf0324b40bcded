#include "src/app/output-layout.h"

#include <algorithm>

#include "src/base/characters.h"
#include "src/base/output-marks.h"

namespace torvel {

namespace {

void appendMarker(const Program& program, const SourceLine& line, const SourcePosition& position,
                  TextBuffer& out) {
    out += unconvertibleMarker;
    out += " (";
    out += position.inclusion->file->name;
    out += ':';
    appendNumber(position.lineNumber, out);
    out += "): ";
    out.appendStored(program.text.view(line.text));
}

bool isBlankLine(std::string_view text) {
    return std::all_of(text.begin(), text.end(), isWhiteSpace);
}

/// Tabs, the text and the comment behind it.
void appendConverted(std::string_view text, std::string_view comment, unsigned level,
                     TextBuffer& out) {
    constexpr std::size_t markerSize = 4;
    TextBuffer::Tail line = out.tail(level + text.size() + markerSize + comment.size() + 1);
    const bool isEmpty = isBlankLine(text);
    if (!isEmpty || !comment.empty()) {  // an empty line has no tabs
        line.append(level, '\t');
        line.appendStored(text);
    }
    if (!comment.empty()) {
        if (!isEmpty) {
            line.append(' ');
        }
        line.append('/');
        line.append('/');
        line.append(' ');
        line.appendStored(comment);
    }
    line.append('\n');
    out.endAt(line);
}

}  // namespace

void OutputLayout::write(const Program& program, const LineList& list, std::size_t number,
                         std::optional<std::string_view> text, BlockEffect effect,
                         TextBuffer& out) {
    const SourceLine& line = list.lines[number];
    const bool closes = effect == BlockEffect::Closes || effect == BlockEffect::Continues;
    const bool opens = effect == BlockEffect::Opens || effect == BlockEffect::Continues;
    if (closes && level_ > 0) {
        --level_;
    }
    const unsigned level = level_;
    if (opens) {
        ++level_;
    }
    if (text) {
        appendConverted(trimBlanks(*text), program.text.view(line.comment), level, out);
    } else {
        out.append(level, '\t');
        appendMarker(program, line, list.positionOf(number), out);
        out += '\n';
    }
}

}  // namespace torvel
