#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "src/migrate/program-conversion.h"

// Where the names of a program stand, as an editor counts: lines and columns from 0, columns in units of UTF-16.

namespace torvel::language {

/// What a row is about. It is NamePlace::Kind, and behind that:
inline constexpr std::uint8_t includeKind = 64;

struct NameRow {
    std::uint8_t kind = 0;
    bool isDefinition = false;
    /// The number of the file in the program, and the line in it.
    std::uint32_t file = 0;
    std::uint32_t line = 0;
    /// From the first column up to the one behind the last. Both 0: the line alone.
    std::uint32_t begin = 0;
    std::uint32_t end = 0;
    /// Numbers of texts. The value of an include is the number of the file that it leads to.
    std::uint32_t name = 0;
    std::uint32_t value = 0;
};

struct ProgramNames {
    /// In the order of files, lines and columns, each place once however often its file is included.
    std::vector<NameRow> rows;
    /// Bytes, as the program has them; each text once.
    std::vector<std::string> texts;
};

ProgramNames programNamesOf(const migrate::ConvertedNames& names);

/// The columns of a place in a line of a file, of which it is known whether its bytes are UTF-8. In any other file
/// each byte is a character of one unit.
ColumnRange editorColumns(std::string_view line, ColumnRange columns, bool isUtf8);

}  // namespace torvel::language
