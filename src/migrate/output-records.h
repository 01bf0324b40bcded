#pragma once

#include "src/migrate/output-decision.h"
#include "src/migrate/run.h"

// How the record of an output goes on from one run to the next.

namespace torvel::migrate {

/// Finds out whether what was about to be put in place when the record was written is there.
void settleRecord(OutputRecord& record, const NativePath& output);

/// Whether an output that was put in place is there no more.
bool isDeleted(const OutputRecord& record, const NativePath& output);

/// The texts that a record is about.
OutputTexts textsOf(const OutputRecord& record, const Store& store);

/// The history of an output: what a record says, with its texts, which have to live as long.
OutputHistory historyOf(const OutputRecord& record, const OutputTexts& texts);

/// The record that is written before the plan is carried out.
void notePlanned(OutputRecord& record, const ContentHash& generated, const PlannedOutput& plan);

/// The record after the plan was carried out.
void noteDone(OutputRecord& record);
void noteLogDone(OutputRecord& record);

}  // namespace torvel::migrate
