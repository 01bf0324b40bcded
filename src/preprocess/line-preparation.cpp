// An ordinary line without names of defines is lexed when it is converted, unless the lexer might refuse it.
// In any other the names are replaced: the plain text between them waits as pieces that are lexed with the
// line, a preserved define is a token already. So are the name of a macro that the line calls, and in the
// body of a macro its arguments: the texts in front of and behind them are substituted by themselves. Line
// feeds in a define's value begin further lines, which have the text and the position of the line that uses
// the define.

#include "src/base/characters.h"
#include "src/lex/lexer.h"
#include "src/preprocess/macro-calls.h"
#include "src/preprocess/preprocessor-run.h"

namespace torvel {

namespace {

/// Lexes one plain piece, its lines each on a line of their own.
void lexLines(PreprocessorRun& run, LineList& list, TextSpan piece, const ScannedLine& line,
              const SourcePosition& position) {
    std::string_view rest = run.program.text.view(piece);
    const char* const begin = rest.data();
    const auto lexPart = [&](std::string_view part) {
        const std::string_view inner = trimBlanks(part);
        lexLine(run.program.text, run.axes,
                piece.subspan(static_cast<std::size_t>(inner.data() - begin), inner.size()),
                position, list.tokens);
        return !inner.empty();
    };
    bool isFirst = true;
    for (std::size_t end = rest.find('\n'); end != std::string_view::npos; end = rest.find('\n')) {
        if (lexPart(rest.substr(0, end)) || isFirst) {
            list.append(position, line.text, {});
            list.beginTokens();
        }
        isFirst = false;
        rest.remove_prefix(end + 1);
    }
    lexPart(rest);
}

/// Appends one plain piece to the line, to be lexed when the line is converted unless the lexer might refuse it
/// or it holds lines of its own. What is part of `unsuspicious` it cannot refuse.
void appendPiece(PreprocessorRun& run, LineList& list, TextSpan piece, TextSpan unsuspicious,
                 const ScannedLine& line, const SourcePosition& position) {
    if (piece.offset - unsuspicious.offset < unsuspicious.length) {
        list.tokens.push_back({TokenType::INVALID, {piece}});
        return;
    }
    const std::string_view text = run.program.text.view(piece);
    if (mayBeRefused(text) || text.find('"') != std::string_view::npos) {
        lexLines(run, list, piece, line, position);
    } else {
        list.tokens.push_back({TokenType::INVALID, {piece}});
    }
}

/// The tokens of the line that is the last of `list`.
std::span<const Token> lastLine(const LineList& list) {
    return list.tokensOf(list.lines.size() - 1);
}

/// Appends what the names of defines in `text` stand for, and the text between them. False: no name is in it,
/// or substitution is switched off.
bool addText(PreprocessorRun& run, TextSpan text, SubstitutedText& out) {
    if (run.substitutes && run.defines.substitute(text, out)) {
        return true;
    }
    out.addPlain(text);
    return false;
}

/// Appends the tokens of substituted text. What stands in front of the name of a macro that is called is lexed
/// now, since it tells whether that is a call. In `unsuspicious` nothing stands that the lexer might refuse.
void appendTokens(PreprocessorRun& run, LineList& list, const SubstitutedText& substituted,
                  bool callsMacro, TextSpan unsuspicious, const ScannedLine& line,
                  const SourcePosition& position) {
    if (substituted.insertedBytes > run.limits.lineExpansion) {
        failAt(position, Message::ExpansionTooLarge);
    }
    list.beginTokens();
    if (!callsMacro) {
        run.defines.visitPieces(substituted.pieces, [&](const Piece& piece) {
            if (piece.kind == Piece::Kind::plain) {
                appendPiece(run, list, piece.text, unsuspicious, line, position);
            } else {
                list.tokens.push_back(piece.token);
            }
        });
        return;
    }
    bool hasCall = true;
    run.defines.visitPieces(substituted.pieces, [&](const Piece& piece) {
        if (piece.kind == Piece::Kind::plain && !hasCall) {
            appendPiece(run, list, piece.text, unsuspicious, line, position);
        } else if (piece.kind == Piece::Kind::plain) {
            lexLines(run, list, piece.text, line, position);
        } else if (piece.token.type == macroCallToken && !isCallPrologue(lastLine(list))) {
            lexLines(run, list, piece.token.text, line, position);
            hasCall = false;
        } else {
            hasCall = hasCall && piece.token.type != macroCallToken;
            list.tokens.push_back(piece.token);
        }
    });
}

/// Tells the passes which names were replaced by text. The line is the last one.
void noteUses(PreprocessorRun& run, const SourcePosition& position, TextSpan lineText) {
    if (run.record->places != nullptr) {
        noteUsePlaces(run, position);
    }
    for (const Defines::Use& use : run.defines.uses()) {
        const std::string_view name = run.program.text.view(use.name);
        if (!use.isPreserved && mayHaveSeveralValues(*run.record, name)) {
            noteFact(run, Fact::Kind::valueUse, position, name);
            DirectiveFact& fact = run.record->directives.back();
            --fact.programLine;  // the line is appended already
            fact.columns = columnsOf(run.program, position, lineText, use.name);
        }
    }
    run.defines.forgetUses();
}

/// The first word in `text` from `from` on, a "$" and the letters, digits and "_" behind it, that stands outside
/// strings and is one of the macro's arguments.
std::string_view nextArgument(std::string_view text, std::size_t from,
                              const MacroArguments& arguments) {
    bool inString = false;
    for (std::size_t at = from; at < text.size(); ++at) {
        inString = inString != (text[at] == '"');
        if (text[at] == '$' && !inString) {
            std::size_t end = at + 1;
            while (end < text.size() && isWordCharacter(text[end])) {
                ++end;
            }
            const std::string_view word = text.substr(at, end - at);
            if (arguments.contains(word)) {
                return word;
            }
        }
    }
    return text.substr(text.size());
}

}  // namespace

bool substitute(PreprocessorRun& run, TextSpan text, SubstitutedText& out) {
    out.clear();
    return addText(run, text, out);
}

void prepareLine(PreprocessorRun& run, const ScannedLine& line, const SourcePosition& position) {
    LineList& list = run.program.lines.last();
    list.append(position, line.text, line.comment);
    const TextSpan code = line.code;
    if (code.empty()) {
        return;
    }
    SubstitutedText& substituted = run.substitutedLine;
    substituted.clear();
    const CallPlace call = findMacroCall(run, line.codeText);
    if (call.length != 0) {
        addText(run, code.subspan(0, call.start), substituted);
        substituted.addToken({macroCallToken, {code.subspan(call.start, call.length)}});
        const std::size_t end = call.start + call.length;
        addText(run, code.subspan(end, code.length - end), substituted);
    } else if (!run.substitutes || !run.defines.substitute(code, line.codeText, substituted)) {
        if (line.hasOddBytes || !list.setCode(code.length)) {
            list.beginTokens();
            lexLine(run.program.text, run.axes, code, position, list.tokens);
        }
        return;
    }
    if (run.record != nullptr) [[unlikely]] {
        noteUses(run, position, line.text);
    }
    // Strings stand in one piece, and end there, unless the name of a macro is taken out.
    const bool isUnsuspicious = call.length == 0 && !line.hasOddBytes;
    appendTokens(run, list, substituted, call.length != 0, isUnsuspicious ? code : TextSpan(), line,
                 position);
}

void prepareBodyLine(PreprocessorRun& run, LineList& list, TextSpan code,
                     const SourcePosition& position, const MacroArguments& arguments) {
    list.append(position, code, {});
    const std::string_view text = run.program.text.view(code);
    const auto startOf = [&](std::string_view part) {
        return static_cast<std::size_t>(part.data() - text.data());
    };
    SubstitutedText& substituted = run.substitutedLine;
    substituted.clear();
    std::size_t done = 0;
    std::string_view argument = nextArgument(text, 0, arguments);
    // The name of a macro has no argument in it.
    const CallPlace call = findMacroCall(run, text.substr(0, startOf(argument)));
    if (call.length != 0) {
        addText(run, code.subspan(0, call.start), substituted);
        substituted.addToken({macroCallToken, {code.subspan(call.start, call.length)}});
        done = call.start + call.length;
    }
    for (; !argument.empty(); argument = nextArgument(text, done, arguments)) {
        addText(run, code.subspan(done, startOf(argument) - done), substituted);
        substituted.addToken(
            {TokenType::VARIABLE, {code.subspan(startOf(argument), argument.size())}});
        done = startOf(argument) + argument.size();
    }
    addText(run, code.subspan(done, code.length - done), substituted);
    if (run.record != nullptr) [[unlikely]] {
        noteUses(run, position, code);
    }
    appendTokens(run, list, substituted, call.length != 0, {}, {code, code, {}, text, 0, false},
                 position);
}

}  // namespace torvel
