#include "src/migrate/store-report.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

#include "src/migrate/interruption.h"
#include "src/migrate/open-findings.h"
#include "src/migrate/output-decision.h"
#include "src/migrate/output-records.h"
#include "src/migrate/outputs.h"
#include "src/migrate/recorded-source.h"
#include "src/migrate/text-lines.h"

namespace torvel::migrate {

namespace {

/// What became of a program's output.
struct OutputNow {
    OutputState state = OutputState::none;
    /// By finding; empty: all are open.
    std::vector<bool> isOpen;
};

/// Whether the bytes are what the program was converted to last, on any system.
bool isAsGenerated(const StoredProgram& program, const std::optional<std::string>& bytes) {
    const OutputRecord& record = *program.outputRecord;
    if (!bytes || record.pending || record.conflict || record.base != program.generated) {
        return false;
    }
    return hashOf(*bytes) == *record.base || hashOf(withLineFeeds(*bytes)) == *record.base;
}

OutputNow outputNow(const ReportedStore& source, const StoredProgram& program,
                    const std::vector<FindingRow>& findings) {
    if (program.status != ProgramStatus::converted || !program.outputRecord || !program.generated) {
        return {};
    }
    if (source.asGenerated && std::binary_search(source.asGenerated->begin(),
                                                 source.asGenerated->end(), program.number)) {
        return {OutputState::asGenerated, {}};
    }
    std::string ignored;
    std::optional<OutputFiles> files =
        readOutputFiles(pathOf(program.output, source.folder), ignored);
    if (!files) {
        return {program.outputRecord->pending ? OutputState::notWritten : OutputState::foreign, {}};
    }
    if (!files->conflict && isAsGenerated(program, files->output)) {
        return {OutputState::asGenerated, {}};
    }
    const OutputTexts texts = textsOf(*program.outputRecord, *source.store);
    const OutputHistory known = historyOf(*program.outputRecord, texts);
    const OutputHistory history = settled(known, *files);
    const bool isMissing = !isPendingInPlace(known, history);
    if (isMissing && !files->output) {
        return {OutputState::notWritten, {}};
    }
    OutputNow now;
    now.state = isMissing ? OutputState::notWritten : outputStateOf(history, *files);
    if (!history.base) {
        // What is there may be older than its program: a marker that it does not have may never have been there.
        return now;
    }
    const std::string generated = source.store->text(*program.generated);
    now.isOpen = openFindings({generated, *history.base, files->output.value_or("")}, findings);
    return now;
}

/// Keys as the report has them.
class Keys {
public:
    /// Those of the folder, seen from the directory; or as they are.
    explicit Keys(std::string prefix) : prefix_(std::move(prefix)) {}

    std::string operator()(const std::string& key) const {
        if (prefix_.empty() || key.empty()) {
            return key;
        }
        return keyText(tidyPath(pathAt(nativePath(prefix_), key)));
    }

    void operator()(FindingRow& row) const {
        row.file = (*this)(row.file);
        for (IncludedFrom& from : row.includedFrom) {
            from.file = (*this)(from.file);
        }
    }

private:
    std::string prefix_;
};

/// What is kept of a program between two readings. There may be very many.
struct Entry {
    /// What its store calls it.
    std::int64_t number = 0;
    std::uint32_t source = 0;
    /// None: it was not found out yet.
    std::optional<OutputState> outputState;
};

/// What all readings of a report share.
struct Sources {
    std::vector<ReportedStore> stores;
    std::vector<Keys> keys;
    std::vector<Entry> entries;
    /// By entry: which findings are open, where some are not.
    std::unordered_map<std::size_t, std::vector<bool>> isOpen;

    void read(std::size_t number, const ReportProgramTaker& take);
    ReportTexts texts(const Entry& entry) const;
};

void Sources::read(std::size_t number, const ReportProgramTaker& take) {
    Entry& entry = entries[number];
    const ReportedStore& source = stores[entry.source];
    endIfInterrupted(source.isInterrupted);
    const Keys& toKey = keys[entry.source];
    const StoredProgram stored = source.store->program(entry.number);
    std::vector<FindingRow> findings = source.store->findings(stored);
    if (!entry.outputState) {
        OutputNow now = outputNow(source, stored, findings);
        entry.outputState = now.state;
        if (std::count(now.isOpen.begin(), now.isOpen.end(), false) > 0) {
            isOpen.emplace(number, std::move(now.isOpen));
        }
    }
    const auto known = isOpen.find(number);
    ReportProgram program;
    program.program = toKey(stored.program);
    program.output = toKey(stored.output);
    program.machine = toKey(stored.machine);
    program.status = stored.status;
    program.outputState = *entry.outputState;
    program.lines = stored.lines;
    program.convertedLines = stored.convertedLines;
    program.findings.reserve(findings.size());
    for (std::size_t i = 0; i < findings.size(); ++i) {
        toKey(findings[i]);
        program.findings.push_back(
            {std::move(findings[i]), known == isOpen.end() || known->second[i]});
    }
    take(program);
}

/// Whether a person may have had a part in what is there.
bool isForeign(OutputState state) {
    return state == OutputState::edited || state == OutputState::conflict ||
           state == OutputState::foreign || state == OutputState::notWritten;
}

ReportTexts Sources::texts(const Entry& entry) const {
    const ReportedStore& source = stores[entry.source];
    const StoredProgram program = source.store->program(entry.number);
    ReportTexts texts;
    for (const StoredFile& file : source.store->files(program)) {
        texts.files.push_back({keys[entry.source](file.path), source.store->text(file.text)});
    }
    texts.lineMap = source.store->lineMap(program);
    if (program.generated) {
        texts.generated = source.store->text(*program.generated);
    }
    if (entry.outputState && isForeign(*entry.outputState)) {
        std::string ignored;
        std::optional<OutputFiles> files =
            readOutputFiles(pathOf(program.output, source.folder), ignored);
        if (files) {
            texts.current = std::move(files->output);
        }
    }
    return texts;
}

/// That of the store; of one of an older version, which has none, the paths of the outputs make it.
std::string identityOf(const Store& store) {
    std::string identity = store.projectIdentity();
    if (identity.empty()) {
        KeyBuilder key;
        store.forEachProgram(
            [&key](const StoredProgram& program) { key.add("output", program.output); });
        identity = hexadecimal(key.key());
    }
    return identity;
}

/// Several stores are a project by themselves, in whichever order they are named.
ReportProject reportedProject(const std::vector<ReportedStore>& stores,
                              const NativePath& directory) {
    if (stores.size() == 1) {
        return {identityOf(*stores[0].store), narrowPath(stores[0].folder.filename())};
    }
    std::vector<std::string> identities;
    std::transform(stores.begin(), stores.end(), std::back_inserter(identities),
                   [](const ReportedStore& source) { return identityOf(*source.store); });
    std::sort(identities.begin(), identities.end());
    KeyBuilder key;
    for (const std::string& identity : identities) {
        key.add("store", identity);
    }
    return {hexadecimal(key.key()), narrowPath(directory.filename())};
}

std::vector<Entry> entriesOf(const Sources& sources) {
    std::vector<Entry> entries;
    // Those of one store are in their order.
    std::vector<std::pair<std::string, Entry>> byKey;
    for (std::uint32_t i = 0; i < sources.stores.size(); ++i) {
        sources.stores[i].store->forEachKey([&](std::int64_t number, const std::string& program) {
            if (sources.stores.size() == 1) {
                entries.push_back({number, i, {}});
            } else {
                byKey.push_back({sources.keys[i](program), {number, i, {}}});
            }
        });
    }
    std::stable_sort(byKey.begin(), byKey.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::transform(byKey.begin(), byKey.end(), std::back_inserter(entries),
                   [](const auto& each) { return each.second; });
    return entries;
}

}  // namespace

Report reportOf(std::vector<ReportedStore> stores, const NativePath& directory,
                const Effort& effort) {
    const auto sources = std::make_shared<Sources>();
    sources->stores = std::move(stores);
    const bool isSingle = sources->stores.size() == 1;
    Report report;
    report.project = reportedProject(sources->stores, directory);
    report.effort = effort;
    for (const ReportedStore& source : sources->stores) {
        sources->keys.emplace_back(isSingle ? std::string() : keyOf(source.folder, directory));
        for (RunRow& run : source.store->runs()) {
            report.runs.push_back(std::move(run));
        }
        for (const Notice& notice : source.store->notices()) {
            const std::string path = sources->keys.back()(notice.path);
            report.notices.push_back((path.empty() ? "" : path + ": ") + notice.text);
        }
    }
    std::stable_sort(report.runs.begin(), report.runs.end(),
                     [](const RunRow& a, const RunRow& b) { return a.began < b.began; });
    sources->entries = entriesOf(*sources);
    report.forEachProgram = [sources](const ReportProgramTaker& take) {
        for (std::size_t number = 0; number < sources->entries.size(); ++number) {
            sources->read(number, take);
        }
    };
    report.textsOf = [sources](std::size_t number) {
        return sources->texts(sources->entries.at(number));
    };
    report.files = [sources] {
        std::unordered_set<std::string> files;
        for (std::size_t i = 0; i < sources->stores.size(); ++i) {
            for (const std::string& file : sources->stores[i].store->sourceFiles()) {
                files.insert(sources->keys[i](file));
            }
        }
        return files;
    };
    return report;
}

}  // namespace torvel::migrate
