#include "src/language/answers.h"

#include <array>
#include <map>
#include <span>
#include <utility>

#include "src/migrate/embedded-pages.h"
#include "src/migrate/explanations.h"
#include "src/migrate/finding-names.h"
#include "src/migrate/json-writer.h"
#include "src/migrate/recorded-source.h"
#include "src/migrate/text-decoding.h"
#include "src/migrate/text-lines.h"

namespace torvel::language {

using migrate::JsonWriter;

namespace {

/// An editor does not show more of a file at once.
constexpr std::size_t mostFindings = 1000;

/// Writes one object.
template <typename Write>
std::string answer(Write write) {
    std::string text;
    const migrate::TextSink sink = [&](std::string_view piece) { text += piece; };
    JsonWriter json(sink, migrate::JsonLayout::compact);
    json.beginObject();
    write(json);
    json.endObject().finish();
    return text;
}

std::string pathOf(const Plant& plant, std::string_view key) {
    return migrate::projectPath(plant.project(), key).generic_string();
}

/// Where the lines of a program came from, and where in the output they are.
std::vector<std::uint32_t> lineNumbersOf(const migrate::ProgramResult& result) {
    std::vector<std::uint32_t> numbers;
    numbers.reserve(result.lineMap.size() * 5);
    std::uint32_t outputLine = 0;
    for (const migrate::MappedLine& line : result.lineMap) {
        numbers.insert(numbers.end(), {line.file, line.line - 1, outputLine, line.outputLineCount,
                                       line.isConverted ? 1U : 0U});
        outputLine += line.outputLineCount;
    }
    return numbers;
}

std::vector<std::uint32_t> nameNumbersOf(const std::vector<NameRow>& rows) {
    std::vector<std::uint32_t> numbers;
    numbers.reserve(rows.size() * 8);
    for (const NameRow& row : rows) {
        numbers.insert(numbers.end(), {row.kind, row.isDefinition ? 1U : 0U, row.file, row.line,
                                       row.begin, row.end, row.name, row.value});
    }
    return numbers;
}

/// What an editor marks: the columns, or the whole line without the blanks in front of it.
ColumnRange shownColumns(const migrate::FindingRow& row, ColumnRange columns, bool isUtf8) {
    if (columns.first != 0) {
        return columns;
    }
    const auto end = static_cast<std::uint32_t>(row.lineText.size());
    const std::size_t first = row.lineText.find_first_not_of(" \t");
    return editorColumns(
        row.lineText, {static_cast<std::uint32_t>(first == std::string::npos ? 0 : first + 1), end},
        isUtf8);
}

void writeFinding(const migrate::FindingRow& row, std::uint64_t file, bool isUtf8,
                  const std::map<std::string, std::size_t>& files, JsonWriter& json) {
    const ColumnRange columns = editorColumns(row.lineText, row.columns, isUtf8);
    const ColumnRange shown = shownColumns(row, columns, isUtf8);
    json.beginObject()
        .member("file", file)
        .member("line", std::uint64_t{row.line})
        .member("column", std::uint64_t{columns.first})
        .member("lastColumn", std::uint64_t{columns.last})
        .member("begin", std::uint64_t{shown.first == 0 ? 0 : shown.first - 1})
        .member("end", std::uint64_t{shown.last})
        .member("code", row.code)
        .member("origin", migrate::originName(row.origin))
        .member("todo", migrate::todoName(row.todo))
        .member("severity", severityName(row.severity))
        .member("text", row.text);
    json.name("furtherLines").beginList();
    for (const std::uint32_t line : row.lines) {
        json.number(std::uint64_t{line});
    }
    json.endList().name("includedFrom").beginList();
    for (const migrate::IncludedFrom& from : row.includedFrom) {
        json.beginObject()
            .member("file", std::uint64_t{files.at(from.file)})
            .member("line", std::uint64_t{from.line})
            .endObject();
    }
    json.endList().endObject();
}

void writeFindings(const migrate::ProgramResult& result, JsonWriter& json) {
    std::map<std::string, std::size_t> files;
    std::vector<bool> areUtf8;
    for (const migrate::ConvertedFile& file : result.files) {
        files.emplace(file.path, files.size());
        areUtf8.push_back(migrate::isUtf8(file.text));
    }
    std::vector<std::uint64_t> counts(result.files.size());
    json.name("findings").beginList();
    for (const migrate::FindingRow& row : result.findings) {
        const auto file = files.find(row.file);
        // The program itself could not be opened.
        const std::size_t number = file == files.end() ? 0 : file->second;
        if (number < counts.size() && ++counts[number] > mostFindings) {
            continue;
        }
        writeFinding(row, number, number < areUtf8.size() && areUtf8[number], files, json);
    }
    json.endList().name("findingCounts").beginList();
    for (const std::uint64_t count : counts) {
        json.number(count);
    }
    json.endList();
}

}  // namespace

std::string plantAnswer(Plant& plant, std::uint32_t number) {
    return answer([&](JsonWriter& json) {
        json.member("project", number)
            .member("folder", plant.project().folder.generic_string())
            .member("file", plant.project().file.generic_string());
        json.name("notices").beginList();
        for (const migrate::Notice& notice : plant.discovery().notices) {
            json.beginObject()
                .member("path", pathOf(plant, notice.path))
                .member("text", notice.text)
                .endObject();
        }
        json.endList().name("programs").beginList();
        for (const migrate::FoundProgram& program : plant.discovery().programs) {
            json.text(migrate::pathOf(program.program, plant.project().folder).generic_string());
        }
        json.endList().name("parts").beginList();
        for (const Part& part : plant.parts()) {
            json.beginObject().member("path", part.path).name("programs").beginList();
            for (const std::uint32_t program : part.programs) {
                json.number(std::uint64_t{program});
            }
            json.endList().endObject();
        }
        json.endList();
    });
}

std::string programAnswer(const Plant& plant, const migrate::ProgramResult& result,
                          const AxisNames& axes) {
    return answer([&](JsonWriter& json) {
        json.member("program", pathOf(plant, result.program))
            .member("status", migrate::statusName(result.status))
            .member("codeLines", result.lines)
            .member("convertedLines", result.convertedLines);
        json.name("files").beginList();
        for (const migrate::ConvertedFile& file : result.files) {
            json.beginObject()
                .member("path", pathOf(plant, file.path))
                .member("shown", file.path)
                .endObject();
        }
        json.endList();
        writeFindings(result, json);
        json.name("axes").beginList();
        for (const std::string& axis : axes.names()) {
            json.text(axis);
        }
        json.endList().name("inputs").beginList();
        for (const migrate::Input& input : result.inputs) {
            json.text(pathOf(plant, input.path));
        }
        json.endList();
    });
}

Answer namesAnswer(const migrate::ProgramResult& result, const ProgramNames& names) {
    std::string text = answer([&](JsonWriter& json) {
        json.name("texts").beginList();
        for (const std::string& name : names.texts) {
            json.text(name);
        }
        json.endList().name("output").utf8(migrate::decodedLines(result.outputText));
    });
    return {std::move(text), nameNumbersOf(names.rows), lineNumbersOf(result)};
}

namespace {

void writeCodes(std::string_view page, std::span<const std::string_view> pieces, JsonWriter& json) {
    std::string text;
    for (const std::string_view piece : pieces) {
        text += piece;
    }
    for (const auto& [code, explanation] : migrate::explanationsOf(text)) {
        json.name(code)
            .beginObject()
            .member("page", page)
            .member("title", explanation.title)
            .member("body", explanation.body)
            .member("section", explanation.section)
            .endObject();
    }
}

}  // namespace

std::string tablesAnswer(const SiteConstants* constants) {
    const PredefinedTable& table =
        constants != nullptr ? constants->table() : predefinedConstants();
    return answer([&](JsonWriter& json) {
        json.name("codes").beginObject();
        writeCodes("messages.md", migrate::messagesPage(), json);
        writeCodes("checks.md", migrate::checksPage(), json);
        writeCodes("plant-findings.md", migrate::plantPage(), json);
        json.endObject().name("predefined").beginObject();
        for (std::size_t row = 0; row < table.rows.size(); ++row) {
            const PredefinedConstant& constant = table.rows[row];
            json.name(constant.name)
                .beginObject()
                .member("value", constant.value)
                .member("torvel",
                        constant.replacement == nullptr ? std::string_view() : constant.replacement)
                .name("isComposed")
                .boolean(table.isComposed(row))
                .endObject();
        }
        json.endObject();
    });
}

std::string faultAnswer(std::string_view sentence) {
    return answer([&](JsonWriter& json) { json.member("fault", sentence); });
}

}  // namespace torvel::language
