#include "src/preprocess/preprocessor.h"

#include <functional>
#include <optional>

#include "src/base/parse-exception.h"
#include "src/preprocess/preprocessor-run.h"

namespace torvel {

namespace {

/// Completes the last part of the program if it is full, and lets others have it.
void handOverFullPart(PreprocessorRun& run) {
    ProgramLines& lines = run.program.lines;
    if (lines.isPartFull()) {
        const ProgramPart& part = lines.part(lines.partCount() - 1);
        lines.beginPart();
        if (run.taker) {
            run.taker(part);
        }
    }
}

/// The lines of one file, which are counted. The position of the last line is returned.
SourcePosition preprocessLines(PreprocessorRun& run, const Inclusion& inclusion, SourceFile& file) {
    LineSplitter splitter(run.program, inclusion, run.record);
    ScannedLine line;
    try {
        while (splitter.next(line)) {
            handOverFullPart(run);
            if (!line.codeText.starts_with('#') || !runDirective(run, splitter, inclusion, line)) {
                prepareLine(run, line, {&inclusion, line.lineNumber});
            }
        }
    } catch (const TextStoreFull&) {
        failAt({&inclusion, line.lineNumber}, Message::ProgramTooLarge);
    } catch (const ParseException&) {
        // An error of the file's lines as such comes before any error of what they say.
        splitter.finish();
        throw;
    }
    file.codeLines = splitter.codeLines();
    return {&inclusion, splitter.lineNumber()};
}

}  // namespace

void preprocessFile(PreprocessorRun& run, std::string_view path,
                    const SourcePosition& includedFrom) {
    SourceFile& file = run.files.load(path, includedFrom);
    if (++run.includeDepth > run.limits.includeDepth) {
        failAt(includedFrom, Message::IncludesNestedTooDeeply);
    }
    if (includedFrom.inclusion != nullptr && ++run.filesIncluded > run.limits.includedFiles) {
        failAt(includedFrom, Message::TooManyFiles);
    }
    run.programBytes += file.text.length;
    if (run.programBytes > run.limits.programText) {
        failAt(includedFrom, Message::ProgramTooLarge);
    }
    const Inclusion& inclusion =
        run.program.inclusions.emplace_back(Inclusion{&file, includedFrom});

    const SourcePosition last = preprocessLines(run, inclusion, file);
    if (file.endsAtNul) {
        run.program.nulCharacters.push_back(last);
    }
    if (!run.conditions.empty()) {
        failAt(last, Message::EndifExpected);
    }
    --run.includeDepth;
    if (includedFrom.inclusion != nullptr) {
        const TextSpan marker =
            run.program.text.add("#include \"" + std::string(path) + "\" // end");
        run.program.lines.last().append(last, {}, marker);
    }
}

namespace {

/// The place of a name in the file of a directive.
TextSpan spanInFile(const PreprocessorRun& run, const SourcePosition& position,
                    std::string_view name) {
    const TextSpan file = position.inclusion->file->text;
    const std::string_view text = run.program.text.view(file);
    const std::less<> isBefore;
    if (isBefore(name.data(), text.data()) ||
        isBefore(text.data() + text.size(), name.data() + name.size())) {
        return {};
    }
    return file.subspan(static_cast<std::size_t>(name.data() - text.data()), name.size());
}

std::optional<NamePlace::Kind> conditionalPlace(Fact::Kind kind) {
    switch (kind) {
        case Fact::Kind::ifdef: return NamePlace::Kind::opensConditional;
        case Fact::Kind::elif:
        case Fact::Kind::otherwise: return NamePlace::Kind::continuesConditional;
        case Fact::Kind::endif: return NamePlace::Kind::closesConditional;
        default: return std::nullopt;
    }
}

/// Notes where the name of a directive stands, and those in the value of a define.
void noteNamePlaces(PreprocessorRun& run, const DirectiveFact& fact, std::string_view name) {
    using Kind = Fact::Kind;
    using Place = NamePlace::Kind;
    const bool isDefine = fact.kind == Kind::define || fact.kind == Kind::lostDefine;
    if (fact.kind == Kind::valueUse) {
        return;
    }
    NamePlace place;
    if (const auto kind = conditionalPlace(fact.kind)) {
        place.kind = *kind;
        place.position = fact.position;
        run.record->places->push_back(place);
    }
    if (fact.name.empty()) {
        return;
    }
    place.kind = fact.kind == Kind::define       ? Place::define
                 : fact.kind == Kind::lostDefine ? Place::lostDefine
                                                 : Place::name;
    place.role = isDefine ? NamePlace::Role::definition : NamePlace::Role::use;
    place.position = fact.position;
    place.lineText = place.place = spanInFile(run, fact.position, name);
    place.name = fact.name;
    place.value = isDefine ? fact.value : std::string_view();
    run.record->places->push_back(place);
    if (isDefine) {
        noteUsePlaces(run, fact.position);
    }
}

}  // namespace

void noteUsePlaces(PreprocessorRun& run, const SourcePosition& position) {
    for (const Defines::Use& use : run.defines.uses()) {
        NamePlace place;
        place.kind = NamePlace::Kind::name;
        place.position = position;
        place.name = run.program.text.view(use.name);
        place.lineText = place.place = spanInFile(run, position, place.name);
        run.record->places->push_back(place);
    }
}

void noteFact(PreprocessorRun& run, Fact::Kind kind, const SourcePosition& position,
              std::string_view name, std::string_view value) {
    if (run.record == nullptr ||
        (kind == Fact::Kind::valueUse && !mayHaveSeveralValues(*run.record, name))) {
        return;
    }
    DirectiveFact fact;
    fact.kind = kind;
    fact.isDirective = true;
    fact.programLine = static_cast<std::uint32_t>(run.program.lines.size());
    fact.position = position;
    fact.name = run.record->texts.keep(name);
    fact.value = run.record->texts.keep(value);
    if (kind == Fact::Kind::define || kind == Fact::Kind::lostDefine) {
        enterDefined(*run.record, fact.name);
    }
    run.record->directives.push_back(fact);
    if (run.record->places != nullptr) {
        noteNamePlaces(run, fact, name);
    }
}

void appendDirectiveLine(PreprocessorRun& run, const SourcePosition& position, TextSpan source,
                         TextSpan comment, const Token& token) {
    LineList& list = run.program.lines.last();
    list.append(position, source, comment);
    list.beginTokens();
    list.tokens.push_back(token);
}

void preprocessProgram(Program& program, std::string_view path, const AxisNames& axes,
                       const Limits& limits, const PredefinedTable& predefined,
                       const FileSource& source, CheckRecord* record, const PartTaker& taker) {
    PreprocessorRun run(program, axes, limits, predefined, source);
    run.record = record;
    run.taker = taker;
    if (record != nullptr) {
        run.defines.gatherUses();
    }
    try {
        preprocessFile(run, path, {});
    } catch (const TextStoreFull&) {
        failAt({}, Message::ProgramTooLarge);
    }
}

}  // namespace torvel
