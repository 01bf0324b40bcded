#include "src/migrate/run.h"

#include <algorithm>
#include <chrono>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

#include "src/migrate/changed-programs.h"
#include "src/migrate/file-hashes.h"
#include "src/migrate/found-program.h"
#include "src/migrate/in-threads.h"
#include "src/migrate/interruption.h"
#include "src/migrate/known-texts.h"
#include "src/migrate/left-outputs.h"
#include "src/migrate/machine-settings.h"
#include "src/migrate/ordered-work.h"
#include "src/migrate/output-owners.h"
#include "src/migrate/output-records.h"
#include "src/migrate/recorded-source.h"
#include "src/migrate/source-walk.h"
#include "src/migrate/text-layout.h"

namespace torvel::migrate {

namespace {

/// Outputs of that many programs are confirmed together: before that they have to be on the disk.
constexpr std::uint64_t confirmedAtOnce = 2000;

std::int64_t now() {
    return std::chrono::duration_cast<std::chrono::seconds>(
               std::chrono::system_clock::now().time_since_epoch())
        .count();
}

/// A program between its conversion and the place of its output.
struct ConvertedProgram {
    const FoundProgram* found = nullptr;
    /// What the store calls it, when it has it.
    std::int64_t number = 0;
    PackedProgram packed;
    std::string generated;
    std::string log;
    std::optional<OutputRecord> record;
    PlannedOutput plan;
    std::size_t size = 0;
};

class Run {
public:
    Run(const Project& project, const Discovery& discovery, Store& store, const RunOptions& options,
        const RunObserver& observer)
        : project_(project),
          discovery_(discovery),
          store_(store),
          options_(options),
          observer_(observer),
          threads_(threadCount(options.threads)),
          settings_(settingsOfMachines(project, discovery, options)),
          knowsOutputs_(store.hasOutputs()) {}

    RunSummary run();

private:
    void step() const {
        if (options_.onStep) {
            options_.onStep();
        }
    }
    NativePath outputPath(const std::string& output) const {
        return pathOf(output, project_.folder);
    }
    void begin();
    void tellUnseen(const KnownProgramSet& known);
    void removeVanished(const KnownProgramSet& known);
    std::vector<ChangedProgram> findChanged();
    void noteMachines(const KnownProgramSet& known, const std::vector<ChangedProgram>& changed);
    std::unique_ptr<ConvertedProgram> convert(const FoundProgram& found);
    void planOutput(ConvertedProgram& program, const ContentHash& generated);
    void place(ConvertedProgram& program);
    void settlePending(KnownProgramSet& known);
    void confirm(const std::vector<OutputRecord>& records);
    void convertAll(const std::vector<ChangedProgram>& changed);
    std::vector<OutputRecord> takePlaced();
    void end();
    void tell(const FoundProgram& found, std::string message);

    const Project& project_;
    const Discovery& discovery_;
    Store& store_;
    const RunOptions& options_;
    const RunObserver& observer_;
    unsigned threads_;
    SettingsOfMachines settings_;
    /// The store knew of outputs when the run began.
    bool knowsOutputs_;
    /// Made when something is converted.
    std::optional<KnownTexts> texts_;
    RunSummary summary_;
    std::vector<Notice> noticesOfSources_;
    bool needsSweep_ = false;

    std::atomic<std::uint64_t> notPlaced_ = 0;
    std::mutex placedMutex_;
    /// Records of outputs that were put in place, which the store does not know yet.
    std::vector<OutputRecord> placed_;
    std::vector<std::int64_t> asGenerated_;
    std::vector<std::pair<const FoundProgram*, std::string>> told_;
};

RunSummary Run::run() {
    begin();
    try {
        const std::vector<ChangedProgram> changed = findChanged();
        summary_.unchanged = discovery_.programs.size() - changed.size();
        convertAll(changed);
        endIfInterrupted(options_.isCancelled);
    } catch (const Interrupted&) {
        summary_.isCancelled = true;
    }
    end();
    return std::move(summary_);
}

std::vector<ChangedProgram> Run::findChanged() {
    KnownProgramSet known = knownPrograms(store_, discovery_, options_.restoresDeleted);
    settlePending(known);
    tellUnseen(known);
    removeVanished(known);
    std::vector<ChangedProgram> changed =
        changedPrograms(project_, discovery_, known, settings_, options_, threads_);
    noteMachines(known, changed);
    return changed;
}

/// A store of an older version does not know what machines gave: programs that have not changed have it as it is now.
void Run::noteMachines(const KnownProgramSet& known, const std::vector<ChangedProgram>& changed) {
    std::vector<std::pair<std::int64_t, ContentHash>> hashes;
    auto next = changed.begin();
    for (std::size_t i = 0; i < known.programs.size(); ++i) {
        const KnownProgram& program = known.programs[i];
        if (next != changed.end() && next->number == i) {
            ++next;
        } else if (!program.machineHash) {
            const FoundProgram& found = discovery_.programs[i];
            hashes.emplace_back(program.number,
                                machineHashOf(found, settings_.at(found.parameters)));
        }
    }
    if (!hashes.empty()) {
        step();
        store_.setMachineHashes(hashes);
        step();
    }
}

void Run::begin() {
    needsSweep_ = store_.wasCutOff();
    summary_.row.version = TORVEL_VERSION;
    summary_.row.began = now();
    step();
    store_.beginRun(summary_.row);
    step();
}

void Run::settlePending(KnownProgramSet& known) {
    std::vector<OutputRecord*> pending;
    for (auto& [program, record] : known.openOutputs) {
        if (record.pending || record.pendingLog) {
            pending.push_back(&record);
        }
    }
    for (OutputRecord& record : known.otherOutputs) {
        pending.push_back(&record);
    }
    // Bytes, which several threads can write next to each other.
    std::vector<char> isSettled(pending.size());
    inThreads(threads_, pending.size(), [&](std::size_t i, unsigned) {
        OutputRecord record = *pending[i];
        settleRecord(record, outputPath(record.output));
        if (record != *pending[i]) {
            *pending[i] = std::move(record);
            isSettled[i] = 1;
        }
    });
    std::vector<OutputRecord> inPlace;
    for (std::size_t i = 0; i < pending.size(); ++i) {
        if (isSettled[i] != 0) {
            inPlace.push_back(*pending[i]);
        }
    }
    confirm(inPlace);
}

void Run::confirm(const std::vector<OutputRecord>& records) {
    if (records.empty()) {
        return;
    }
    if (options_.flushOutputs) {
        options_.flushOutputs();
    }
    step();
    store_.writeOutputs(records);
    step();
}

void Run::tellUnseen(const KnownProgramSet& known) {
    const auto knownIn = [&](const std::string& folder) {
        auto count = static_cast<std::uint64_t>(std::count_if(
            known.others.begin(), known.others.end(),
            [&](const OtherProgram& other) { return isInside(other.program, folder); }));
        for (std::size_t i = 0; i < known.programs.size(); ++i) {
            if (known.programs[i].number != 0 && isInside(discovery_.programs[i].program, folder)) {
                ++count;
            }
        }
        return count;
    };
    for (const std::string& folder : discovery_.unlisted) {
        const std::uint64_t count = knownIn(folder);
        summary_.unseenNotices.push_back(
            {folder,
             "It could not be listed, so programs in it were not converted" +
                 (count == 0 ? std::string(".")
                             : "; what is known of " + counted(count, "program", "programs") +
                                   " in it stays as it is.")});
    }
    for (const std::string& source : discovery_.emptySources) {
        if (const std::uint64_t count = knownIn(source); count > 0 && !options_.isPartial) {
            Notice notice{source,
                          "No programs were found in it, though there were before; what is "
                          "known of " +
                              counted(count, "program", "programs") +
                              " in it stays as it is. If they are gone for good, name this "
                              "source no more."};
            noticesOfSources_.push_back(notice);
            summary_.unseenNotices.push_back(std::move(notice));
        }
    }
}

void Run::removeVanished(const KnownProgramSet& known) {
    if (options_.isPartial) {
        return;
    }
    const std::vector<std::int64_t> numbers = vanishedPrograms(discovery_, known);
    summary_.removed = numbers.size();
    if (!numbers.empty()) {
        needsSweep_ = true;
        step();
        store_.removePrograms(numbers);
        step();
    }
}

std::unique_ptr<ConvertedProgram> Run::convert(const FoundProgram& found) {
    const MachineSettings& settings = settings_.at(found.parameters);
    ProgramResult result = resultOf(found, settings);
    auto program = std::make_unique<ConvertedProgram>();
    program->found = &found;
    program->packed = packedProgram(result);
    program->packed.machine = found.machine;
    program->packed.key = keyOfProgram(found, settings, result.inputs);
    program->packed.machineHash = machineHashOf(found, settings);
    for (const ConvertedFile& file : result.files) {
        texts_->add(file.hash, file.text, program->packed.texts);
    }
    program->generated = std::move(result.outputText);
    program->log = std::move(result.logText);
    if (result.status == ProgramStatus::converted) {
        const ContentHash generated = hashOf(program->generated);
        texts_->add(generated, program->generated, program->packed.texts);
        program->packed.generated = generated;
        planOutput(*program, generated);
    }
    program->size =
        program->generated.size() + program->log.size() + program->packed.findings.size();
    for (const PackedText& text : program->packed.texts) {
        program->size += text.bytes->size();
    }
    return program;
}

void Run::planOutput(ConvertedProgram& program, const ContentHash& generated) {
    if (!options_.planOutput) {
        return;
    }
    const FoundProgram& found = *program.found;
    OutputRecord record;
    record.output = found.output;
    if (knowsOutputs_) {
        // A program may have got that of another one.
        if (std::optional<OutputRecord> known = store_.recordOf(found.output)) {
            record = std::move(*known);
        }
    }
    if (isOfOtherProgram(record, found, project_, discovery_)) {
        // Nothing is there any more: what was edited in it is gone, and of no use here.
        OutputRecord fresh;
        fresh.output = record.output;
        fresh.log = record.log;
        fresh.pendingLog = record.pendingLog;
        record = std::move(fresh);
    }
    record.program = found.program;
    const NativePath path = outputPath(found.output);
    settleRecord(record, path);
    if (options_.restoresDeleted && isDeleted(record, path)) {
        record.base.reset();  // as if nothing had ever been put there
        record.conflict.reset();
        record.conflictFile.reset();
    }
    const OutputTexts texts = textsOf(record, store_);
    program.plan =
        options_.planOutput({found, path, record, texts, program.generated, program.log});
    notePlanned(record, generated, program.plan);
    program.packed.outputRecord = record;
    program.record = std::move(record);
}

void Run::place(ConvertedProgram& program) {
    if (!program.record) {
        return;
    }
    tell(*program.found, std::move(program.plan.message));
    PlacedOutput placed{program.plan.leftAlone.has_value(), {}};
    if (program.plan.place) {
        step();
        placed = program.plan.place();
        step();
    }
    tell(*program.found, std::move(placed.message));
    if (!placed.isDone || placed.hasLogFailed) {
        ++notPlaced_;
    }
    if (placed.isLogDone) {
        noteLogDone(*program.record);
    }
    if (placed.isDone) {
        noteDone(*program.record);
    }
    if (placed.isDone || placed.isLogDone) {
        const std::lock_guard lock(placedMutex_);
        if (placed.isDone && program.plan.isAsGenerated) {
            asGenerated_.push_back(program.number);
        }
        placed_.push_back(std::move(*program.record));
    }
}

void Run::tell(const FoundProgram& found, std::string message) {
    if (!message.empty()) {
        const std::lock_guard lock(placedMutex_);
        told_.emplace_back(&found, std::move(message));
    }
}

std::vector<OutputRecord> Run::takePlaced() {
    const std::lock_guard lock(placedMutex_);
    return std::exchange(placed_, {});
}

void Run::convertAll(const std::vector<ChangedProgram>& changed) {
    if (changed.empty()) {
        return;
    }
    const std::vector<ContentHash> stored = store_.textHashes();
    // What a program was converted to before may be nobody's when it is converted anew.
    needsSweep_ = needsSweep_ || !stored.empty();
    texts_.emplace(stored);
    OrderedWork<ConvertedProgram> work(
        changed.size(), threads_,
        {[&](std::size_t i) { return convert(discovery_.programs[changed[i].number]); },
         [&](ConvertedProgram& program) { place(program); },
         [](const ConvertedProgram& program) { return program.size; }});
    while (std::unique_ptr<ConvertedProgram> program = work.next()) {
        step();
        program->number = store_.write(program->packed);
        step();
        texts_->markStored(program->packed.texts);
        work.finish(std::move(program));
        summary_.ofChangedMachines += changed[summary_.convertedNow].hasOtherMachine ? 1 : 0;
        ++summary_.convertedNow;
        if (observer_.onProgress) {
            observer_.onProgress(summary_.convertedNow, changed.size());
        }
        if (summary_.convertedNow % confirmedAtOnce == 0) {
            confirm(takePlaced());
        }
        if (!summary_.isCancelled && options_.isCancelled != nullptr && *options_.isCancelled) {
            summary_.isCancelled = true;
            work.beginNoMore();
        }
    }
    work.waitForAll();
    confirm(takePlaced());
}

void Run::end() {
    const LeftOutputs outputs = leftOutputs(project_, store_);
    std::vector<Notice> notices;
    for (const std::vector<Notice>* some :
         {&outputs.edited, &discovery_.notices, &std::as_const(noticesOfSources_),
          &outputs.asGenerated}) {
        notices.insert(notices.end(), some->begin(), some->end());
    }
    if (!outputs.gone.empty()) {
        needsSweep_ = true;
        step();
        store_.removeOutputs(outputs.gone);
    }
    step();
    store_.replaceNotices(notices);
    if (needsSweep_) {
        step();
        store_.removeUnusedTexts();
    }
    const RunRow totals = store_.totals();
    RunRow& row = summary_.row;
    row.programs = totals.programs;
    row.converted = totals.converted;
    row.lines = totals.lines;
    row.convertedLines = totals.convertedLines;
    step();
    store_.endRun(row);  // without an end: who counts the open findings writes that
    step();
    row.ended = summary_.isCancelled ? 0 : now();
    for (const FoundProgram& found : discovery_.programs) {
        if (!found.outputOwner.empty()) {
            told_.emplace_back(&found, sentenceOnOwner(found));
        }
    }
    std::stable_sort(told_.begin(), told_.end(), [](const auto& left, const auto& right) {
        return left.first < right.first;  // in the order of the programs
    });
    summary_.notPlaced = notPlaced_;
    std::sort(asGenerated_.begin(), asGenerated_.end());
    summary_.asGenerated = std::move(asGenerated_);
    for (auto& [found, message] : told_) {
        summary_.outputNotices.push_back({found->output, std::move(message)});
    }
}

}  // namespace

RunSummary runConversion(const Project& project, const Discovery& discovery, Store& store,
                         const RunOptions& options, const RunObserver& observer) {
    return Run(project, discovery, store, options, observer).run();
}

}  // namespace torvel::migrate
