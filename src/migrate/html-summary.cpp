#include "src/migrate/html-summary.h"

#include <array>

#include "src/migrate/explanations.h"
#include "src/migrate/finding-names.h"
#include "src/migrate/html-help.h"
#include "src/migrate/json-writer.h"
#include "src/migrate/report-json.h"

namespace torvel::migrate {

namespace {

constexpr std::uint64_t dataFormat = 1;

// What stands in a column is the place in the lists of format.ts.
static_assert(static_cast<int>(FindingTodo::rewrite) == 0 &&
              static_cast<int>(FindingTodo::complete) == 1 &&
              static_cast<int>(FindingTodo::look) == 2 &&
              static_cast<int>(FindingTodo::fixSource) == 3);
static_assert(static_cast<int>(Severity::none) == 0 && static_cast<int>(Severity::moves) == 1 &&
              static_cast<int>(Severity::stops) == 2 && static_cast<int>(Severity::reads) == 3);
static_assert(static_cast<int>(FindingOrigin::message) == 0 &&
              static_cast<int>(FindingOrigin::check) == 1 &&
              static_cast<int>(FindingOrigin::define) == 2);
static_assert(static_cast<int>(ProgramStatus::converted) == 0 &&
              static_cast<int>(ProgramStatus::unreadable) == 1 &&
              static_cast<int>(ProgramStatus::collides) == 2);
static_assert(static_cast<int>(OutputState::none) == 0 &&
              static_cast<int>(OutputState::asGenerated) == 1 &&
              static_cast<int>(OutputState::edited) == 2 &&
              static_cast<int>(OutputState::conflict) == 3 &&
              static_cast<int>(OutputState::deleted) == 4 &&
              static_cast<int>(OutputState::foreign) == 5 &&
              static_cast<int>(OutputState::notWritten) == 6);

template <typename Row, typename Value>
void writeColumn(std::string_view name, const std::vector<Row>& rows, const Value& value,
                 JsonWriter& json) {
    json.name(name).beginList();
    for (const Row& row : rows) {
        json.number(static_cast<std::uint64_t>(value(row)));
    }
    json.endList();
}

void writeProject(const ReportProject& project, JsonWriter& json) {
    json.name("project")
        .beginObject()
        .member("identity", project.identity)
        .member("name", project.name)
        .endObject();
}

void writeNotices(const std::vector<std::string>& notices, JsonWriter& json) {
    json.name("notices").beginList();
    for (const std::string& notice : notices) {
        json.text(notice);
    }
    json.endList();
}

void writeEffort(const Effort& effort, JsonWriter& json) {
    json.name("effort").beginObject();
    for (const FindingTodo todo : todos) {
        const MinuteRange& minutes = minutesOf(effort, todo);
        json.name(todoName(todo)).beginList().number(minutes.least).number(minutes.most).endList();
    }
    json.endObject();
}

void writeCounts(std::string_view name, const std::array<FindingCount, 4>& counts,
                 JsonWriter& json) {
    json.name(name).beginList();
    for (const FindingCount& count : counts) {
        json.beginList().number(count.places).number(count.inOutputs).endList();
    }
    json.endList();
}

void writeTotals(const ReportTotals& totals, JsonWriter& json) {
    json.name("totals")
        .beginObject()
        .member("programs", totals.programs)
        .member("lines", totals.lines)
        .member("convertedLines", totals.convertedLines);
    writeCounts("open", totals.open, json);
    writeCounts("finished", totals.finished, json);
    json.endObject();
}

void writeRules(const std::vector<std::string>& codes, JsonWriter& json) {
    const Explanation unknown;
    json.name("rules").beginList();
    for (const std::string& code : codes) {
        const auto entry = explanations().find(code);
        const bool isKnown = entry != explanations().end();
        const Explanation& explanation = isKnown ? entry->second : unknown;
        json.beginObject()
            .member("code", code)
            .member("title", isKnown ? explanation.title : code)
            .member("help", helpOfPage(explanation.body))
            .member("section", explanation.section)
            .endObject();
    }
    json.endList();
}

void writeStrings(const HtmlStrings& strings, JsonWriter& json) {
    json.name("strings").beginList();
    for (const std::string& text : strings.all()) {
        json.text(text);
    }
    json.endList();
}

void writePrograms(const std::vector<HtmlProgram>& programs, JsonWriter& json) {
    const auto column = [&](std::string_view name, const auto& value) {
        writeColumn(name, programs, value, json);
    };
    json.name("programs").beginObject();
    column("path", [](const HtmlProgram& row) { return row.path; });
    column("output", [](const HtmlProgram& row) { return row.output; });
    column("machine", [](const HtmlProgram& row) { return row.machine; });
    column("status", [](const HtmlProgram& row) { return row.status; });
    column("outputState", [](const HtmlProgram& row) { return row.outputState; });
    column("lines", [](const HtmlProgram& row) { return row.lines; });
    column("convertedLines", [](const HtmlProgram& row) { return row.convertedLines; });
    json.endObject();
}

void writePlaces(const HtmlTables& tables, const Places& places, JsonWriter& json) {
    json.name("places").beginObject().name("fingerprint").beginList();
    for (const Place* place : tables.places) {
        json.text(places.fingerprint(*place));
    }
    json.endList().endObject();
}

void writeFindings(const std::vector<HtmlFinding>& findings, JsonWriter& json) {
    const auto column = [&](std::string_view name, const auto& value) {
        writeColumn(name, findings, value, json);
    };
    json.name("findings").beginObject();
    column("program", [](const HtmlFinding& row) { return row.program; });
    column("place", [](const HtmlFinding& row) { return row.place; });
    column("rule", [](const HtmlFinding& row) { return row.rule; });
    column("file", [](const HtmlFinding& row) { return row.file; });
    column("line", [](const HtmlFinding& row) { return row.line; });
    column("column", [](const HtmlFinding& row) { return row.columns.first; });
    column("lastColumn", [](const HtmlFinding& row) { return row.columns.last; });
    column("origin", [](const HtmlFinding& row) { return row.origin; });
    column("todo", [](const HtmlFinding& row) { return row.todo; });
    column("severity", [](const HtmlFinding& row) { return row.severity; });
    column("open", [](const HtmlFinding& row) { return row.isOpen; });
    column("text", [](const HtmlFinding& row) { return row.text; });
    column("lineText", [](const HtmlFinding& row) { return row.lineText; });
    column("chain", [](const HtmlFinding& row) { return row.chain; });
    column("outputLine", [](const HtmlFinding& row) { return row.outputLine; });
    column("outputLineCount", [](const HtmlFinding& row) { return row.outputLineCount; });
    json.endObject();
}

void writeChains(const std::vector<std::vector<std::uint32_t>>& chains, JsonWriter& json) {
    json.name("chains").beginList();
    for (const std::vector<std::uint32_t>& chain : chains) {
        json.beginList();
        for (const std::uint32_t number : chain) {
            json.number(std::uint64_t{number});
        }
        json.endList();
    }
    json.endList();
}

}  // namespace

void writeHtmlSummary(const HtmlSummary& summary, const TextSink& sink) {
    const Report& report = summary.report;
    JsonWriter json(sink, JsonLayout::compact);
    json.beginObject()
        .member("format", dataFormat)
        .member("version", TORVEL_VERSION)
        .name("made")
        .number(summary.made);
    writeProject(report.project, json);
    writeRuns(report.runs, json);
    writeNotices(report.notices, json);
    writeEffort(report.effort, json);
    writeTotals(summary.totals, json);
    writeRules(summary.tables.codes, json);
    writeStrings(summary.tables.strings, json);
    writePrograms(summary.tables.programs, json);
    writePlaces(summary.tables, summary.places, json);
    writeFindings(summary.tables.findings, json);
    writeChains(summary.tables.chains, json);
    json.member("details", summary.details == HtmlDetails::inside ? "inside" : "files");
    json.endObject().finish();
}

}  // namespace torvel::migrate
