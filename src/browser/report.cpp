// The report over what was converted: for the page that shows it, and as files.

#include <algorithm>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <unordered_map>

#include "src/browser/exchange.h"
#include "src/browser/program-record.h"
#include "src/browser/session.h"
#include "src/migrate/html-detail.h"
#include "src/migrate/html-page.h"
#include "src/migrate/html-summary.h"
#include "src/migrate/program-faults.h"
#include "src/migrate/replaced-file.h"
#include "src/migrate/report-csv.h"
#include "src/migrate/report-json.h"
#include "src/migrate/report-junit.h"
#include "src/migrate/report-sarif.h"

namespace torvel::browser {

namespace {

using migrate::HtmlTables;
using migrate::Places;
using migrate::Report;
using migrate::ReportProgram;
using migrate::ReportTexts;
using migrate::ReportTotals;
using migrate::TextSink;

/// The programs of a report, and what is counted of them when all are there.
struct ReportedRun {
    Report report;
    std::vector<ReportProgram> programs;
    std::unique_ptr<Places> places;
    ReportTotals totals;
    HtmlTables tables;
};

std::unique_ptr<ReportedRun>& current() {
    static std::unique_ptr<ReportedRun> run;
    return run;
}

ReportedRun& reportedRun() {
    if (!current()) {
        throw std::runtime_error("No report was begun.");
    }
    return *current();
}

/// Programs are converted again when their texts are asked for: that takes less than to keep them all.
ReportTexts textsOf(const ReportProgram& program) {
    ReportTexts texts;
    if (program.status == migrate::ProgramStatus::collides) {
        return texts;
    }
    const auto ended = [](const migrate::ReportFinding& finding) {
        return finding.row.code == migrate::conversionEnded;
    };
    if (std::any_of(program.findings.begin(), program.findings.end(), ended)) {
        return texts;
    }
    for (const migrate::FoundProgram& found : session().discovery.programs) {
        if (found.program != program.program) {
            continue;
        }
        migrate::ProgramResult result = converted(found);
        for (migrate::ConvertedFile& file : result.files) {
            texts.files.push_back({std::move(file.path), std::move(file.text)});
        }
        texts.lineMap = std::move(result.lineMap);
        texts.generated = std::move(result.outputText);
    }
    return texts;
}

migrate::RunRow runOf(Request& request) {
    migrate::RunRow run;
    run.version = TORVEL_VERSION;
    run.began = static_cast<std::int64_t>(request.number());
    run.ended = static_cast<std::int64_t>(request.number());
    run.programs = request.number();
    run.converted = request.number();
    run.lines = request.number();
    run.convertedLines = request.number();
    run.openFindings = request.number();
    return run;
}

/// The request has: the name of the project; earlier runs of the same page, as `torvelFinishReport` told them.
void beginReport(Request& request) {
    current() = std::make_unique<ReportedRun>();
    ReportedRun& run = *current();
    const migrate::Project& project = session().project;
    run.report.project.name = request.text();
    migrate::KeyBuilder key;
    key.add("project in a browser", run.report.project.name);
    run.report.project.identity = migrate::hexadecimal(key.key());
    run.report.effort = project.effort;
    for (std::uint64_t runs = request.number(); runs > 0; --runs) {
        run.report.runs.push_back(runOf(request));
    }
    for (const migrate::Notice& notice : session().discovery.notices) {
        run.report.notices.push_back((notice.path.empty() ? "" : notice.path + ": ") + notice.text);
    }
    run.report.forEachProgram = [&run](const migrate::ReportProgramTaker& take) {
        for (const ReportProgram& program : run.programs) {
            take(program);
        }
    };
    run.report.textsOf = [&run](std::size_t number) { return textsOf(run.programs.at(number)); };
}

migrate::RunRow totalsAsRun(const ReportedRun& run) {
    migrate::RunRow row;
    row.version = TORVEL_VERSION;
    row.programs = run.totals.programs;
    row.converted =
        run.totals.byStatus[static_cast<std::size_t>(migrate::ProgramStatus::converted)];
    row.lines = run.totals.lines;
    row.convertedLines = run.totals.convertedLines;
    row.openFindings = run.totals.allOpen().places;
    return row;
}

std::string runJson(const migrate::RunRow& row) {
    std::string text;
    const TextSink sink = [&text](std::string_view piece) { text += piece; };
    migrate::JsonWriter json(sink, migrate::JsonLayout::compact);
    json.beginList()
        .number(row.began)
        .number(row.ended)
        .number(row.programs)
        .number(row.converted)
        .number(row.lines)
        .number(row.convertedLines)
        .number(row.openFindings)
        .endList()
        .finish();
    return text;
}

/// The request has: when the run began and ended.
std::string finishReport(Request& request) {
    ReportedRun& run = reportedRun();
    run.places = std::make_unique<Places>(run.report);
    run.totals = totalsOf(run.report, *run.places);
    run.tables = htmlTablesOf(run.report, *run.places);
    migrate::RunRow row = totalsAsRun(run);
    row.began = static_cast<std::int64_t>(request.number());
    row.ended = static_cast<std::int64_t>(request.number());
    run.report.runs.push_back(row);
    return runJson(row);
}

std::string summaryJson(std::int64_t made) {
    const ReportedRun& run = reportedRun();
    std::string text;
    migrate::writeHtmlSummary({run.report, *run.places, run.totals, run.tables, made},
                              [&text](std::string_view piece) { text += piece; });
    return text;
}

std::string detailJson(std::size_t number) {
    const ReportedRun& run = reportedRun();
    std::string text;
    writeHtmlDetail(run.report.textsOf(number), run.tables, number,
                    [&text](std::string_view piece) { text += piece; });
    return text;
}

std::string bytesOf(const NativePath& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// The request has: when it is made; where the page without data is, in the file system of the instance; where the page
/// goes. Returns a sentence for people, empty if there is nothing to say.
std::string writePage(Request& request) {
    const ReportedRun& run = reportedRun();
    const auto made = static_cast<std::int64_t>(request.number());
    const std::string page = bytesOf(nativePath(request.text()));
    return migrate::writeHtmlPage({run.report, *run.places, run.totals, page, made},
                                  nativePath(request.text()));
}

std::string textOf(const std::function<void(const TextSink&)>& write) {
    std::string text;
    write([&text](std::string_view piece) { text += piece; });
    return text;
}

std::string reportText(std::string_view format) {
    const ReportedRun& run = reportedRun();
    return textOf([&](const TextSink& sink) {
        if (format == "json") {
            writeJsonReport(run.report, *run.places, run.totals, sink);
        } else if (format == "csv") {
            writeFindingsCsv(run.report, *run.places, sink);
        } else if (format == "programs-csv") {
            writeProgramsCsv(run.report, sink);
        } else if (format == "sarif") {
            writeSarif(run.report, *run.places, run.totals, sink);
        } else if (format == "junit") {
            writeJUnit(run.report, sink);
        } else {
            throw std::runtime_error("There is no such format.");
        }
    });
}

}  // namespace

}  // namespace torvel::browser

TORVEL_EXPORT int torvelBeginReport(const char* bytes, std::size_t size) {
    using namespace torvel::browser;
    return answered([&] {
        Request request(bytes, size);
        beginReport(request);
        return std::string();
    });
}

/// A program's record; they come in the order of the programs.
TORVEL_EXPORT int torvelAddRecord(const char* bytes, std::size_t size) {
    using namespace torvel::browser;
    return answered([&] {
        reportedRun().programs.push_back(unpackedRecord(std::string_view(bytes, size)));
        return std::string();
    });
}

TORVEL_EXPORT int torvelFinishReport(const char* bytes, std::size_t size) {
    using namespace torvel::browser;
    return answered([&] {
        Request request(bytes, size);
        return finishReport(request);
    });
}

/// What the page shows first, as JSON (web/src/data/format.ts). The request has when it is made.
TORVEL_EXPORT int torvelSummary(const char* bytes, std::size_t size) {
    using namespace torvel::browser;
    return answered(
        [&] { return summaryJson(static_cast<std::int64_t>(Request(bytes, size).number())); });
}

/// What it shows of a program.
TORVEL_EXPORT int torvelDetail(const char* bytes, std::size_t size) {
    using namespace torvel::browser;
    return answered(
        [&] { return detailJson(static_cast<std::size_t>(Request(bytes, size).number())); });
}

TORVEL_EXPORT int torvelWritePage(const char* bytes, std::size_t size) {
    using namespace torvel::browser;
    return answered([&] {
        Request request(bytes, size);
        return writePage(request);
    });
}

/// The report as a file of a format: "json", "csv", "programs-csv", "sarif", "junit".
TORVEL_EXPORT int torvelReportText(const char* bytes, std::size_t size) {
    using namespace torvel::browser;
    return answered([&] { return reportText(Request(bytes, size).text()); });
}
