#include "src/base/source-position.h"

namespace torvel {

namespace {

void appendPlace(const SourcePosition& position, TextBuffer& out) {
    out += position.inclusion->file->displayPath;
    out += ':';
    appendNumber(position.lineNumber, out);
}

}  // namespace

void appendDiagnostic(const SourcePosition& position, std::string_view message, TextBuffer& out) {
    if (position.inclusion != nullptr) {
        appendPlace(position, out);
        out += ": ";
    }
    out += message;
    out += '\n';
    if (position.inclusion == nullptr) {
        return;
    }
    std::string_view introduction = "In file included ";
    SourcePosition from = position.inclusion->includedFrom;
    while (from.inclusion != nullptr) {
        out += introduction;
        out += "from ";
        appendPlace(from, out);
        from = from.inclusion->includedFrom;
        out += from.inclusion != nullptr ? ",\n" : "\n";
        introduction = "                 ";
    }
}

std::string formatDiagnostic(const SourcePosition& position, std::string_view message) {
    TextBuffer text;
    appendDiagnostic(position, message, text);
    return text.toString();
}

}  // namespace torvel
