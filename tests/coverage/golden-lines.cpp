#include "tests/coverage/golden-lines.h"

#include <algorithm>
#include <exception>
#include <filesystem>

#include "src/app/command-line.h"
#include "src/app/parameter-file.h"
#include "src/preprocess/preprocessor.h"
#include "src/stmt/statement.h"
#include "tests/support/case-run.h"
#include "tests/support/program-text.h"

namespace torvel::test {

namespace {

std::size_t skip(const std::vector<TokenType>& tokens, std::size_t at, TokenType type) {
    return at < tokens.size() && tokens[at] == type ? at + 1 : at;
}

/// Where the statement of a line begins, behind a block delete and one label or N-code.
std::size_t statementStart(const std::vector<TokenType>& tokens) {
    std::size_t at = skip(tokens, 0, TokenType::SLASH);
    if (at == 1) {
        at = skip(tokens, at, TokenType::INTEGER_LITERAL);
        at = skip(tokens, at, TokenType::SLASH);
        at = skip(tokens, at, TokenType::INTEGER_LITERAL);
    }
    const auto follows = [&](TokenType first, TokenType second) {
        return at + 1 < tokens.size() && tokens[at] == first && tokens[at + 1] == second;
    };
    const bool hasLabel = follows(TokenType::IDENTIFIER, TokenType::COLON) ||
                          follows(TokenType::COLON, TokenType::IDENTIFIER) ||
                          follows(TokenType::LETTER_N, TokenType::INTEGER_LITERAL);
    return hasLabel ? at + 2 : at;
}

std::string sourceOf(const Program& program, const SourceLine& line) {
    std::string_view text = program.text.view(line.text);
    const std::string_view comment = program.text.view(line.comment);
    if (!comment.empty() && text.ends_with(comment)) {
        text.remove_suffix(comment.size());
    }
    return std::string(text);
}

void addLines(std::vector<GoldenLine>& lines, const Program& program, const AxisNames& axes,
              const Limits& limits, const LineList& list) {
    for (std::size_t number = 0; number < list.lines.size(); ++number) {
        GoldenLine line;
        line.source = sourceOf(program, list.lines[number]);
        const LexedTokens tokens = lexedTokens(program, list, number, axes);
        for (const Token& token : tokens.line()) {
            line.tokens.push_back(token.type);
        }
        line.statement.assign(
            line.tokens.begin() + static_cast<std::ptrdiff_t>(statementStart(line.tokens)),
            line.tokens.end());
        MessageLog log;
        ConversionContext context{program, axes, limits, log, list.positionOf(number)};
        BlockEffect effect{};
        StatementText text;
        line.isConverted = convertStatement(context, tokens, text, effect);
        line.text = text.toString();
        for (const ConversionMessage& message : log) {
            line.messages.emplace_back(message.text);
        }
        lines.push_back(std::move(line));
    }
}

std::vector<GoldenLine> readGoldenLines() {
    std::vector<GoldenLine> lines;
    const auto collect = [&lines](const std::vector<std::string>& arguments, const Limits& limits) {
        const CommandLine commandLine = parseCommandLine(arguments);
        const AxisNames axes =
            commandLine.parameterFile ? loadParameterFile(*commandLine.parameterFile) : AxisNames();
        Program program;
        preprocessProgram(program, commandLine.programPath, axes, limits);
        for (std::size_t part = 0; part < program.lines.partCount(); ++part) {
            addLines(lines, program, axes, limits, program.lines.part(part).list);
        }
        for (std::size_t macro = 0; macro < program.macros.size(); ++macro) {
            addLines(lines, program, axes, limits, program.macros[macro].lines);
        }
        return CommandResult();
    };
    visitCases(std::filesystem::path(TORVEL_SOURCE_DIR) / "tests/golden",
               [&](const std::string&, const std::string&, const std::filesystem::path& path) {
                   const Case test = readCase(path);
                   if (test.expected.status == 0) {
                       runCase(test, test.files, collect);
                   }
               });
    return lines;
}

}  // namespace

bool GoldenLine::has(TokenType type) const {
    return std::find(tokens.begin(), tokens.end(), type) != tokens.end();
}

bool GoldenLine::hasPair(TokenType first, TokenType second) const {
    const TokenType pair[] = {first, second};
    return std::search(tokens.begin(), tokens.end(), std::begin(pair), std::end(pair)) !=
           tokens.end();
}

bool GoldenLine::logged(Message message) const {
    return std::find(messages.begin(), messages.end(), messageText(message)) != messages.end();
}

const std::vector<GoldenLine>& goldenLines() {
    static const std::vector<GoldenLine> lines = readGoldenLines();
    return lines;
}

bool anyGoldenLine(const std::function<bool(const GoldenLine&)>& fits) {
    return std::any_of(goldenLines().begin(), goldenLines().end(), fits);
}

void Missing::unless(bool isThere, std::string_view what) {
    if (!isThere) {
        list_ += what;
        list_ += '\n';
    }
}

}  // namespace torvel::test
