#pragma once

#include "src/base/check-record.h"

// Checks that need the whole program. Every branch of a conditional comes out, so they follow each way through:
// what reaches a place is what some way to it may have left there. They read the facts of a record in the order
// of the program's lines, take time in proportion to them, and append findings.
//
// The ways are joined where a conditional ends, so a name that is defined inside conditionals costs a step for each
// of the 64 innermost ones around it.

namespace torvel {

/// condition-lost, condition-frozen, macro-kept-out
void checkDefines(CheckRecord& record);

/// argument-sum, argument-set
void checkArguments(CheckRecord& record);

/// jump-target
void checkJumps(CheckRecord& record);

/// block-shape
void checkBlocks(CheckRecord& record);

/// name-shadows
void checkNames(CheckRecord& record);

/// Appends a finding at the place of a fact.
void addFinding(CheckRecord& record, Check check, const Fact& fact);

}  // namespace torvel
