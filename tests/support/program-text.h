#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "src/base/program.h"
#include "src/lex/axis-names.h"

namespace torvel::test {

/// A program with one file, main.pgm, that stands in memory only. The object stays where it is made.
class ProgramText {
public:
    explicit ProgramText(std::string_view content);
    ProgramText(const ProgramText&) = delete;
    ProgramText& operator=(const ProgramText&) = delete;

    Program program;
    const Inclusion* inclusion = nullptr;

    TextSpan text() const { return inclusion->file->text; }
    SourcePosition position() const { return {inclusion, 1}; }
};

/// The tokens of a line, and the two that end them.
class LexedTokens {
public:
    explicit LexedTokens(std::span<const Token> tokens);
    operator LineTokens() const { return line(); }
    LineTokens line() const { return {{tokens_.data(), tokens_.size() - LineTokens::endTokens}}; }

private:
    std::vector<Token> tokens_;
};

/// The tokens of a line, lexed where it was not yet.
LexedTokens lexedTokens(const Program& program, const LineList& list, std::size_t line,
                        const AxisNames& axes);
LexedTokens lexedTokens(const Program& program, const ProgramLines& lines, std::size_t line,
                        const AxisNames& axes);

/// The tokens of a piece of text. Throws what the lexer throws.
std::vector<Token> lexText(const Program& program, const AxisNames& axes, TextSpan code,
                           const SourcePosition& position);

/// Tokens as the unit tables print them: "display name:text" separated by " | "; a preserved define's text
/// is followed by "=" and its value.
std::string printTokens(const Program& program, std::span<const Token> tokens);

/// The message of a diagnostic of main.pgm: without its place and its line end.
std::string withoutPlace(std::string_view diagnostic);

/// Parts of a table's input that stand between " :: ".
std::pair<std::string, std::string> splitInput(const std::string& input);

}  // namespace torvel::test
