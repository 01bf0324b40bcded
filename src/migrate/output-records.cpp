#include "src/migrate/output-records.h"

#include <utility>

#include "src/migrate/file-hashes.h"
#include "src/migrate/outputs.h"

namespace torvel::migrate {

namespace {

bool hasHash(const NativePath& path, const std::optional<ContentHash>& hash) {
    return hash && hashOfFile(path) == hash;
}

void forgetPending(OutputRecord& record) {
    record.pending.reset();
    record.placed.reset();
    record.placedConflict.reset();
}

void makePendingTheBase(OutputRecord& record) {
    record.base = record.pending;
    record.conflict.reset();
    record.conflictFile.reset();
    forgetPending(record);
}

void makePendingTheConflict(OutputRecord& record) {
    record.conflict = record.pending;
    record.conflictFile = record.placedConflict;
    forgetPending(record);
}

}  // namespace

void settleRecord(OutputRecord& record, const NativePath& output) {
    if (record.pendingLog && logHashAt(logPath(output)) == record.pendingLog) {
        noteLogDone(record);
    }
    if (!record.pending) {
        return;
    }
    if (hasHash(output, record.placed)) {
        makePendingTheBase(record);
    } else if (hasHash(conflictPath(output), record.placedConflict)) {
        makePendingTheConflict(record);
    }
}

bool isDeleted(const OutputRecord& record, const NativePath& output) {
    return record.base && fileKind(output) == FileKind::missing;
}

OutputTexts textsOf(const OutputRecord& record, const Store& store) {
    const auto text = [&](const std::optional<ContentHash>& hash) {
        return hash ? std::optional(store.text(*hash)) : std::nullopt;
    };
    return {text(record.base), text(record.pending), text(record.conflict)};
}

OutputHistory historyOf(const OutputRecord& record, const OutputTexts& texts) {
    OutputHistory history;
    history.base = texts.base;
    if (texts.conflict) {
        history.conflict = {*texts.conflict, record.conflictFile.value_or(ContentHash{})};
    }
    history.pending = texts.pending;
    history.placed = record.placed;
    history.placedConflict = record.placedConflict;
    return history;
}

void notePlanned(OutputRecord& record, const ContentHash& generated, const PlannedOutput& plan) {
    if (plan.isConflictOver) {
        record.base = record.conflict;
        record.conflict.reset();
        record.conflictFile.reset();
    }
    record.pending = generated;
    record.placed = plan.placed;
    record.placedConflict = plan.placedConflict;
    record.leftAlone = plan.leftAlone;
    if (plan.pendingLog) {
        record.pendingLog = plan.pendingLog;
    }
}

void noteLogDone(OutputRecord& record) {
    if (record.pendingLog) {
        record.log = std::exchange(record.pendingLog, std::nullopt);
    }
}

void noteDone(OutputRecord& record) {
    if (record.placed) {
        makePendingTheBase(record);
    } else if (record.placedConflict) {
        makePendingTheConflict(record);
    } else {
        forgetPending(record);
    }
}

}  // namespace torvel::migrate
