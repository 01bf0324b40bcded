#pragma once

#include <string>
#include <string_view>

#include "src/base/check-record.h"
#include "src/base/program.h"
#include "src/preprocess/sign-search.h"

namespace torvel {

/// One logical line of a file as the splitter finds it.
struct ScannedLine {
    /// Code and comment as they stood, without block comments and outer blanks.
    TextSpan text;
    /// What stands in front of the comment, trimmed of blanks and tabs: the front of `text`.
    TextSpan code;
    /// The comment behind its marker, trimmed; empty if there is none.
    TextSpan comment;
    /// The bytes of the code.
    std::string_view codeText;
    /// The line on which the logical line ends, from 1.
    std::uint32_t lineNumber = 0;
    /// Whether a byte that begins no token stands in the code outside strings.
    bool hasOddBytes = false;
};

/// Cuts the bytes of one file into logical lines, one at a call.
class LineSplitter {
public:
    /// `inclusion` is the reading of the file that positions of errors name.
    /// `record` takes where block comments are dropped, if there is one.
    LineSplitter(Program& program, const Inclusion& inclusion, CheckRecord* record = nullptr);

    /// Gives the next line; false when the file is used up. The last line is always given, so a file
    /// that ends in a line end gives an empty line last. Throws a ParseException at a line that ends
    /// inside a string, and at a block comment that the file does not end; the splitter has ended then.
    bool next(ScannedLine& line);

    /// Reads the rest of the file for its errors only: they come before the errors of its lines.
    void finish();

    /// The line that next() reads from, after the last one the number of the last line.
    std::uint32_t lineNumber() const { return lineNumber_; }

    /// How many of the lines that were given hold more than comments and blanks.
    std::uint32_t codeLines() const { return codeLines_; }

private:
    void skipString();
    void skipBlockComment();
    void finishLine(ScannedLine& line, const char* lineStart, const char* commentMarker,
                    std::size_t markerLength);
    SourcePosition position() const { return {inclusion_, lineNumber_}; }

    Program& program_;
    const Inclusion* inclusion_;
    CheckRecord* record_;
    TextSpan file_;
    const char* begin_;
    const char* next_;
    SignSearch signs_;
    std::uint32_t lineNumber_ = 1;
    std::uint32_t codeLines_ = 0;
    bool ended_ = false;
    /// Text of the line in front of its last block comment, and whether there is one.
    std::string joined_;
    bool isJoined_ = false;
};

}  // namespace torvel
