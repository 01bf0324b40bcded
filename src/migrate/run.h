#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "src/base/file-source.h"
#include "src/expr/reference-rows.h"
#include "src/limits.h"
#include "src/migrate/discovery.h"
#include "src/migrate/project.h"
#include "src/migrate/store.h"
#include "src/preprocess/site-constants.h"

// A run over a project: converts what changed since the last one, remembers the results, and has the outputs put in
// place. A program is as it was when everything that its result depends on is: the bytes of all files that its
// conversion asked for (those that were not there included), of its parameter file, the site's reference rows, and the
// version of the converter.
//
// Whatever moment a run ends at, the next one goes on from there. A program's rows are written in one transaction before
// its output is put in place, with the hash of the bytes that will stand there. If they do not, the next run finds that
// out and does the program again; if they do, the text they were made from becomes the base of the next merge.

namespace torvel::migrate {

/// What a text of the store is for the output of a program. Texts have line feeds.
struct OutputTexts {
    /// The text that the output was made from.
    std::optional<std::string> base;
    /// A text of an earlier run of which it is not known whether it is in place.
    std::optional<std::string> pending;
    /// The text that edits could not be merged with.
    std::optional<std::string> conflict;
};

/// An output that is to be put in place.
struct OutputTask {
    const FoundProgram& program;
    /// Where it is to stand, canonical as far as it is there.
    NativePath path;
    /// What is known of the place; its hashes belong to `texts`.
    const OutputRecord& record;
    const OutputTexts& texts;
    /// The newly generated texts, with line feeds. They stay until the output was put in place.
    std::string_view generated;
    std::string_view log;
};

/// What came of putting an output in place.
struct PlacedOutput {
    /// The output is as it was planned.
    bool isDone = false;
    /// A sentence for a person; empty: nothing is to be told.
    std::string message;
    /// The log is there too.
    bool isLogDone = false;
    /// It should be, and cannot be written.
    bool hasLogFailed = false;
};

/// What will be done with an output.
struct PlannedOutput {
    /// A person has ended the conflict: its text is the base now.
    bool isConflictOver = false;
    /// The hash of the bytes of the output that are made from the generated text when it is done; none: they are not.
    std::optional<ContentHash> placed;
    /// The hash of the conflict file that is about the generated text when it is done.
    std::optional<ContentHash> placedConflict;
    /// The hash of the log that will be beside it when it is done; none: no log is written.
    std::optional<ContentHash> pendingLog;
    /// The output is as it was generated when it is done.
    bool isAsGenerated = false;
    /// The output stays as it is, and so it will until it changes: the hash of its bytes, or `noFile`.
    std::optional<ContentHash> leftAlone;
    std::string message;
    /// Does it. Called at most once, after the store was written. None: it cannot be done, and is tried again by the
    /// next run unless the output is left alone.
    std::function<PlacedOutput()> place;
};

/// Looks at the disk and decides what is to be done with an output. Called by several threads.
using PlanOutput = std::function<PlannedOutput(const OutputTask& task)>;

struct RunOptions {
    /// Threads that convert; 0: as many as there are processors.
    unsigned threads = 0;
    /// Set by whoever wants the run to end soon, in good order. Null: nobody.
    const std::atomic<bool>* isCancelled = nullptr;
    FileSource source = fileSystemSource();
    Limits limits;
    /// The project's reference entries as the converter takes them.
    std::shared_ptr<const ReferenceRows> reference;
    std::shared_ptr<const SiteConstants> constants;
    /// Only some of the project's programs were looked for: the others stay as they are.
    bool isPartial = false;
    /// Outputs that a person has deleted are written again.
    bool restoresDeleted = false;
    PlanOutput planOutput;
    /// Waits until the outputs that were put in place are on the disk; called before the store is told that they are.
    std::function<void()> flushOutputs;
    /// Called whenever something lasting is about to be done or was done, by several threads. For tests.
    std::function<void()> onStep;
};

/// Is told of a run while it goes on, by the thread that runs it.
struct RunObserver {
    /// `done` of the `total` programs that are to be converted.
    std::function<void(std::uint64_t done, std::uint64_t total)> onProgress;
};

struct RunSummary {
    /// What the store has of the run: times, and what there is now. Who counts the open findings, which stand in the
    /// outputs, gives it to `Store::endRun`; until then the run has no end, and one that was interrupted never has.
    RunRow row;
    std::uint64_t convertedNow = 0;
    /// Of these, those whose machine changed: it is another one, has another parameter file, or the site's rows changed.
    std::uint64_t ofChangedMachines = 0;
    std::uint64_t unchanged = 0;
    std::uint64_t removed = 0;
    bool isCancelled = false;
    /// Programs of which something could not be put in place.
    std::uint64_t notPlaced = 0;
    /// What is to be told of folders whose programs were not seen: what is known of these stays as it is.
    std::vector<Notice> unseenNotices;
    /// What is to be told of the outputs that this run looked at, in the order of the programs.
    std::vector<Notice> outputNotices;
    /// What the store calls the programs whose outputs this run put in place as they were generated, in order.
    std::vector<std::int64_t> asGenerated;
};

/// Throws StoreError when the store cannot be written, std::bad_alloc; what was done until then is kept.
RunSummary runConversion(const Project& project, const Discovery& discovery, Store& store,
                         const RunOptions& options, const RunObserver& observer = {});

}  // namespace torvel::migrate
