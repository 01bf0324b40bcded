// The directives, a routine each, and the table of their words. A directive that Torvel has too is
// kept: a line with its Torvel text stands in its place.

#include <string>

#include "src/lex/characters.h"
#include "src/preprocess/define-directives.h"
#include "src/preprocess/directive-line.h"
#include "src/preprocess/preprocessing.h"

namespace torvel {

namespace {

/// Keeps the directive as "#word", or as "#word NAME".
void keepDirective(Preprocessing& run, const DirectiveLine& directive, std::string_view word,
                   std::string_view name = {}) {
    std::string text = "#" + std::string(word);
    if (!name.empty()) {
        text += ' ';
        text += name;
    }
    appendDirectiveLine(run, directive.position(), directive.source(), {},
                        TokenType::CONVERSION_TEXT, run.program.text.add(text));
}

/// #include "path"
/// The lines of the file take the directive's place, between two comments.
void runInclude(Preprocessing& run, DirectiveLine& directive) {
    const std::string path(directive.readQuoted());
    directive.expectEnd();
    if (!directive.comment().empty()) {
        appendLine(run.program.list, directive.position(), directive.source(), directive.comment());
    }
    appendLine(run.program.list, directive.position(), directive.source(),
               run.program.text.add("#include \"" + path + "\" // start"));
    preprocessFile(run, path, directive.position());
}

/// #undef NAME
void runUndef(Preprocessing& run, DirectiveLine& directive) {
    const std::string_view name = directive.readIdentifier();
    directive.expectEnd();
    run.defines.table().enter(name, DefineTable::Kind::undefined);
    keepDirective(run, directive, directive.name(), name);
}

/// #subst and #nosubst
void runSubst(Preprocessing& run, DirectiveLine& directive) {
    directive.expectEnd();
    run.substitutes = directive.name() == "subst";
}

/// #ifdef NAME and #ifndef NAME
void runIfdef(Preprocessing& run, DirectiveLine& directive) {
    const std::string_view name = directive.readName("\\");
    directive.expectEnd();
    const bool holds = run.defines.isDefined(name) == (directive.name() == "ifdef");
    run.conditions.push_back({holds, false});
    run.defines.table().openScope(holds);
    keepDirective(run, directive, directive.name(), name);
}

/// Ends the branch of the innermost conditional, so that its names are out of sight, and begins the
/// next one: it is active if no branch's condition held before and `holds` says that its own does.
template <typename Condition>
void beginBranch(Preprocessing& run, Condition holds) {
    run.defines.table().endBranch();
    ConditionFrame& frame = run.conditions.back();
    const bool isActive = !frame.taken && holds();
    frame.taken = frame.taken || isActive;
    run.defines.table().beginBranch(isActive);
}

/// #elseif NAME, in Torvel #elif NAME
void runElseif(Preprocessing& run, DirectiveLine& directive) {
    const std::string_view name = directive.readIdentifier();
    directive.expectEnd();
    if (run.conditions.empty()) {
        directive.fail(Message::ElseifUnexpected);
    }
    if (run.conditions.back().elseSeen) {
        directive.fail(Message::ElseifAfterElse);
    }
    beginBranch(run, [&] { return run.defines.isDefined(name); });
    keepDirective(run, directive, "elif", name);
}

/// #else
void runElse(Preprocessing& run, DirectiveLine& directive) {
    directive.expectEnd();
    if (run.conditions.empty()) {
        directive.fail(Message::ElseUnexpected);
    }
    if (run.conditions.back().elseSeen) {
        directive.fail(Message::ElseRepeated);
    }
    run.conditions.back().elseSeen = true;
    beginBranch(run, [] { return true; });
    keepDirective(run, directive, directive.name());
}

/// #endif
void runEndif(Preprocessing& run, DirectiveLine& directive) {
    directive.expectEnd();
    if (run.conditions.empty()) {
        directive.fail(Message::EndifUnexpected);
    }
    run.conditions.pop_back();
    run.defines.table().closeScope();
    keepDirective(run, directive, directive.name());
}

struct Directive {
    std::string_view word;
    void (*run)(Preprocessing&, DirectiveLine&);
};

constexpr Directive directives[] = {
    {"include", runInclude}, {"macro", runMacro},   {"define", runDefine}, {"undef", runUndef},
    {"subst", runSubst},     {"nosubst", runSubst}, {"ifdef", runIfdef},   {"ifndef", runIfdef},
    {"elseif", runElseif},   {"else", runElse},     {"endif", runEndif},
};

}  // namespace

bool runDirective(Preprocessing& run, LineSplitter& splitter, const Inclusion& inclusion,
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
