#include "src/base/source-position.h"

namespace torvel {

namespace {

void appendPlace(std::string& text, const SourcePosition& position) {
    text += position.inclusion->file->displayPath;
    text += ':';
    text += std::to_string(position.lineNumber);
}

}  // namespace

std::string formatDiagnostic(const SourcePosition& position, std::string_view message) {
    std::string text;
    if (position.inclusion != nullptr) {
        appendPlace(text, position);
        text += ": ";
    }
    text += message;
    text += '\n';
    if (position.inclusion == nullptr) {
        return text;
    }
    std::string_view introduction = "In file included ";
    SourcePosition from = position.inclusion->includedFrom;
    while (from.inclusion != nullptr) {
        text += introduction;
        text += "from ";
        appendPlace(text, from);
        from = from.inclusion->includedFrom;
        text += from.inclusion != nullptr ? ",\n" : "\n";
        introduction = "                 ";
    }
    return text;
}

}  // namespace torvel
