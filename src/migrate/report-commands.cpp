#include "src/migrate/report-commands.h"

#include <fmt/format.h>

#include <algorithm>
#include <ctime>
#include <functional>

#include "src/migrate/accept-filter.h"
#include "src/migrate/command-project.h"
#include "src/migrate/embedded-pages.h"
#include "src/migrate/explain.h"
#include "src/migrate/gate.h"
#include "src/migrate/html-page.h"
#include "src/migrate/in-threads.h"
#include "src/migrate/replaced-file.h"
#include "src/migrate/report-csv.h"
#include "src/migrate/report-json.h"
#include "src/migrate/report-junit.h"
#include "src/migrate/report-sarif.h"
#include "src/migrate/report-targets.h"
#include "src/migrate/reporting.h"
#include "src/migrate/text-decoding.h"

namespace torvel::migrate {

namespace {

constexpr std::size_t usualWidth = 80;

Reporting reportingOf(const Options& options, const Project& project) {
    return {storesOf(options, project), workingDirectory(), project};
}

std::size_t widthOf(const Console& console) {
    const Terminal terminal = console.outputTerminal();
    return terminal.width == 0 ? usualWidth : terminal.width;
}

/// A format and the file that it was asked for.
struct Format {
    std::string option;
    const std::optional<std::string>& path;
    std::function<void(const Reporting&, const TextSink&)> write;
};

std::vector<Format> formatsOf(const Options& options) {
    return {
        {"--json", options.json,
         [](const Reporting& reporting, const TextSink& sink) {
             writeJsonReport(reporting.report(), reporting.places(), reporting.totals(), sink);
         }},
        {"--csv", options.csv,
         [](const Reporting& reporting, const TextSink& sink) {
             writeFindingsCsv(reporting.report(), reporting.places(), sink);
         }},
        {"--programs-csv", options.programsCsv,
         [](const Reporting& reporting, const TextSink& sink) {
             writeProgramsCsv(reporting.report(), sink);
         }},
        {"--sarif", options.sarif,
         [](const Reporting& reporting, const TextSink& sink) {
             writeSarif(reporting.report(), reporting.places(), reporting.totals(), sink);
         }},
        {"--junit", options.junit,
         [](const Reporting& reporting, const TextSink& sink) {
             writeJUnit(reporting.report(), sink);
         }},
    };
}

std::string emptyPage() {
    std::string page;
    for (const std::string_view piece : reportPage()) {
        page += piece;
    }
    return page;
}

void writePage(const Reporting& reporting, const std::string& path, const Console& console) {
    const std::string page = emptyPage();
    const HtmlPage html{reporting.report(), reporting.places(), reporting.totals(), page,
                        std::time(nullptr), threadCount(0)};
    const std::string told = writeHtmlPage(html, nativePath(path));
    if (!told.empty()) {
        console.error(visibleText(decodedText(told)) + '\n');
    }
}

/// The reports that were asked for.
std::vector<ReportTarget> targetsOf(const Options& options, const std::vector<Format>& formats) {
    std::vector<ReportTarget> targets;
    for (const Format& format : formats) {
        if (format.path) {
            targets.push_back({format.option, *format.path});
        }
    }
    if (options.html) {
        targets.push_back({"--html", *options.html, true});
    }
    return targets;
}

/// What is wrong with what was asked for; empty: nothing.
std::string faultOf(const Options& options, const std::vector<ReportTarget>& targets) {
    if (targets.empty()) {
        return "No report was asked for: name a file with --html, --json, --csv, --programs-csv, "
               "--sarif or --junit.";
    }
    if (options.html == "-" || options.html == "") {
        return "The page of --html goes to a file that ends in \".html\", or to a folder: name "
               "one.";
    }
    return clashOf(targets);
}

/// "-" is the standard output.
void writeReport(const std::string& path, const Console& console,
                 const std::function<void(const TextSink&)>& write) {
    if (path == "-") {
        write(console.output);
    } else {
        replaceFile(nativePath(path), write);
    }
}

/// On standard error if a report is on the standard output.
void tellReports(const std::vector<ReportTarget>& targets, const Console& console) {
    bool isOutputTaken = false;
    SummaryView view;
    for (const ReportTarget& target : targets) {
        if (target.shown == "-") {
            isOutputTaken = true;
        } else {
            view.reports.push_back(target.shown);
        }
    }
    view.hasColour = (isOutputTaken ? console.errorTerminal : console.outputTerminal)().hasColour;
    (isOutputTaken ? console.error : console.output)(reportsText(view));
}

}  // namespace

int statusCommand(const Options& options, const Console& console) {
    const Project project = projectOf(options);
    const Reporting reporting = reportingOf(options, project);
    console.output(statusText(reporting.report(), reporting.totals(),
                              summaryViewOf(console.outputTerminal())));
    return options.baseline ? gateStatus(reporting, project, console) : 0;
}

int reportCommand(const Options& options, const Console& console) {
    const std::vector<Format> formats = formatsOf(options);
    const std::vector<ReportTarget> targets = targetsOf(options, formats);
    if (const std::string fault = faultOf(options, targets); !fault.empty()) {
        console.error(visibleText(decodedText(fault)) + '\n');
        return wrongUse;
    }
    if (options.html && reportPage().empty()) {
        console.error(
            "This torvel-migrate was built without the page of --html, for which node and npm are "
            "needed. Take the one of the packages, or build it again where they are: "
            "docs/report-page.md tells how.\n");
        return 1;
    }
    const Project project = projectOf(options);
    std::vector<ReportedStore> stores = storesOf(options, project);
    if (const std::string fault = keptFileFault(targets, project, stores); !fault.empty()) {
        console.error(visibleText(decodedText(fault)) + '\n');
        return wrongUse;
    }
    const Reporting reporting(std::move(stores), workingDirectory(), project);
    for (const Format& format : formats) {
        if (format.path) {
            writeReport(*format.path, console,
                        [&](const TextSink& sink) { format.write(reporting, sink); });
        }
    }
    if (options.html) {
        writePage(reporting, *options.html, console);
    }
    tellReports(targets, console);
    return options.baseline ? gateStatus(reporting, project, console) : 0;
}

int explainCommand(const Options& options, const Console& console) {
    if (options.listCodes) {
        console.output(listOfCodes(widthOf(console)));
        return 0;
    }
    if (const auto text = explainedCode(options.code, widthOf(console))) {
        console.output(*text);
        return 0;
    }
    console.error(unknownCodeMessage(options.code) + '\n');
    return wrongUse;
}

int acceptCommand(const Options& options, const Console& console) {
    const Project project = projectOf(options);
    const Reporting reporting = reportingOf(options, project);
    const NativePath path = baselinePath(project);
    bool isThere = false;
    const Baseline before = readBaseline(path, isThere);
    const Baseline after = accepted(reporting.report(), reporting.places(), before,
                                    acceptFilterOf(options, project.folder, reporting.report()),
                                    unseenFiles(reporting.report(), project));
    writeBaseline(path, after);
    const auto findingsOf = [](const Baseline& baseline) {
        std::uint64_t count = 0;
        for (const BaselineEntry& entry : baseline.entries) {
            count += entry.count;
        }
        return count;
    };
    console.output(fmt::format("{} {} in the baseline {} now; {} before.\n",
                               counted(findingsOf(after), "finding", "findings"),
                               findingsOf(after) == 1 ? "is" : "are", narrowPath(path),
                               grouped(findingsOf(before))));
    return 0;
}

}  // namespace torvel::migrate
