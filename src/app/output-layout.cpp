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

/// The text, trimmed, and the comment behind it. False: nothing but white space came of it.
bool appendConverted(const Program& program, const SourceLine& line, std::string_view text,
                     TextBuffer& out) {
    const std::string_view trimmed = trimBlanks(text);
    const bool isBlankLine = std::all_of(trimmed.begin(), trimmed.end(), isWhiteSpace);
    out.appendStored(trimmed);
    if (!line.comment.empty()) {
        if (!isBlankLine) {
            out += ' ';
        }
        out += "// ";
        out.appendStored(program.text.view(line.comment));
    }
    return !isBlankLine || !line.comment.empty();
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
    const std::size_t start = out.size();
    out.append(level_, '\t');
    if (opens) {
        ++level_;
    }
    if (!text) {
        appendMarker(program, line, list.positionOf(number), out);
    } else if (!appendConverted(program, line, *text, out)) {
        out.truncate(start);  // an empty line has no tabs
    }
    out += '\n';
}

}  // namespace torvel
