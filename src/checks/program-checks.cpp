#include "src/checks/program-checks.h"

#include <algorithm>
#include <optional>
#include <unordered_map>
#include <unordered_set>

#include "src/base/name-set.h"
#include "src/checks/spellings.h"
#include "src/checks/ways.h"

namespace torvel {

using Kind = Fact::Kind;

namespace {

const DirectiveFact& directive(const Fact& fact) {
    return static_cast<const DirectiveFact&>(fact);
}

/// What a directive says; empty for a fact of a line.
std::string_view valueOf(const Fact& fact) {
    return fact.isDirective ? directive(fact).value : std::string_view();
}

}  // namespace

/// The text says which name it is about. A block has none.
void addFinding(CheckRecord& record, Check check, const Fact& fact) {
    RecordedFinding finding = recordedFinding(
        check, fact.columns, check == Check::BlockShape ? std::string_view() : fact.name);
    finding.programLine = fact.programLine;
    if (fact.isDirective) {
        finding.number = static_cast<std::uint32_t>(&directive(fact) - record.directives.begin());
    }
    record.findings.push_back(finding);
}

namespace {

/// Follows a directive of a conditional; false: the fact is none.
bool followConditional(Ways& ways, const Facts& facts, std::size_t number) {
    const Fact& fact = facts[number];
    switch (fact.kind) {
        case Kind::ifdef:
            ways.openConditional(number, fact.name, valueOf(fact).starts_with('!'));
            return true;
        case Kind::elif: ways.nextBranch(number, false); return true;
        case Kind::otherwise: ways.nextBranch(number, true); return true;
        case Kind::endif: ways.closeConditional(); return true;
        default: return false;
    }
}

/// What a define or macro leaves under its name.
Reaching reachingOf(const Fact& fact, std::size_t number) {
    Reaching reaching;
    reaching.latest = number + 1;
    reaching.mayBeNone = fact.kind == Kind::undef;
    reaching.mayBeKept = fact.kind == Kind::define;
    reaching.mayBeLost = fact.kind == Kind::lostDefine;
    reaching.mayBeMacro = fact.kind == Kind::macro;
    reaching.mayBeLostMacro = fact.kind == Kind::lostMacro;
    if (fact.kind == Kind::define || fact.kind == Kind::lostDefine) {
        reaching.value = &directive(fact).value;
    }
    return reaching;
}

/// Whether a line from `first` up to `last` opens or closes a block.
bool hasBlockLine(const CheckRecord& record, std::uint32_t first, std::uint32_t last) {
    const auto standsBefore = [](const BlockLine& block, std::uint32_t line) {
        return block.programLine < line;
    };
    return std::any_of(record.blocksOfLines.begin(), record.blocksOfLines.end(),
                       [&](const GrowingArray<BlockLine>& part) {
                           const BlockLine* const block =
                               std::lower_bound(part.begin(), part.end(), first, standsBefore);
                           return block != part.end() && block->programLine < last;
                       });
}

/// #ifndef NAME with #define NAME behind it keeps a file from being read twice.
bool isIncludeGuard(const Facts& facts, const CheckRecord& record, std::size_t number) {
    if (facts[number].kind != Kind::ifdef || !valueOf(facts[number]).starts_with('!') ||
        number + 1 == facts.size()) {
        return false;
    }
    const Fact& next = facts[number + 1];
    return next.kind == Kind::lostDefine && next.name == facts[number].name &&
           !hasBlockLine(record, facts[number].programLine, next.programLine);
}

bool isConditionLost(const Reaching& reaching, const Fact& fact) {
    const bool isPredefined = valueOf(fact).ends_with('*');
    return reaching.mayBeLost || reaching.mayBeLostMacro ||
           (isPredefined && reaching.mayBeNone && reaching.latest == 0);
}

bool asksForPredefined(const Facts& facts) {
    for (std::size_t number = 0; number < facts.size(); ++number) {
        if (valueOf(facts[number]).ends_with('*') &&
            (facts[number].kind == Kind::ifdef || facts[number].kind == Kind::elif)) {
            return true;
        }
    }
    return false;
}

/// The lines that are asked for in their order: whether they stand behind a marker. Such a line has a message that says
/// why, or is a macro that is not kept.
class MarkedLines {
public:
    explicit MarkedLines(const CheckRecord& record) : parts_(record.ofLines) {}

    bool contains(std::uint32_t line) {
        for (; part_ < parts_.size(); ++part_, place_ = 0) {
            const GrowingArray<RecordedFinding>& findings = parts_[part_].findings;
            for (; place_ < findings.size() && findings[place_].programLine <= line; ++place_) {
                if (findings[place_].origin == FindingOrigin::message &&
                    findings[place_].todo == FindingTodo::rewrite) {
                    last_ = findings[place_].programLine;
                }
            }
            if (place_ < findings.size()) {
                break;
            }
        }
        return last_ == line;
    }

private:
    const std::vector<PartFindings>& parts_;
    std::size_t part_ = 0;
    std::size_t place_ = 0;
    /// The last marked line that was met.
    std::optional<std::uint32_t> last_;
};

/// The uses of names in a line of which the columns are not known: those of one name are one finding.
class UsesWithoutPlace {
public:
    bool isFirst(const Fact& fact) {
        if (fact.programLine != line_) {
            line_ = fact.programLine;
            names_.clear();
        }
        return fact.columns != ColumnRange() || names_.insert(fact.name).second;
    }

private:
    std::uint32_t line_ = 0;
    std::unordered_set<std::string_view> names_;
};

}  // namespace

void checkDefines(const Facts& facts, CheckRecord& record) {
    if (!facts.haveOneOf({Kind::lostDefine, Kind::lostMacro, Kind::valueUse}) &&
        !asksForPredefined(facts)) {
        return;
    }
    MarkedLines marked(record);
    UsesWithoutPlace uses;
    Ways ways;
    for (std::size_t number = 0; number < facts.size(); ++number) {
        const Fact& fact = facts[number];
        const bool asks = fact.kind == Kind::ifdef || fact.kind == Kind::elif;
        if (asks && isConditionLost(ways.at(fact.name), fact) &&
            !isIncludeGuard(facts, record, number)) {
            addFinding(record, Check::ConditionLost, fact);
        }
        if (followConditional(ways, facts, number)) {
            continue;
        }
        switch (fact.kind) {
            case Kind::undef:
            case Kind::define:
            case Kind::lostDefine:
            case Kind::macro:
            case Kind::lostMacro: ways.set(fact.name, reachingOf(fact, number)); break;
            case Kind::valueUse:
                if (ways.at(fact.name).hasSeveralValues && !marked.contains(fact.programLine) &&
                    uses.isFirst(fact)) {
                    addFinding(record, Check::ConditionFrozen, fact);
                }
                break;
            case Kind::macroCall:
                if (ways.at(fact.name).mayBeLostMacro) {
                    addFinding(record, Check::MacroKeptOut, fact);
                }
                break;
            default: break;
        }
    }
}

/// A macro of several definitions may be any of them where it is called.
void checkArguments(const Facts& facts, CheckRecord& record) {
    if (!facts.haveOneOf({Kind::argumentUse})) {
        return;
    }
    std::unordered_map<std::string_view, std::uint8_t> uses;
    for (std::size_t number = 0; number < facts.size(); ++number) {
        const Fact& fact = facts[number];
        if (fact.kind == Kind::argumentUse) {
            uses[fact.name] |= fact.sides;
        }
    }
    for (std::size_t number = 0; number < facts.size(); ++number) {
        const Fact& fact = facts[number];
        const auto use = uses.find(fact.name);
        if (fact.kind != Kind::argument || use == uses.end()) {
            continue;
        }
        const unsigned met = fact.sides & use->second;
        if ((met & (Fact::leftSide | Fact::rightSide)) != 0) {
            addFinding(record, Check::ArgumentSum, fact);
        }
        if ((met & Fact::isSet) != 0) {
            addFinding(record, Check::ArgumentSet, fact);
        }
    }
}

namespace {

/// The labels and functions that the output has.
struct Targets {
    NameSet labels;
    NameSet functions;
    /// Labels that stand several times, be it in several functions.
    NameSet repeatedLabels;
};

Targets targetsOf(const Facts& facts) {
    Targets targets;
    for (std::size_t number = 0; number < facts.size(); ++number) {
        const Fact& fact = facts[number];
        if (fact.kind == Kind::label && !targets.labels.insert(fact.name)) {
            targets.repeatedLabels.insert(fact.name);
        } else if (fact.kind == Kind::function) {
            targets.functions.insert(fact.name);
        }
    }
    return targets;
}

/// A label of a function is another one than that of the same name in front of it.
std::string_view labelKey(CheckRecord& record, std::size_t function, std::string_view label) {
    return function == 0 ? label
                         : record.texts.keep(std::to_string(function) + ':' + std::string(label));
}

/// A label that a way has met before. Two that stand in conditionals of their own may exclude each other.
bool isMetBefore(const Ways& ways, const Reaching& reaching) {
    return reaching.mayBeKept && (!reaching.mayBeNone || reaching.latest > ways.branchStart());
}

}  // namespace

void checkJumps(const Facts& facts, CheckRecord& record) {
    if (!facts.haveOneOf({Kind::label, Kind::jump, Kind::call})) {
        return;
    }
    Targets targets = targetsOf(facts);
    Ways ways;
    std::size_t functions = 0;
    std::size_t function = 0;
    for (std::size_t number = 0; number < facts.size(); ++number) {
        const Fact& fact = facts[number];
        if (followConditional(ways, facts, number)) {
            continue;
        }
        switch (fact.kind) {
            case Kind::function: function = ++functions; break;
            case Kind::functionEnd: function = 0; break;
            case Kind::jump:
                if (!targets.labels.contains(fact.name)) {
                    addFinding(record, Check::JumpTarget, fact);
                }
                break;
            case Kind::call:
                if (!targets.functions.contains(fact.name)) {
                    addFinding(record, Check::JumpTarget, fact);
                }
                break;
            case Kind::label: {
                if (fact.isInBody || !targets.repeatedLabels.contains(fact.name)) {
                    break;
                }
                Reaching reaching;
                reaching.mayBeNone = false;
                reaching.mayBeKept = true;
                reaching.latest = number + 1;
                if (isMetBefore(ways, ways.set(labelKey(record, function, fact.name), reaching))) {
                    addFinding(record, Check::JumpTarget, fact);
                }
                break;
            }
            default: break;
        }
    }
}

namespace {

bool isName(Kind kind) {
    return kind == Kind::define || kind == Kind::macro || kind == Kind::label ||
           kind == Kind::function;
}

Fact factOf(const Program& program, const VariablePlace& variable) {
    Fact fact;
    fact.kind = Kind::variable;
    fact.programLine = variable.programLine;
    fact.columns = columnsOf(program, program.lines.positionOf(variable.programLine),
                             variable.lineText, variable.name);
    fact.name = program.text.view(variable.name);
    return fact;
}

/// All variables of a record, in the order of the program's lines.
class Variables {
public:
    explicit Variables(const CheckRecord& record) : parts_(record.variablesOfLines) {}

    /// The next variable that stands in front of that line; null: there is none.
    const VariablePlace* next(std::uint32_t behind) {
        while (part_ < parts_.size() && place_ == parts_[part_].size()) {
            ++part_;
            place_ = 0;
        }
        const bool isThere = part_ < parts_.size() && parts_[part_][place_].programLine < behind;
        return isThere ? &parts_[part_][place_++] : nullptr;
    }

private:
    const std::vector<GrowingArray<VariablePlace>>& parts_;
    std::size_t part_ = 0;
    std::size_t place_ = 0;
};

}  // namespace

void checkNames(const Program& program, const Facts& facts, CheckRecord& record) {
    Spellings names;
    Variables variables(record);
    const auto lookAtVariables = [&](std::uint32_t behind) {
        while (const VariablePlace* variable = variables.next(behind)) {
            if (names.isShadow(program.text.view(variable->name))) {
                addFinding(record, Check::NameShadows, factOf(program, *variable));
            }
        }
    };
    for (std::size_t number = 0; number < facts.size(); ++number) {
        const Fact& fact = facts[number];
        if (isName(fact.kind)) {
            lookAtVariables(fact.programLine);
            if (names.isShadow(fact.name)) {
                addFinding(record, Check::NameShadows, fact);
            }
        }
    }
    lookAtVariables(UINT32_MAX);
}

}  // namespace torvel
