#include "src/checks/line-record.h"

#include <algorithm>
#include <unordered_map>
#include <utility>
#include <vector>

#include "src/base/characters.h"
#include "src/base/output-marks.h"
#include "src/checks/program-checks.h"
#include "src/lex/lexer.h"

namespace torvel {

namespace {

FindingTodo todoOf(bool isConverted, std::string_view text) {
    if (!isConverted || text.starts_with(unconvertibleMarker)) {
        return FindingTodo::rewrite;
    }
    return hasPlaceholder(text) ? FindingTodo::complete : FindingTodo::look;
}

/// Whether a variable stands in a macro's head.
bool isArgument(std::string_view name, std::string_view head) {
    const std::size_t place = head.find(name);
    return place != std::string_view::npos && !isWordCharacter(head[place + name.size()]);
}

/// The variables of the body of the macro that the line defines, but for the macro's arguments.
void recordBodyVariables(const ConversionContext& context, const Macro& macro) {
    const Program& program = context.program;
    const std::string_view head = program.text.view(macro.head);
    GrowingArray<Token> room;
    for (std::size_t line = 0; line < macro.lines.lines.size(); ++line) {
        for (const Token& token : tokensOf(program, macro.lines, line, context.axes, room)) {
            if (token.type == TokenType::VARIABLE && !isArgument(program.textOf(token), head)) {
                noteVariable(
                    *context.record, program.textOf(token),
                    {context.record->programLine, macro.lines.lines[line].text, token.text});
            }
        }
    }
}

/// Whether a line that opens a block opens an IF; a label or an N-code may stand in front of it.
bool isIf(std::string_view text) {
    if (text.find('\n') != std::string_view::npos) {  // much faster than to look from the end
        text.remove_prefix(text.rfind('\n') + 1);
    }
    if (text.starts_with('N') || text.starts_with('n')) {
        const std::size_t word = text.find_first_not_of("0123456789", 1);
        text.remove_prefix(word > 1 ? std::min(word, text.size()) : 0);
    }
    return text.starts_with("if ");
}

/// Tells where the variables of some tokens stand.
void notePlacesOfVariables(const ConversionContext& context, std::span<const Token> tokens,
                           TextSpan lineText) {
    for (const Token& token : tokens) {
        if (token.type == TokenType::VARIABLE) {
            NamePlace place;
            place.kind = NamePlace::Kind::variable;
            place.position = context.position;
            place.lineText = lineText;
            place.place = placeOf({&token, 1}, lineText);
            place.name = context.program.textOf(token);
            context.record->places->push_back(place);
        }
    }
}

/// The name of a macro behind "#macro ", up to its arguments.
std::string_view macroName(std::string_view head) {
    head.remove_prefix(std::min(head.find(' ') + 1, head.size()));
    return head.substr(0, head.find('('));
}

/// Tells where the name of a macro stands, and the variables of its body.
void notePlacesOfMacro(const ConversionContext& context, const Macro& macro) {
    NamePlace place;
    place.kind = NamePlace::Kind::macro;
    place.role = NamePlace::Role::definition;
    place.position = context.position;
    place.value = context.program.text.view(macro.head);
    place.name = macroName(place.value);
    context.record->places->push_back(place);
    GrowingArray<Token> room;
    for (std::size_t line = 0; line < macro.lines.lines.size(); ++line) {
        notePlacesOfVariables(context,
                              tokensOf(context.program, macro.lines, line, context.axes, room),
                              macro.lines.lines[line].text);
    }
}

/// Tells what the line does to the nesting of blocks.
void notePlaceOfEffect(const ConversionContext& context, BlockEffect effect) {
    NamePlace place;
    place.position = context.position;
    switch (effect) {
        case BlockEffect::Opens: place.kind = NamePlace::Kind::opens; break;
        case BlockEffect::Continues: place.kind = NamePlace::Kind::continues; break;
        case BlockEffect::Closes: place.kind = NamePlace::Kind::closes; break;
        default: return;
    }
    context.record->places->push_back(place);
}

/// Tells where the line's statement begins, and what stands in it.
void notePlaces(const ConversionContext& context, const LineTokens& tokens, BlockEffect effect) {
    notePlaceOfEffect(context, effect);
    if (tokens.empty()) {
        return;
    }
    if (tokens[0].type == macroDefinitionToken) {
        notePlacesOfMacro(context, context.program.macros[tokens[0].number]);
        return;
    }
    const TextSpan lineText = context.record->lineText;
    notePlacesOfVariables(context, tokens, lineText);
    const std::size_t first = prologueLength(context, tokens);
    if (first < tokens.size() && tokens[first].type != TokenType::CONVERSION_TEXT &&
        tokens[first].type != TokenType::STRING_LITERAL) {
        NamePlace place;
        place.kind = NamePlace::Kind::statement;
        place.position = context.position;
        place.lineText = lineText;
        place.place = placeOf(tokens.subspan(first, 1), lineText);
        place.name = context.program.textOf(tokens[first]);
        context.record->places->push_back(place);
    }
}

void sortFindings(std::span<RecordedFinding> findings) {
    const auto standsBefore = [](const RecordedFinding& a, const RecordedFinding& b) {
        return placeInProgram(a) < placeInProgram(b);
    };
    if (!std::is_sorted(findings.begin(), findings.end(), standsBefore)) {
        std::stable_sort(findings.begin(), findings.end(), standsBefore);
    }
}

/// A define that Torvel does not take stands behind a marker without a message.
void noteLostDefine(const ConversionContext& context, std::span<const Token> tokens) {
    if (tokens.size() == 1 && tokens[0].type == TokenType::CONVERSION_TEXT &&
        context.program.textOf(tokens[0]).starts_with(unconvertibleMarker)) {
        RecordedFinding finding = recordedFinding(Check::DefineNotKept);
        finding.origin = FindingOrigin::define;
        context.record->findings.push_back(finding);
    }
}

/// The messages from number `first` on are findings of the line.
void noteMessages(ConversionContext& context, std::size_t first) {
    CheckRecord& record = *context.record;
    for (std::size_t i = first; i < context.log.size(); ++i) {
        record.findings.push_back(recordedFinding(context.log[i].message, i));
    }
}

/// What stands behind `mark` belongs to that line.
void completeLine(CheckRecord& record, const RecordMark& mark, std::uint32_t line,
                  FindingTodo todo) {
    const std::span<RecordedFinding> findings =
        std::span(record.findings.data(), record.findings.size()).subspan(mark.findings);
    for (RecordedFinding& finding : findings) {
        finding.programLine = line;
        finding.todo = todo;
    }
    sortFindings(findings);
    for (std::size_t i = mark.facts; i < record.facts.size(); ++i) {
        record.facts.data()[i].programLine = line;
    }
}

}  // namespace

void recordWholeLine(ConversionContext& context, LineMark& mark, const SourceLine& line,
                     const LineTokens& tokens, bool isConverted, std::string_view text,
                     BlockEffect effect) {
    CheckRecord& record = *context.record;
    const std::uint32_t number = record.programLine;
    if (record.places != nullptr) {
        record.lineText = line.text;  // the body of a macro has lines of its own
        notePlaces(context, tokens, effect);
    }
    if (isConverted) {
        noteGluedCode(context, tokens, text);
        if (effect != BlockEffect::None) {
            record.blocks.push_back({number, effect, effect == BlockEffect::Opens && isIf(text)});
        }
        if (!tokens.empty() && tokens[0].type == macroDefinitionToken) {
            recordBodyVariables(context, context.program.macros[tokens[0].number]);
        } else {
            recordVariables(context, tokens);
        }
    } else {
        takeOff(record, mark.record);
    }
    if (isCommentToNote(context, line)) {
        record.findings.push_back(recordedFinding(Check::CommentContinues));
    }
    noteLostDefine(context, tokens);
    const LineMark now = markNow(context);
    if (now != mark) {
        noteMessages(context, mark.messages);
        completeLine(record, mark.record, number, todoOf(isConverted, text));
        mark = markNow(context);
    }
}

void append(CheckRecord& record, CheckRecord&& further, std::size_t firstMessage) {
    record.ofLines.push_back({std::move(further.findings), firstMessage});
    record.factsOfLines.push_back(std::move(further.facts));
    record.blocksOfLines.push_back(std::move(further.blocks));
    record.variablesOfLines.push_back(std::move(further.variables));
    record.valueUsesOfLines.push_back(std::move(further.valueUses));
    record.texts.take(std::move(further.texts));
}

namespace {

/// One finding a file for its dropped comments, with their lines. A file that is included again has the same.
void appendCommentFindings(CheckRecord& record, GrowingArray<Finding>& findings) {
    struct OfFile {
        std::size_t finding = 0;
        std::vector<std::uint32_t>* lines = nullptr;
    };
    std::unordered_map<const SourceFile*, OfFile> byFile;
    for (const DroppedComment& comment : record.droppedComments) {
        const SourcePosition& position = comment.position;
        OfFile& ofFile = byFile[position.inclusion->file];
        if (ofFile.lines == nullptr) {
            ofFile = {findings.size(), &record.lines.emplace_back(1, position.lineNumber)};
            findings.push_back(makeFinding(Check::CommentDropped, position));
            findings.back().programLine = comment.programLine;
        } else if (findings[ofFile.finding].position.inclusion == position.inclusion &&
                   ofFile.lines->back() != position.lineNumber) {
            ofFile.lines->push_back(position.lineNumber);
        }
        findings.data()[ofFile.finding].lines = *ofFile.lines;
    }
}

/// What the lines say of defines that may have several values and are written as one.
GrowingArray<Fact> factsOfValueUses(const Program& program, const CheckRecord& record) {
    GrowingArray<Fact> facts;
    Fact fact;
    fact.kind = Fact::Kind::valueUse;
    if (!record.definedAgain.empty()) {
        for (const GrowingArray<ValueUse>& part : record.valueUsesOfLines) {
            for (const ValueUse& use : part) {
                fact.programLine = use.programLine;
                fact.name = program.text.view(use.name);
                if (mayHaveSeveralValues(record, fact.name)) {
                    facts.push_back(fact);
                }
            }
        }
    }
    return facts;
}

/// All facts in the order of the program's lines, those of the preprocessor first. Uses of values stand behind the other
/// facts of their line, but in front of the macro in whose body they are.
Facts factsInOrder(const CheckRecord& record, const GrowingArray<Fact>& valueUses) {
    Facts facts;
    auto next = record.directives.begin();
    const auto takePreprocessed = [&](std::uint32_t last) {
        while (next != record.directives.end() && next->programLine <= last) {
            facts.add(*next++);
        }
    };
    const Fact* nextUse = valueUses.begin();
    const auto takeUses = [&](std::uint32_t behind) {
        for (; nextUse != valueUses.end() && nextUse->programLine < behind; ++nextUse) {
            takePreprocessed(nextUse->programLine);
            facts.add(*nextUse);
        }
    };
    for (const GrowingArray<Fact>& part : record.factsOfLines) {
        for (const Fact& fact : part) {
            takeUses(fact.programLine + (fact.kind == Fact::Kind::macro ? 1 : 0));
            takePreprocessed(fact.programLine);
            facts.add(fact);
        }
    }
    takeUses(UINT32_MAX);
    takePreprocessed(UINT32_MAX);
    return facts;
}

/// What there is to say of the files as such, in the order of the program's lines.
GrowingArray<Finding> fileFindings(const Program& program, CheckRecord& record) {
    GrowingArray<Finding> findings;
    for (const SourcePosition& position : program.nulCharacters) {
        findings.push_back(makeFinding(Message::NulCharacter,
                                       record.texts.keep(messageText(Message::NulCharacter)),
                                       position));
    }
    appendCommentFindings(record, findings);
    return findings;
}

}  // namespace

void finishRecord(const Program& program, CheckRecord& record) {
    record.ofFiles = fileFindings(program, record);
    const GrowingArray<Fact> valueUses = factsOfValueUses(program, record);
    const Facts facts = factsInOrder(record, valueUses);
    checkDefines(facts, record);
    checkArguments(facts, record);
    checkJumps(facts, record);
    checkBlocks(facts, record);
    checkNames(program, facts, record);
    sortFindings({record.findings.data(), record.findings.size()});
}

}  // namespace torvel
