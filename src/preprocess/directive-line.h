#pragma once

#include <string>
#include <string_view>

#include "src/preprocess/preprocessor-run.h"

namespace torvel {

/// Reads a directive from left to right. Where a line ends in a backslash the body of a `#define` or
/// `#macro` goes on, so reading takes further lines from the splitter.
class DirectiveLine {
public:
    DirectiveLine(PreprocessorRun& run, LineSplitter& splitter, const Inclusion& inclusion,
                  const ScannedLine& line);

    /// The directive's word in lower case.
    const std::string& name() const { return name_; }
    /// The position of the directive's first line.
    const SourcePosition& position() const { return position_; }
    TextSpan source() const { return line_.text; }
    TextSpan comment() const { return line_.comment; }

    bool atEnd() const { return at_ == code_.size(); }
    char current() const { return code_[at_]; }
    void advance() { ++at_; }
    void skipBlanks();
    void skipWhiteSpace();

    /// The directive's operand: letters, digits and "_". Fails if the line ends or begins otherwise.
    std::string_view readIdentifier();
    /// The directive's operand up to white space or one of `terminators`, with which it cannot begin.
    std::string_view readName(std::string_view terminators);
    /// What stands up to white space or one of `terminators`; it may be empty.
    std::string_view readUntil(std::string_view terminators);
    /// The directive's operand between double quotes.
    std::string_view readQuoted();
    /// Fails unless the line ends here.
    void expectEnd();

    /// The rest of the directive, over all its lines: their code joined by line feeds without the
    /// backslashes, trimmed of blanks and tabs at both ends, and their comments joined by blanks.
    struct Body {
        TextSpan text;
        TextSpan comment;
    };
    Body readBody();

    /// Ends the run at the line reached.
    [[noreturn]] void fail(Message message,
                           std::initializer_list<std::string_view> holes = {}) const;

private:
    /// Moves behind the backslash at the current character if one continues the line.
    void expectLineEnd();

    PreprocessorRun& run_;
    LineSplitter& splitter_;
    const Inclusion& inclusion_;
    ScannedLine line_;
    SourcePosition position_;
    std::string_view code_;
    std::size_t at_ = 1;
    std::string name_;
};

}  // namespace torvel
