// The directives, a routine each, and the table of their words. A directive that Torvel has too is
// kept: a line with its Torvel text stands in its place.

#include <string>

#include "src/base/characters.h"
#include "src/preprocess/define-directives.h"
#include "src/preprocess/directive-line.h"
#include "src/preprocess/preprocessor-run.h"

namespace torvel {

namespace {

/// The comment of the directive does not come out.
void dropComment(PreprocessorRun& run, const DirectiveLine& directive) {
    if (run.record != nullptr && !directive.comment().empty()) {
        recordDroppedComment(*run.record, run.program, directive.position());
    }
}

/// Keeps the directive as "#word", or as "#word NAME".
void preserveDirective(PreprocessorRun& run, const DirectiveLine& directive, std::string_view word,
                       std::string_view name = {}) {
    dropComment(run, directive);
    std::string text = "#" + std::string(word);
    if (!name.empty()) {
        text += ' ';
        text += name;
    }
    appendDirectiveLine(run, directive.position(), directive.source(), {},
                        {TokenType::CONVERSION_TEXT, {run.program.text.add(text)}});
}

/// #include "path"
/// The lines of the file take the directive's place, between two comments.
void runInclude(PreprocessorRun& run, DirectiveLine& directive) {
    const std::string path(directive.readQuoted());
    directive.expectEnd();
    if (!directive.comment().empty()) {
        run.program.lines.last().append(directive.position(), directive.source(),
                                        directive.comment());
    }
    run.program.lines.last().append(directive.position(), directive.source(),
                                    run.program.text.add("#include \"" + path + "\" // start"));
    preprocessFile(run, path, directive.position());
}

/// #undef NAME
void runUndef(PreprocessorRun& run, DirectiveLine& directive) {
    const std::string_view name = directive.readIdentifier();
    directive.expectEnd();
    run.defines.table().enter(name, DefineTable::Kind::undefined);
    noteFact(run, Fact::Kind::undef, directive.position(), name);
    preserveDirective(run, directive, directive.name(), name);
}

/// #subst and #nosubst
void runSubst(PreprocessorRun& run, DirectiveLine& directive) {
    directive.expectEnd();
    dropComment(run, directive);
    run.substitutes = directive.name() == "subst";
}

/// What the passes are told of a condition's name: "!" where it must not be defined, "*" where the controller
/// defines it.
std::string conditionValue(const PreprocessorRun& run, std::string_view name, bool isNegated) {
    std::string value = isNegated ? "!" : "";
    if (run.record != nullptr && run.defines.isPredefined(name)) {
        value += '*';
    }
    return value;
}

/// #ifdef NAME and #ifndef NAME
void runIfdef(PreprocessorRun& run, DirectiveLine& directive) {
    const std::string_view name = directive.readName("\\");
    directive.expectEnd();
    const bool holds = run.defines.isDefined(name) == (directive.name() == "ifdef");
    noteFact(run, Fact::Kind::ifdef, directive.position(), name,
             conditionValue(run, name, directive.name() == "ifndef"));
    run.conditions.push_back({holds, false});
    run.defines.table().openScope(holds);
    preserveDirective(run, directive, directive.name(), name);
}

/// Ends the branch of the innermost conditional, so that its names are out of sight, and begins the
/// next one: it is active if no branch's condition held before and `holds` says that its own does.
template <typename Condition>
void beginBranch(PreprocessorRun& run, Condition holds) {
    run.defines.table().endBranch();
    ConditionFrame& frame = run.conditions.back();
    const bool isActive = !frame.taken && holds();
    frame.taken = frame.taken || isActive;
    run.defines.table().beginBranch(isActive);
}

/// #elseif NAME, in Torvel #elif NAME
void runElseif(PreprocessorRun& run, DirectiveLine& directive) {
    const std::string_view name = directive.readIdentifier();
    directive.expectEnd();
    if (run.conditions.empty()) {
        directive.fail(Message::ElseifUnexpected);
    }
    if (run.conditions.back().elseSeen) {
        directive.fail(Message::ElseifAfterElse);
    }
    noteFact(run, Fact::Kind::elif, directive.position(), name, conditionValue(run, name, false));
    beginBranch(run, [&] { return run.defines.isDefined(name); });
    preserveDirective(run, directive, "elif", name);
}

/// #else
void runElse(PreprocessorRun& run, DirectiveLine& directive) {
    directive.expectEnd();
    if (run.conditions.empty()) {
        directive.fail(Message::ElseUnexpected);
    }
    if (run.conditions.back().elseSeen) {
        directive.fail(Message::ElseRepeated);
    }
    run.conditions.back().elseSeen = true;
    noteFact(run, Fact::Kind::otherwise, directive.position(), {});
    beginBranch(run, [] { return true; });
    preserveDirective(run, directive, directive.name());
}

/// #endif
void runEndif(PreprocessorRun& run, DirectiveLine& directive) {
    directive.expectEnd();
    if (run.conditions.empty()) {
        directive.fail(Message::EndifUnexpected);
    }
    run.conditions.pop_back();
    noteFact(run, Fact::Kind::endif, directive.position(), {});
    run.defines.table().closeScope();
    preserveDirective(run, directive, directive.name());
}

struct Directive {
    std::string_view word;
    void (*run)(PreprocessorRun&, DirectiveLine&);
};

constexpr Directive directives[] = {
    {"include", runInclude}, {"macro", runMacro},   {"define", runDefine}, {"undef", runUndef},
    {"subst", runSubst},     {"nosubst", runSubst}, {"ifdef", runIfdef},   {"ifndef", runIfdef},
    {"elseif", runElseif},   {"else", runElse},     {"endif", runEndif},
};

}  // namespace

bool runDirective(PreprocessorRun& run, LineSplitter& splitter, const Inclusion& inclusion,
                  const ScannedLine& line) {
    DirectiveLine directiveLine(run, splitter, inclusion, line);
    for (const Directive& directive : directives) {
        if (directive.word == directiveLine.name()) {
            directive.run(run, directiveLine);
            return true;
        }
    }
    return false;
}

}  // namespace torvel
