#pragma once

#include <algorithm>
#include <initializer_list>
#include <vector>

#include "src/base/check-record.h"

// Checks that need the whole program. Every branch of a conditional comes out, so they follow each way through:
// what reaches a place is what some way to it may have left there. They read the facts of a record in the order
// of the program's lines, take time in proportion to them, and append findings.
//
// The ways are joined where a conditional ends, so a name that is defined inside conditionals costs a step for each
// of the 64 innermost ones around it.

namespace torvel {

/// The facts of a program in the order of its lines, but for the lines that open and close blocks.
class Facts {
public:
    void add(const Fact& fact) {
        list_.push_back(&fact);
        kinds_ |= bit(fact.kind);
    }
    std::size_t size() const { return list_.size(); }
    const Fact& operator[](std::size_t number) const { return *list_[number]; }
    /// Whether there are facts of one of these kinds.
    bool haveOneOf(std::initializer_list<Fact::Kind> kinds) const {
        return std::any_of(kinds.begin(), kinds.end(),
                           [&](Fact::Kind kind) { return (kinds_ & bit(kind)) != 0; });
    }

private:
    static constexpr std::uint32_t bit(Fact::Kind kind) {
        return std::uint32_t{1} << static_cast<unsigned>(kind);
    }

    std::vector<const Fact*> list_;
    std::uint32_t kinds_ = 0;
};

/// condition-lost, condition-frozen, macro-kept-out
void checkDefines(const Facts& facts, CheckRecord& record);

/// argument-sum, argument-set
void checkArguments(const Facts& facts, CheckRecord& record);

/// jump-target
void checkJumps(const Facts& facts, CheckRecord& record);

/// block-shape
void checkBlocks(const Facts& facts, CheckRecord& record);

/// name-shadows
void checkNames(const Program& program, const Facts& facts, CheckRecord& record);

/// Appends a finding at the place of a fact, which is one of the record or stands at a line.
void addFinding(CheckRecord& record, Check check, const Fact& fact);

}  // namespace torvel
