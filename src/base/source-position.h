#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "src/base/file-system.h"
#include "src/base/text-buffer.h"
#include "src/base/text-store.h"

namespace torvel {

/// One file of the program, read once however often it is included.
struct SourceFile {
    /// Canonical path, for opening and for finding the files that it includes.
    NativePath path;
    /// The path in diagnostics: relative to the program's directory, with forward slashes.
    std::string displayPath;
    /// The last component of the path, for the marker of a line that cannot be converted.
    std::string name;
    FileIdentity identity;
    /// The bytes of the file up to its end or its first NUL, without a byte-order mark in front and
    /// the end marks of old editors, 0x1A, behind the last byte.
    TextSpan text;
    bool endsAtNul = false;
    /// Lines that hold more than comments and blanks, when the file was read to its end.
    std::uint32_t codeLines = 0;
};

struct Inclusion;

/// Where a line came from: a file as it was included, and a line number in it from 1. All lines of an
/// inclusion share it. No inclusion: no position.
struct SourcePosition {
    const Inclusion* inclusion = nullptr;
    std::uint32_t lineNumber = 0;

    bool operator==(const SourcePosition&) const = default;
};

/// One reading of a file: by the command line, then `includedFrom` is no position, or by an
/// `#include` line.
struct Inclusion {
    const SourceFile* file = nullptr;
    SourcePosition includedFrom;
};

/// Appends the text of a diagnostic: path, line number and message, then the chain of `#include` lines that
/// led to the file, one a line. Ends in a line end. Without a position: the message and a line end.
void appendDiagnostic(const SourcePosition& position, std::string_view message, TextBuffer& out);
std::string formatDiagnostic(const SourcePosition& position, std::string_view message);

}  // namespace torvel
