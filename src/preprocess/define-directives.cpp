#include "src/preprocess/define-directives.h"

#include <algorithm>
#include <optional>
#include <string>

#include "src/base/characters.h"
#include "src/base/output-marks.h"
#include "src/preprocess/classification.h"

namespace torvel {

namespace {

/// Two texts with a blank between them; the second may be empty.
std::string joinWords(std::string_view first, std::string_view second) {
    std::string joined(first);
    if (!second.empty()) {
        joined += ' ';
        joined += second;
    }
    return joined;
}

/// A directive of several lines: `prefix` in front of each, and " \" behind each but the last.
std::string continuedText(std::string_view text, std::string_view prefix = {}) {
    std::string continued(prefix);
    for (char c : text) {
        if (c == '\n') {
            continued += " \\\n";
            continued += prefix;
        } else {
            continued += c;
        }
    }
    return continued;
}

/// A directive that cannot be converted.
std::string unconvertedText(std::string_view text) {
    return continuedText(text, std::string(unconvertibleMarker) + ' ');
}

/// The value as text: a preserved define in it counts with its own value.
std::string textOf(const PreprocessorRun& run, const SubstitutedText& value) {
    std::string text;
    run.defines.visitPieces(value.pieces, [&](const Piece& piece) {
        text += piece.kind == Piece::Kind::token ? run.program.valueOf(piece.token)
                                                 : run.program.text.view(piece.text);
    });
    return text;
}

/// The kind and Torvel text of `value`, which is `substituted` with its names replaced; nothing if Torvel
/// cannot keep it. A value that is one use of a preserved define is of that define's kind. Any other with
/// names in it is put together to be judged, so there is a limit for it.
std::optional<Classification> classifyValue(const PreprocessorRun& run, TextSpan value,
                                            bool hasNames, const SubstitutedText& substituted) {
    if (!hasNames) {
        return classifyDefine(run.program.text.view(value), run.axes);
    }
    if (substituted.pieces.size() == 1 && substituted.pieces[0].kind == Piece::Kind::token) {
        const Token& alias = substituted.pieces[0].token;
        return Classification{alias.type, std::string(run.program.valueOf(alias))};
    }
    if (substituted.bytes() > run.limits.composedValue) {
        return std::nullopt;
    }
    const std::string text = textOf(run, substituted);
    return classifyDefine(trimBlanks(text), run.axes);
}

/// The predefined text that a value is made of; nothing: the program wrote some of it itself.
std::optional<PredefinedText> predefinedTextOf(const PreprocessorRun& run,
                                               const SubstitutedText& value) {
    std::optional<PredefinedText> found;
    bool isAllPredefined = true;
    run.defines.visitPieces(value.pieces, [&](const Piece& piece) {
        const TextSpan text = piece.kind != Piece::Kind::token ? piece.text
                              : isPreservedDefine(piece.token.type)
                                  ? run.program.defineTexts[piece.token.number].value
                                  : piece.token.text;
        if (!trimBlanks(run.program.text.view(text)).empty()) {
            found = run.program.predefinedTexts.find(text);
            isAllPredefined = isAllPredefined && found;
        }
    });
    return isAllPredefined ? found : std::nullopt;
}

}  // namespace

void runDefine(PreprocessorRun& run, DirectiveLine& directive) {
    const std::string_view name = directive.readName("\\");
    const DirectiveLine::Body body = directive.readBody();

    SubstitutedText& value = run.substitutedValue;
    const bool hasNames = substitute(run, body.text, value);
    const std::uint64_t bytes = value.bytes();
    if (bytes > run.limits.defineExpansion) {
        failAt(directive.position(), Message::ExpansionTooLarge);
    }

    const std::string head = "#define " + std::string(name);
    Expansion expansion;
    std::string directiveText;
    if (const auto preserved = classifyValue(run, body.text, hasNames, value)) {
        const TextSpan nameText = run.program.text.add(name);
        for (const Defines::Use& use : run.defines.uses()) {
            noteFact(run, Fact::Kind::valueUse, directive.position(),
                     run.program.text.view(use.name));
        }
        noteFact(run, Fact::Kind::define, directive.position(), name, preserved->value);
        const TextSpan valueText = run.program.text.add(preserved->value);
        if (run.record != nullptr && hasNames) {
            if (const auto text = predefinedTextOf(run, value)) {
                run.program.predefinedTexts.enter(valueText, text->isComposed);
            }
        }
        expansion = run.defines.storePreserved(preserved->type, {nameText, valueText});
        directiveText = continuedText(joinWords(head, preserved->value));
    } else {
        noteFact(run, Fact::Kind::lostDefine, directive.position(), name,
                 run.program.text.view(body.text));
        expansion = run.defines.storeExpansion(value, static_cast<std::uint32_t>(bytes));
        directiveText = unconvertedText(joinWords(head, run.program.text.view(body.text)));
    }
    run.defines.forgetUses();
    run.defines.table().enter(name, DefineTable::Kind::define, expansion);
    appendDirectiveLine(run, directive.position(), directive.source(), body.comment,
                        {TokenType::CONVERSION_TEXT, {run.program.text.add(directiveText)}});
}

namespace {

/// ($a, $b): "(" or "[" opens the list, ")" closes it. Reads up to the fault that is returned, if there is one.
std::optional<Message> readArgumentList(DirectiveLine& directive, MacroArguments& arguments) {
    directive.skipBlanks();
    if (directive.atEnd() || (directive.current() != '(' && directive.current() != '[')) {
        return Message::MacroArgumentListExpected;
    }
    directive.advance();
    directive.skipBlanks();
    if (!directive.atEnd() && directive.current() == ')') {
        directive.advance();
        return std::nullopt;
    }
    while (true) {
        directive.skipBlanks();
        if (directive.atEnd() || directive.current() != '$') {
            return Message::MacroArgumentExpected;
        }
        arguments.add(directive.readUntil(",)\\"));
        directive.skipBlanks();
        const char separator = directive.atEnd() ? '\0' : directive.current();
        if (separator != ',' && separator != ')') {
            return Message::MacroParenthesisExpected;
        }
        directive.advance();
        if (separator == ')') {
            return std::nullopt;
        }
    }
}

MacroArguments readArguments(DirectiveLine& directive) {
    MacroArguments arguments;
    const std::optional<Message> fault = readArgumentList(directive, arguments);
    // An argument that stands there twice comes before whatever is wrong behind it.
    if (!arguments.index()) {
        directive.fail(Message::MacroArgumentRepeated);
    }
    if (fault) {
        directive.fail(*fault);
    }
    return arguments;
}

}  // namespace

void runMacro(PreprocessorRun& run, DirectiveLine& directive) {
    const std::string_view name = directive.readName("\\(");
    const MacroArguments arguments = readArguments(directive);
    const DirectiveLine::Body body = directive.readBody();

    std::string head = "#macro " + std::string(name) + "(";
    const char* separator = "";
    for (const std::string_view argument : arguments.list()) {
        head += separator;
        head += argument;
        separator = ", ";
    }
    head += ')';

    const auto number = static_cast<std::uint32_t>(run.program.macros.size());
    const std::string_view text = run.program.text.view(body.text);
    Macro& macro = run.program.macros.append();
    macro.head = run.program.text.add(head);
    macro.unconverted = run.program.text.add(unconvertedText(joinWords(head, text)));

    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        const TextSpan code = body.text.subspan(start, end - start);
        prepareBodyLine(run, macro.lines, code, directive.position(), arguments);
        start = end + 1;
    }

    run.defines.table().enter(name, DefineTable::Kind::macro);
    appendDirectiveLine(run, directive.position(), directive.source(), body.comment,
                        makeNumberedToken(macroDefinitionToken, number));
}

}  // namespace torvel
