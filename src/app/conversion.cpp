#include "src/app/conversion.h"

#include <algorithm>

#include "src/lex/characters.h"

namespace torvel {

namespace {

void appendMarker(const Program& program, const SourceLine& line, std::string& out) {
    out += "#error_unconvertible (";
    out += line.inclusion->file->name;
    out += ':';
    out += std::to_string(line.lineNumber);
    out += "): ";
    out += program.text.view(line.text);
}

}  // namespace

void OutputLayout::write(const Program& program, const SourceLine& line, const StatementText* text,
                         BlockEffect effect, std::string& out) {
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
    if (text == nullptr) {
        appendMarker(program, line, out);
    } else {
        out += trimBlanks(*text);
        const bool isBlankLine =
            std::all_of(out.begin() + static_cast<std::ptrdiff_t>(start), out.end(), isWhiteSpace);
        if (!line.comment.empty()) {
            out += isBlankLine ? "// " : " // ";
            out += program.text.view(line.comment);
        } else if (isBlankLine) {
            out.resize(start);
        }
    }
    out += '\n';
}

void convertProgram(ConversionContext& context, OutputFile& output) {
    const LineList& list = context.program.list;
    OutputLayout layout;
    StatementText text;
    for (std::size_t number = 0; number < list.lines.size(); ++number) {
        const SourceLine& line = list.lines[number];
        context.position = line.position();
        BlockEffect effect{};
        const bool isConverted = convertStatement(context, list.tokensOf(number), text, effect);
        layout.write(context.program, line, isConverted ? &text : nullptr, effect, output.buffer());
    }
}

}  // namespace torvel
