#include "src/migrate/html-detail.h"

#include <algorithm>

#include "src/migrate/json-writer.h"
#include "src/migrate/packed-findings.h"
#include "src/migrate/text-decoding.h"

namespace torvel::migrate {

void writeLineRuns(const std::vector<MappedLine>& lines, JsonWriter& json) {
    json.beginList();
    for (const auto& [count, first] : mappedRuns(lines)) {
        json.beginList()
            .number(std::uint64_t{count})
            .number(std::uint64_t{first.file})
            .number(std::uint64_t{first.depth})
            .number(std::uint64_t{first.line})
            .number(std::uint64_t{first.outputLineCount})
            .number(std::uint64_t{first.isConverted ? 1U : 0U})
            .endList();
    }
    json.endList();
}

namespace {

void writeFiles(const std::vector<ReportFile>& files, JsonWriter& json) {
    json.name("files").beginList();
    for (const ReportFile& file : files) {
        json.beginObject()
            .member("path", file.path)
            .member("text", decodedLines(file.text))
            .endObject();
    }
    json.endList();
}

void writeFurtherLines(const HtmlTables& tables, std::size_t program, JsonWriter& json) {
    const std::uint32_t first = tables.programs[program].firstFinding;
    json.name("furtherLines").beginObject();
    auto entry = std::lower_bound(
        tables.furtherLines.begin(), tables.furtherLines.end(), first,
        [](const HtmlFurtherLines& lines, std::uint32_t number) { return lines.finding < number; });
    for (; entry != tables.furtherLines.end() && tables.findings[entry->finding].program == program;
         ++entry) {
        json.name(std::to_string(entry->finding)).beginList();
        for (const std::uint32_t line : entry->lines) {
            json.number(std::uint64_t{line});
        }
        json.endList();
    }
    json.endObject();
}

}  // namespace

void writeHtmlDetail(const ReportTexts& texts, const HtmlTables& tables, std::size_t program,
                     const TextSink& sink) {
    JsonWriter json(sink, JsonLayout::compact);
    json.beginObject();
    writeFiles(texts.files, json);
    json.name("lineMap");
    writeLineRuns(texts.lineMap, json);
    json.member("generated", decodedLines(texts.generated)).name("current");
    if (texts.current) {
        json.text(decodedLines(*texts.current));
    } else {
        json.null();
    }
    writeFurtherLines(tables, program, json);
    json.endObject().finish();
}

}  // namespace torvel::migrate
