// An ordinary line becomes tokens: its code is cut at the names of defines, the plain text between
// them is lexed, a preserved define is a token already. Line feeds in a define's value begin further
// lines, which have the text and the position of the line that uses the define.

#include "src/lex/characters.h"
#include "src/lex/lexer.h"
#include "src/preprocess/preprocessing.h"

namespace torvel {

namespace {

/// Lexes one plain piece, its lines each on a line of their own.
void lexPiece(Preprocessing& run, LineList& list, TextSpan piece, const ScannedLine& line,
              const SourcePosition& position) {
    std::string_view rest = run.program.text.view(piece);
    const char* const begin = rest.data();
    const auto lexPart = [&](std::string_view part) {
        const std::string_view inner = trimBlanks(part);
        lexLine(run.program, list, run.axes,
                piece.part(static_cast<std::size_t>(inner.data() - begin), inner.size()), position);
        return !inner.empty();
    };
    bool isFirst = true;
    for (std::size_t end = rest.find('\n'); end != std::string_view::npos; end = rest.find('\n')) {
        if (lexPart(rest.substr(0, end)) || isFirst) {
            appendLine(list, position, line.text, {});
        }
        isFirst = false;
        rest.remove_prefix(end + 1);
    }
    lexPart(rest);
}

/// The length of the name if the line calls a macro: its first word is a macro's name and "(" follows.
std::size_t macroCallLength(Preprocessing& run, std::string_view code) {
    if (!run.substitutes || run.program.macros.empty()) {
        return 0;
    }
    std::size_t length = 0;
    while (length < code.size() && !isWhiteSpace(code[length]) && code[length] != '(') {
        ++length;
    }
    const std::string_view rest = trimBlanks(code.substr(length));
    return rest.starts_with('(') && run.defines.isMacro(code.substr(0, length)) ? length : 0;
}

}  // namespace

bool substitute(Preprocessing& run, TextSpan text, Defines::Cut& cut) {
    if (run.substitutes && run.defines.substitute(text, cut)) {
        return true;
    }
    cut = Defines::wholeText(text);
    return false;
}

void prepareLine(Preprocessing& run, LineList& list, const ScannedLine& line,
                 const SourcePosition& position) {
    appendLine(list, position, line.text, line.comment);
    TextSpan code = line.code;
    if (code.empty()) {
        return;
    }
    if (const std::size_t name = macroCallLength(run, run.program.text.view(code)); name != 0) {
        list.tokens.push_back({macroCallToken, code.part(0, name)});
        code = code.part(name, code.length - name);
    }
    Defines::Cut& cut = run.lineCut;
    if (!run.substitutes || !run.defines.substitute(code, cut)) {
        lexLine(run.program, list, run.axes, code, position);
        return;
    }
    if (cut.insertedBytes > run.limits.lineExpansion) {
        failAt(position, Message::ExpansionTooLarge);
    }
    run.defines.visitPieces(cut.pieces, [&](const Piece& piece) {
        if (piece.kind == Piece::Kind::define) {
            list.tokens.push_back(piece.token);
        } else {
            lexPiece(run, list, piece.token.text, line, position);
        }
    });
}

}  // namespace torvel
