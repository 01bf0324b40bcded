#include "src/checks/line-record.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <utility>
#include <vector>

#include "src/base/characters.h"
#include "src/base/output-marks.h"
#include "src/checks/program-checks.h"
#include "src/lex/lexer.h"
#include "src/stmt/statement.h"

namespace torvel {

namespace {

FindingTodo todoOf(bool isConverted, std::string_view text) {
    if (!isConverted || text.starts_with(unconvertibleMarker)) {
        return FindingTodo::rewrite;
    }
    return hasPlaceholder(text) ? FindingTodo::complete : FindingTodo::look;
}

/// A define that Torvel does not take stands behind a marker without a message.
bool isLostDefine(const Program& program, std::span<const Token> tokens) {
    return tokens.size() == 1 && tokens[0].type == TokenType::CONVERSION_TEXT &&
           program.textOf(tokens[0]).starts_with(unconvertibleMarker);
}

/// Uses of names with several values in the line are no findings.
void noteRefused(CheckRecord& record) {
    if (!(record.run != nullptr ? *record.run : record).definedAgain.empty()) {
        Fact refused;
        refused.kind = Fact::Kind::refused;
        record.facts.push_back(std::move(refused));
    }
}

/// The place of a variable among those that were met lately; its name begins with "$".
std::size_t numberOf(std::string_view name) {
    std::uint32_t hash = 0;
    for (const char c : name.substr(1)) {
        hash = hash * 31 + static_cast<unsigned char>(c);
    }
    return hash % std::tuple_size_v<decltype(CheckRecord::recentVariables)>;
}

/// The variables among tokens, each of them once. Those that stand in `except`, a macro's head, are its arguments.
void recordVariables(const ConversionContext& context, TextSpan lineText,
                     std::span<const Token> tokens, std::string_view except) {
    CheckRecord& record = *context.record;
    for (const Token& token : tokens) {
        if (token.type != TokenType::VARIABLE) {
            continue;
        }
        const std::string_view name = context.program.textOf(token);
        std::string_view& recent = record.recentVariables[numberOf(name)];
        if (recent == name) {
            continue;
        }
        const std::size_t argument = except.find(name);
        if (argument != std::string_view::npos &&
            !isWordCharacter(except[argument + name.size()])) {
            continue;
        }
        recent = name;
        if (record.variables.insert(name).second) {
            Fact fact;
            fact.kind = Fact::Kind::variable;
            fact.position = context.position;
            fact.columns = columnsOf(context.program, context.position, lineText, token.text);
            fact.name = name;
            record.facts.push_back(std::move(fact));
        }
    }
}

/// The variables of a line, or of the body of the macro that it defines.
void recordVariables(const ConversionContext& context, std::size_t number,
                     std::span<const Token> tokens) {
    const Program& program = context.program;
    if (tokens.empty() || tokens[0].type != macroDefinitionToken) {
        recordVariables(context, program.list.lines[number].text, tokens, {});
        return;
    }
    const Macro& macro = program.macros[tokens[0].number];
    GrowingArray<Token> room;
    for (std::size_t line = 0; line < macro.lines.lines.size(); ++line) {
        recordVariables(context, macro.lines.lines[line].text,
                        tokensOf(program, macro.lines, line, context.axes, room),
                        program.text.view(macro.head));
    }
}

/// Whether a line that opens a block opens an IF; a label or an N-code may stand in front of it.
bool isIf(std::string_view text) {
    text.remove_prefix(text.rfind('\n') + 1);
    if (text.starts_with('N') || text.starts_with('n')) {
        const std::size_t word = text.find_first_not_of("0123456789", 1);
        text.remove_prefix(word > 1 ? std::min(word, text.size()) : 0);
    }
    return text.starts_with("if ");
}

void recordEffect(const ConversionContext& context, BlockEffect effect, std::string_view text) {
    Fact fact;
    fact.name = isIf(text) ? "if" : "";
    switch (effect) {
        case BlockEffect::Opens: fact.kind = Fact::Kind::opens; break;
        case BlockEffect::Closes: fact.kind = Fact::Kind::closes; break;
        case BlockEffect::Continues: fact.kind = Fact::Kind::continues; break;
        default: return;
    }
    fact.position = context.position;
    context.record->facts.push_back(std::move(fact));
}

}  // namespace

LineMark beginLine(const ConversionContext& context, std::size_t number) {
    context.record->lineText = context.program.list.lines[number].text;
    return {markOf(*context.record), context.log.size()};
}

void recordLine(ConversionContext& context, const LineMark& mark, std::size_t number,
                std::span<const Token> tokens, bool isConverted, std::string_view text,
                BlockEffect effect) {
    CheckRecord& record = *context.record;
    const Program& program = context.program;
    if (isConverted) {
        noteGluedCode(context, tokens, text);
        recordEffect(context, effect, text);
        recordVariables(context, number, tokens);
    } else {
        takeOff(record, mark.record);
        noteRefused(record);
    }
    if (program.text.view(program.list.lines[number].comment).ends_with('\\')) {
        record.findings.push_back(makeFinding(Check::CommentContinues, context.position));
    }
    for (std::size_t i = mark.messages; i < context.log.size(); ++i) {
        const ConversionMessage& message = context.log[i];
        record.findings.push_back(makeFinding(message.message, message.text, message.position));
    }
    if (isLostDefine(program, tokens)) {
        Finding finding = makeFinding(Check::DefineNotKept, context.position);
        finding.origin = FindingOrigin::define;
        record.findings.push_back(std::move(finding));
    }
    const auto line = static_cast<std::uint32_t>(number);
    if (record.findings.size() != mark.record.findings) {
        const FindingTodo todo = todoOf(isConverted, text);
        for (std::size_t i = mark.record.findings; i < record.findings.size(); ++i) {
            record.findings[i].programLine = line;
            record.findings[i].todo = todo;
        }
    }
    for (std::size_t i = mark.record.facts; i < record.facts.size(); ++i) {
        record.facts[i].programLine = line;
    }
}

void append(CheckRecord& record, CheckRecord&& further) {
    const auto moveBehind = [](auto& list, auto& rows) {
        list.insert(list.end(), std::make_move_iterator(rows.begin()),
                    std::make_move_iterator(rows.end()));
    };
    moveBehind(record.findings, further.findings);
    moveBehind(record.facts, further.facts);
}

namespace {

/// One finding a file for its dropped comments, with their lines. A file that is included again has the same.
void joinDroppedComments(std::vector<Finding>& findings) {
    std::unordered_map<const SourceFile*, std::size_t> firstOfFile;
    std::vector<Finding> joined;
    const std::string_view code = checkRow(Check::CommentDropped).code;
    for (Finding& finding : findings) {
        if (finding.code != code) {
            joined.push_back(std::move(finding));
            continue;
        }
        const auto [entry, isFirst] =
            firstOfFile.try_emplace(finding.position.inclusion->file, joined.size());
        if (isFirst) {
            joined.push_back(std::move(finding));
        } else if (Finding& first = joined[entry->second];
                   first.position.inclusion == finding.position.inclusion &&
                   first.lines.back() != finding.lines.front()) {
            first.lines.push_back(finding.lines.front());
        }
    }
    findings = std::move(joined);
}

/// The facts of the preprocessor stand in front of those of the conversion, both in order.
void sortFacts(std::vector<Fact>& facts) {
    const auto isBefore = [](const Fact& a, const Fact& b) {
        return a.programLine < b.programLine;
    };
    const auto behind = std::is_sorted_until(facts.begin(), facts.end(), isBefore);
    std::inplace_merge(facts.begin(), behind, facts.end(), isBefore);
}

}  // namespace

void finishRecord(const Program& program, CheckRecord& record) {
    joinDroppedComments(record.findings);
    sortFacts(record.facts);
    checkDefines(record);
    checkArguments(record);
    checkJumps(record);
    checkBlocks(record);
    checkNames(record);
    for (const SourcePosition& position : program.nulCharacters) {
        Finding finding =
            makeFinding(Message::NulCharacter, messageText(Message::NulCharacter), position);
        record.findings.insert(record.findings.begin(), std::move(finding));
    }
    std::stable_sort(record.findings.begin(), record.findings.end(),
                     [](const Finding& a, const Finding& b) {
                         return std::pair(a.programLine, a.columns.first) <
                                std::pair(b.programLine, b.columns.first);
                     });
}

Finding unreadableFinding(const ParseException& error) {
    Finding finding = makeFinding(error.message(), error.text(), error.position());
    finding.todo = FindingTodo::fixSource;
    return finding;
}

}  // namespace torvel
