#include "src/migrate/report-json.h"

#include "src/migrate/finding-names.h"
#include "src/migrate/json-writer.h"
#include "src/migrate/text-decoding.h"

namespace torvel::migrate {

void writeRuns(const std::vector<RunRow>& runs, JsonWriter& json) {
    json.name("runs").beginList();
    for (const RunRow& run : runs) {
        json.beginObject()
            .member("version", run.version)
            .name("began")
            .number(run.began)
            .name("ended")
            .number(run.ended)
            .member("programs", run.programs)
            .member("converted", run.converted)
            .member("lines", run.lines)
            .member("convertedLines", run.convertedLines)
            .member("openFindings", run.openFindings)
            .endObject();
    }
    json.endList();
}

namespace {

void writeFinding(const ReportFinding& finding, const std::string& fingerprint, JsonWriter& json) {
    const FindingRow& row = finding.row;
    const ColumnRange columns = utf16Columns(row.lineText, row.columns);
    json.beginObject()
        .member("file", row.file)
        .member("line", std::uint64_t{row.line})
        .member("column", std::uint64_t{columns.first})
        .member("lastColumn", std::uint64_t{columns.last})
        .member("code", row.code)
        .member("origin", originName(row.origin))
        .member("todo", todoName(row.todo))
        .member("severity", severityName(row.severity))
        .name("open")
        .boolean(finding.isOpen)
        .member("text", row.text)
        .member("lineText", row.lineText);
    json.name("furtherLines").beginList();
    for (const std::uint32_t line : row.lines) {
        json.number(std::uint64_t{line});
    }
    json.endList().name("includedFrom").beginList();
    for (const IncludedFrom& from : row.includedFrom) {
        json.beginObject()
            .member("file", from.file)
            .member("line", std::uint64_t{from.line})
            .endObject();
    }
    json.endList()
        .member("outputLine", std::uint64_t{row.outputLine})
        .member("outputLineCount", std::uint64_t{row.outputLineCount})
        .member("fingerprint", fingerprint)
        .endObject();
}

void writeProgram(const ReportProgram& program, const Places& places, Places::Cursor& cursor,
                  JsonWriter& json) {
    json.beginObject()
        .member("path", program.program)
        .member("output", program.output)
        .member("machine", program.machine)
        .member("status", programStatusName(program))
        .member("outputState", outputStateName(program.outputState))
        .member("lines", program.lines)
        .member("convertedLines", program.convertedLines)
        .name("findings")
        .beginList();
    for (const ReportFinding& finding : program.findings) {
        writeFinding(finding, places.fingerprint(cursor.next(finding.row)), json);
    }
    json.endList().endObject();
}

void writeCount(std::string_view name, const FindingCount& count, JsonWriter& json) {
    json.name(name)
        .beginObject()
        .member("places", count.places)
        .member("inOutputs", count.inOutputs)
        .endObject();
}

void writeCountsByTodo(std::string_view name, const std::array<FindingCount, 4>& counts,
                       JsonWriter& json) {
    json.name(name).beginObject();
    for (const FindingTodo todo : todos) {
        writeCount(todoName(todo), counts[static_cast<std::size_t>(todo)], json);
    }
    json.endObject();
}

void writeTotals(const ReportTotals& totals, JsonWriter& json) {
    json.name("totals").beginObject().member("programs", totals.programs);
    json.name("byStatus").beginObject();
    for (const ProgramStatus status :
         {ProgramStatus::converted, ProgramStatus::unreadable, ProgramStatus::collides}) {
        json.member(statusName(status), totals.byStatus[static_cast<std::size_t>(status)]);
    }
    json.endObject().name("byOutputState").beginObject();
    for (std::size_t state = 0; state < totals.byOutputState.size(); ++state) {
        json.member(outputStateName(static_cast<OutputState>(state)), totals.byOutputState[state]);
    }
    json.endObject().member("lines", totals.lines).member("convertedLines", totals.convertedLines);
    writeCountsByTodo("open", totals.open, json);
    writeCountsByTodo("finished", totals.finished, json);
    json.name("openBySeverity").beginObject();
    for (const Severity severity : severities) {
        writeCount(severityName(severity), totals.bySeverity[static_cast<std::size_t>(severity)],
                   json);
    }
    json.endObject().name("openByCode").beginObject();
    for (const auto& [code, count] : totals.byCode) {
        writeCount(code, count, json);
    }
    json.endObject().endObject();
}

void writeRange(std::string_view name, const MinuteRange& minutes, JsonWriter& json) {
    json.name(name)
        .beginObject()
        .name("least")
        .number(minutes.least)
        .name("most")
        .number(minutes.most)
        .endObject();
}

void writeEstimate(const Report& report, const ReportTotals& totals, JsonWriter& json) {
    json.name("estimate").beginObject().name("minutesEach").beginObject();
    for (const FindingTodo todo : todos) {
        writeRange(todoName(todo), minutesOf(report.effort, todo), json);
    }
    json.endObject();
    writeRange("minutesForPlaces", estimate(totals, report.effort, &FindingCount::places), json);
    writeRange("minutesForOutputs", estimate(totals, report.effort, &FindingCount::inOutputs),
               json);
    json.endObject();
}

}  // namespace

void writeJsonReport(const Report& report, const Places& places, const ReportTotals& totals,
                     const TextSink& sink) {
    JsonWriter json(sink);
    json.beginObject().name("format").number(std::uint64_t{1});
    json.name("tool")
        .beginObject()
        .member("name", "torvel-migrate")
        .member("version", TORVEL_VERSION)
        .endObject();
    writeRuns(report.runs, json);
    json.name("notices").beginList();
    for (const std::string& notice : report.notices) {
        json.text(notice);
    }
    json.endList().name("programs").beginList();
    Places::Cursor cursor(places);
    report.forEachProgram([&places, &cursor, &json](const ReportProgram& program) {
        writeProgram(program, places, cursor, json);
    });
    json.endList();
    writeTotals(totals, json);
    writeEstimate(report, totals, json);
    json.endObject().finish();
}

}  // namespace torvel::migrate
