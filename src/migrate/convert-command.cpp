// torvel-migrate convert: finds the programs, converts what changed, puts the outputs in place, and tells what is left.

#include "src/migrate/convert-command.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>

#include "src/base/known-folders.h"
#include "src/migrate/any-case-source.h"
#include "src/migrate/command-project.h"
#include "src/migrate/gate.h"
#include "src/migrate/interruption.h"
#include "src/migrate/machine-settings.h"
#include "src/migrate/new-file.h"
#include "src/migrate/output-owners.h"
#include "src/migrate/output-placing.h"
#include "src/migrate/progress.h"
#include "src/migrate/recorded-source.h"
#include "src/migrate/reporting.h"
#include "src/migrate/run.h"
#include "src/migrate/site-rows.h"
#include "src/migrate/source-walk.h"

namespace torvel::migrate {

namespace {

using Clock = std::chrono::steady_clock;

/// A store that is written lies in a folder that there may not be yet.
Store openForWriting(const Project& project, bool isRebuilt) {
    const NativePath path = storePath(project);
    std::error_code ignored;  // opening the store tells what is wrong
    std::filesystem::create_directories(unboundedPath(path.parent_path()), ignored);
    Store store(path, isRebuilt ? StoreUse::anew : StoreUse::write);
    store.setProjectFolder(pathFrom(canonicalPath(path.parent_path()), project.folder));
    return store;
}

/// What a run takes with it.
struct Work {
    Project project;
    Discovery discovery;
    FolderListings listings;
    KnownFolders folders;
    RunOptions options;
};

/// Whether what the command line names is less than the project.
bool namesOnlyAPart(const Project& project) {
    const auto keyIn = [&](const std::string& path) {
        return keyOf(projectPath(project, path), project.folder);
    };
    const auto isNamed = [&](const std::string& source) {
        return std::any_of(
            project.named.begin(), project.named.end(),
            [&](const std::string& named) { return isInside(keyIn(source), keyIn(named)); });
    };
    return !project.named.empty() &&
           !std::all_of(project.sources.begin(), project.sources.end(), isNamed);
}

void prepare(Work& work, const Options& options, const Console& console) {
    RunOptions& run = work.options;
    expectParameterFiles(work.project, run.limits);
    run.threads = options.threads;
    run.isCancelled = console.catchInterrupts ? console.catchInterrupts() : nullptr;
    run.reference = referenceRowsOf(work.project.reference);
    run.constants = siteConstantsOf(work.project.reference);
    run.restoresDeleted = options.restore;
    run.isPartial = !work.project.named.empty();
    run.source = anyCaseSource(withKnownFolders(fileSystemSource(), work.folders), work.listings,
                               [](const OtherCase&) {});
    work.discovery = findPrograms(work.project, options.threads, run.isCancelled);
    run.planOutput =
        placingOutputs([&work] { return sourceFilesOf(work.project, work.discovery); });
    run.flushOutputs = [&work] { flushFolder(projectPath(work.project, work.project.output)); };
}

RunSummary runTold(const Work& work, Store& store, const Options& options, const Console& console) {
    const Clock::time_point began = Clock::now();
    ProgressTeller teller(console.errorTerminal, console.error);
    RunObserver observer;
    if (!options.isQuiet) {
        observer.onProgress = [&](std::uint64_t done, std::uint64_t total) {
            teller.tell({done, total, Clock::now() - began});
        };
    }
    RunSummary summary = runConversion(work.project, work.discovery, store, work.options, observer);
    teller.clear();
    return summary;
}

/// ", 10 of them because their machine changed"
std::string machineText(std::uint64_t programs, std::uint64_t converted) {
    if (programs == 0) {
        return {};
    }
    const std::string which = converted == 1          ? ""
                              : programs == converted ? "all of them "
                                                      : grouped(programs) + " of them ";
    return ", " + which + "because " + (programs == 1 ? "its" : "their") + " machine changed";
}

/// "Converted 12 programs in 0.3 s (40 a second), 10 of them because their machine changed; 28 had not changed."
std::string runText(const RunSummary& summary, Seconds elapsed) {
    std::string text =
        fmt::format("Converted {} in {:.1f} s",
                    counted(summary.convertedNow, "program", "programs"), elapsed.count());
    if (summary.convertedNow > 0 && elapsed.count() > 0) {
        text += fmt::format(" ({:.0f} a second)",
                            static_cast<double>(summary.convertedNow) / elapsed.count());
    }
    text += machineText(summary.ofChangedMachines, summary.convertedNow);
    if (summary.unchanged > 0) {
        text += fmt::format("; {} had not changed", grouped(summary.unchanged));
    }
    if (summary.removed > 0) {
        text += fmt::format("; {} not there any more",
                            summary.removed == 1 ? "1 is" : grouped(summary.removed) + " are");
    }
    return text + ".";
}

void tellNotices(const std::vector<Notice>& notices, const Console& console) {
    std::string text;
    for (const Notice& notice : notices) {
        text += noticeLine(notice);
    }
    if (!text.empty()) {
        console.error(text);
    }
}

int convert(const Options& options, const Console& console) {
    const Clock::time_point began = Clock::now();
    Work work;
    work.project = projectOf(options);
    if (options.rebuild && namesOnlyAPart(work.project)) {
        console.error(
            "--rebuild makes the store of the whole project anew, and SOURCE names only a part of "
            "its sources, so nothing was done: leave SOURCE or --rebuild away.\n");
        return wrongUse;
    }
    prepare(work, options, console);
    if (work.discovery.programs.empty()) {
        tellNotices(work.discovery.notices, console);
        console.error("Nothing was converted; the store and the outputs stay as they are.\n");
        return 1;
    }
    const auto store = std::make_shared<Store>(openForWriting(work.project, options.rebuild));
    findOutputOwners(work.project, *store, work.discovery);
    RunSummary summary = runTold(work, *store, options, console);
    tellNotices(summary.unseenNotices, console);
    tellNotices(summary.outputNotices, console);
    if (summary.isCancelled) {
        throw Interrupted();
    }

    work.discovery.programs = {};  // which are many, and those of the store are told now
    const auto asGenerated =
        std::make_shared<const std::vector<std::int64_t>>(std::move(summary.asGenerated));
    const Reporting reporting(
        {{store, work.project.folder, asGenerated, {}, work.options.isCancelled}},
        workingDirectory(), work.project);
    summary.row.openFindings = reporting.totals().allOpen().places;
    store->endRun(summary.row);
    if (!options.isQuiet) {
        const Terminal terminal = console.outputTerminal();
        const std::string text = runText(summary, Clock::now() - began);
        console.output(terminal.width == 0 ? text + '\n' : wrapped(text, terminal.width));
        console.output(
            summaryText(reporting.report(), reporting.totals(), summaryViewOf(terminal)));
    }
    const int status = gateStatus(reporting, work.project, console);
    if (status != 0 && options.isQuiet) {
        std::erase_if(work.discovery.notices, [](const Notice& notice) { return notice.isHint; });
        tellNotices(work.discovery.notices, console);  // which the summary has; they may tell why
    }
    store->close();
    if (summary.notPlaced > 0) {
        console.error("What " + counted(summary.notPlaced, "program was", "programs were") +
                      " converted to could not be put in place; it is told above why. The rest is "
                      "done. Change that, and convert again.\n");
        return 1;
    }
    return summary.unseenNotices.empty() ? status : 1;
}

}  // namespace

int convertCommand(const Options& options, const Console& console) {
    try {
        return convert(options, console);
    } catch (const Interrupted&) {
        console.error(
            "Interrupted. What was converted is kept; the next run goes on from there.\n");
        return 1;
    }
}

}  // namespace torvel::migrate
