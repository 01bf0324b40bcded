#include "src/preprocess/preprocessor.h"

#include "src/base/parse-exception.h"
#include "src/preprocess/preprocessor-run.h"

namespace torvel {

namespace {

/// The lines of one file. The position of the last line is returned.
SourcePosition preprocessLines(PreprocessorRun& run, const Inclusion& inclusion) {
    LineSplitter splitter(run.program, inclusion, run.record);
    ScannedLine line;
    try {
        while (splitter.next(line)) {
            const std::string_view code = run.program.text.view(line.code);
            if (!code.starts_with('#') || !runDirective(run, splitter, inclusion, line)) {
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
    return {&inclusion, splitter.lineNumber()};
}

}  // namespace

void preprocessFile(PreprocessorRun& run, std::string_view path,
                    const SourcePosition& includedFrom) {
    const SourceFile& file = run.files.load(path, includedFrom);
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

    const SourcePosition last = preprocessLines(run, inclusion);
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
        run.program.list.append(last, {}, marker);
    }
}

void noteFact(PreprocessorRun& run, Fact::Kind kind, const SourcePosition& position,
              std::string_view name, std::string_view value) {
    if (run.record == nullptr ||
        (kind == Fact::Kind::valueUse && !mayHaveSeveralValues(*run.record, name))) {
        return;
    }
    if (kind == Fact::Kind::define || kind == Fact::Kind::lostDefine) {
        enterDefined(*run.record, name);
    }
    Fact fact;
    fact.kind = kind;
    fact.programLine = static_cast<std::uint32_t>(run.program.list.lines.size());
    fact.position = position;
    fact.name = run.record->texts.keep(name);
    fact.value = run.record->texts.keep(value);
    run.record->facts.push_back(fact);
}

void appendDirectiveLine(PreprocessorRun& run, const SourcePosition& position, TextSpan source,
                         TextSpan comment, const Token& token) {
    run.program.list.append(position, source, comment);
    run.program.list.beginTokens();
    run.program.list.tokens.push_back(token);
}

void preprocessProgram(Program& program, std::string_view path, const AxisNames& axes,
                       const Limits& limits, const PredefinedTable& predefined,
                       const FileSource& source, CheckRecord* record) {
    PreprocessorRun run(program, axes, limits, predefined, source);
    run.record = record;
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
