#include "src/language/program-names.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <unordered_map>

#include "src/base/characters.h"
#include "src/base/check-record.h"
#include "src/migrate/text-decoding.h"
#include "src/migrate/text-lines.h"

namespace torvel::language {

ColumnRange editorColumns(std::string_view line, ColumnRange columns, bool isUtf8) {
    return isUtf8 ? migrate::utf16Columns(line, columns) : columns;
}

namespace {

/// A place in a line of a file: bytes from 0.
struct Found {
    std::uint32_t line = 0;
    std::size_t begin = 0;
};

struct FileText {
    std::uint32_t number = 0;
    std::vector<std::string_view> lines;
    bool isUtf8 = false;
    /// Columns of bytes are those of an editor.
    bool isAscii = false;
};

/// Texts by number. Most names have no value: the empty one is 0.
class TextNumbers {
public:
    /// `text` has to stay where it is.
    std::uint32_t numberOf(std::string_view text) {
        if (text.empty()) {
            return 0;
        }
        const auto [entry, isNew] =
            numbers_.try_emplace(text, static_cast<std::uint32_t>(texts_.size()));
        if (isNew) {
            texts_.emplace_back(text);
        }
        return entry->second;
    }
    std::vector<std::string> take() { return std::move(texts_); }

private:
    std::unordered_map<std::string_view, std::uint32_t> numbers_;
    std::vector<std::string> texts_{std::string()};
};

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool isPartOfWord(char c) {
    return isWordCharacter(c) || c == '$';
}

/// The first place of a word at or behind `from`.
std::size_t findWord(std::string_view line, std::string_view word, std::size_t from) {
    for (std::size_t at = line.find(word, from); at != std::string_view::npos;
         at = line.find(word, at + 1)) {
        const std::size_t end = at + word.size();
        if ((at == 0 || !isPartOfWord(line[at - 1]) || !isPartOfWord(word.front())) &&
            (end == line.size() || !isWordCharacter(line[end]) || !isWordCharacter(word.back()))) {
            return at;
        }
    }
    return std::string_view::npos;
}

class Rows {
public:
    explicit Rows(const migrate::ConvertedNames& names) : program_(names.program) {
        std::uint32_t number = 0;
        for (const SourceFile& file : program_.files) {
            const std::string_view text = program_.text.view(file.text);
            files_[&file] = {number++, migrate::sourceLinesOf(text), migrate::isUtf8(text),
                             isAscii(text)};
        }
        rows_.reserve(names.places.size());
        for (const NamePlace& place : names.places) {
            add(place);
        }
        for (const Inclusion& inclusion : program_.inclusions) {
            addInclude(inclusion);
        }
    }

    ProgramNames inOrder() {
        const auto sortKey = [](const NameRow& row) {
            return std::tuple(row.file, row.line, row.begin, row.kind, !row.isDefinition);
        };
        std::stable_sort(rows_.begin(), rows_.end(), [&](const NameRow& a, const NameRow& b) {
            return sortKey(a) < sortKey(b);
        });
        // The place of a declaration is one of a variable too.
        const auto isSame = [](const NameRow& a, const NameRow& b) {
            return std::tie(a.file, a.line, a.begin, a.kind, a.name) ==
                   std::tie(b.file, b.line, b.begin, b.kind, b.name);
        };
        rows_.erase(std::unique(rows_.begin(), rows_.end(), isSame), rows_.end());
        return {std::move(rows_), texts_.take()};
    }

private:
    void add(const NamePlace& place) {
        if (place.position.inclusion == nullptr || place.position.lineNumber == 0) {
            return;
        }
        const FileText& file = files_.at(place.position.inclusion->file);
        NameRow row;
        row.kind = static_cast<std::uint8_t>(place.kind);
        row.isDefinition = place.role == NamePlace::Role::definition;
        row.file = file.number;
        row.line = place.position.lineNumber - 1;
        if (row.line >= file.lines.size()) {
            return;
        }
        if (!place.name.empty() && !setColumns(row, place, file)) {
            return;
        }
        row.name = texts_.numberOf(place.name);
        row.value = texts_.numberOf(place.value);
        rows_.push_back(row);
    }

    bool setColumns(NameRow& row, const NamePlace& place, const FileText& file) {
        const ColumnRange columns =
            columnsOf(program_, place.position, place.lineText, place.place);
        if (columns.first != 0) {
            setColumns(row, file, columns);
            return true;
        }
        if (place.kind == NamePlace::Kind::statement || place.kind == NamePlace::Kind::item) {
            return false;
        }
        const std::optional<Found> found = search(place, file);
        if (found) {
            row.line = found->line;
            const auto first = static_cast<std::uint32_t>(found->begin + 1);
            setColumns(row, file,
                       {first, first + static_cast<std::uint32_t>(place.name.size()) - 1});
        }
        return found.has_value();
    }

    static void setColumns(NameRow& row, const FileText& file, ColumnRange columns) {
        const ColumnRange units =
            file.isAscii ? columns : editorColumns(file.lines[row.line], columns, file.isUtf8);
        row.begin = units.first == 0 ? 0 : units.first - 1;
        row.end = units.last;
    }

    /// A name that stands in text that was put together: in a directive of several lines, or in a line that lost a
    /// block comment. It is looked for in the lines of the file, behind where it was found before.
    std::optional<Found> search(const NamePlace& place, const FileText& file) {
        const std::uint32_t first = place.position.lineNumber - 1;
        Found& next = searched_
                          .try_emplace({file.number, first, std::string(place.name),
                                        static_cast<std::uint8_t>(place.kind)},
                                       Found{first, 0})
                          .first->second;
        while (next.line < file.lines.size()) {
            const std::string_view line = file.lines[next.line];
            const std::size_t at = findWord(line, place.name, next.begin);
            if (at != std::string_view::npos) {
                const Found found = {next.line, at};
                next.begin = at + place.name.size();
                return found;
            }
            const std::string_view text = trimBlanks(line);
            if (text.find('\\') == std::string_view::npos) {
                break;
            }
            ++next.line;
            next.begin = 0;
        }
        return std::nullopt;
    }

    /// The path of an `#include` stands between the first two quotes of its line.
    void addInclude(const Inclusion& inclusion) {
        if (inclusion.includedFrom.inclusion == nullptr) {
            return;
        }
        const FileText& file = files_.at(inclusion.includedFrom.inclusion->file);
        const std::uint32_t number = inclusion.includedFrom.lineNumber - 1;
        const std::string_view line =
            number < file.lines.size() ? file.lines[number] : std::string_view();
        const std::size_t quote = line.find('"');
        const std::size_t end = line.find('"', quote + 1);
        if (quote == std::string_view::npos || end == std::string_view::npos || end == quote + 1) {
            return;
        }
        NameRow row;
        row.kind = includeKind;
        row.file = file.number;
        row.line = number;
        row.name = texts_.numberOf(line.substr(quote + 1, end - quote - 1));
        row.value = files_.at(inclusion.file).number;
        setColumns(row, file,
                   {static_cast<std::uint32_t>(quote + 2), static_cast<std::uint32_t>(end)});
        rows_.push_back(row);
    }

    const Program& program_;
    std::unordered_map<const SourceFile*, FileText> files_;
    std::map<std::tuple<std::uint32_t, std::uint32_t, std::string, std::uint8_t>, Found> searched_;
    TextNumbers texts_;
    std::vector<NameRow> rows_;
};

}  // namespace

ProgramNames programNamesOf(const migrate::ConvertedNames& names) {
    return Rows(names).inOrder();
}

}  // namespace torvel::language
