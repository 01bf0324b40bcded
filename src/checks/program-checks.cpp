#include "src/checks/program-checks.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "src/base/characters.h"
#include "src/checks/ways.h"

namespace torvel {

using Kind = Fact::Kind;

/// The text says which name it is about. A block has none.
void addFinding(CheckRecord& record, Check check, const Fact& fact) {
    Finding finding = makeFinding(check, fact.position, fact.columns);
    finding.programLine = fact.programLine;
    if (check != Check::BlockShape) {
        finding.text += ' ' + fact.name;
    }
    record.findings.push_back(std::move(finding));
}

namespace {

/// Follows a directive of a conditional; false: the fact is none.
bool followConditional(Ways& ways, const std::vector<Fact>& facts, std::size_t number) {
    const Fact& fact = facts[number];
    switch (fact.kind) {
        case Kind::ifdef:
            ways.openConditional(number, fact.name, fact.value.starts_with('!'));
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
        reaching.value = &fact.value;
    }
    return reaching;
}

/// #ifndef NAME with #define NAME behind it keeps a file from being read twice.
bool isIncludeGuard(const std::vector<Fact>& facts, std::size_t number) {
    return facts[number].kind == Kind::ifdef && facts[number].value.starts_with('!') &&
           number + 1 < facts.size() && facts[number + 1].kind == Kind::lostDefine &&
           facts[number + 1].name == facts[number].name;
}

bool isConditionLost(const Reaching& reaching, const Fact& fact) {
    const bool isPredefined = fact.value.ends_with('*');
    return reaching.mayBeLost || reaching.mayBeLostMacro ||
           (isPredefined && reaching.mayBeNone && reaching.latest == 0);
}

/// The lines that stand behind a marker.
std::unordered_set<std::uint32_t> markedLines(const std::vector<Fact>& facts) {
    std::unordered_set<std::uint32_t> lines;
    for (const Fact& fact : facts) {
        if (fact.kind == Kind::refused || fact.kind == Kind::lostMacro) {
            lines.insert(fact.programLine);
        }
    }
    return lines;
}

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

void checkDefines(CheckRecord& record) {
    const std::unordered_set<std::uint32_t> marked = markedLines(record.facts);
    UsesWithoutPlace uses;
    Ways ways;
    for (std::size_t number = 0; number < record.facts.size(); ++number) {
        const Fact& fact = record.facts[number];
        const bool asks = fact.kind == Kind::ifdef || fact.kind == Kind::elif;
        if (asks && isConditionLost(ways.at(fact.name), fact) &&
            !isIncludeGuard(record.facts, number)) {
            addFinding(record, Check::ConditionLost, fact);
        }
        if (followConditional(ways, record.facts, number)) {
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
void checkArguments(CheckRecord& record) {
    std::unordered_map<std::string_view, std::uint8_t> uses;
    for (const Fact& fact : record.facts) {
        if (fact.kind == Kind::argumentUse) {
            uses[fact.name] |= fact.sides;
        }
    }
    for (const Fact& fact : record.facts) {
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
    std::unordered_set<std::string_view> labels;
    std::unordered_set<std::string_view> functions;
};

Targets targetsOf(const std::vector<Fact>& facts) {
    Targets targets;
    for (const Fact& fact : facts) {
        if (fact.kind == Kind::label) {
            targets.labels.insert(fact.name);
        } else if (fact.kind == Kind::function) {
            targets.functions.insert(fact.name);
        }
    }
    return targets;
}

/// A label that a way has met before. Two that stand in conditionals of their own may exclude each other.
bool isMetBefore(const Ways& ways, const Reaching& reaching) {
    return reaching.mayBeKept && (!reaching.mayBeNone || reaching.latest > ways.branchStart());
}

}  // namespace

void checkJumps(CheckRecord& record) {
    const Targets targets = targetsOf(record.facts);
    Ways ways;
    std::size_t functions = 0;
    std::size_t function = 0;
    for (std::size_t number = 0; number < record.facts.size(); ++number) {
        const Fact& fact = record.facts[number];
        if (followConditional(ways, record.facts, number)) {
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
                if (fact.isInBody) {
                    break;
                }
                const std::string key = std::to_string(function) + ':' + fact.name;
                const Reaching met = ways.at(key);
                if (isMetBefore(ways, met)) {
                    addFinding(record, Check::JumpTarget, fact);
                }
                Reaching reaching;
                reaching.mayBeNone = false;
                reaching.mayBeKept = true;
                reaching.latest = number + 1;
                ways.set(key, reaching);
                break;
            }
            default: break;
        }
    }
}

namespace {

constexpr std::string_view torvelWords[] = {
    "$rglobal",
    "$sglobal",
#define WORD(text) text,
#include "src/checks/torvel-words.def"
};

std::string inLowerCase(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), lowerCase);
    return lower;
}

bool isTorvelWord(const std::string& lower) {
    static const std::unordered_set<std::string> words = [] {
        std::unordered_set<std::string> made;
        for (const std::string_view word : torvelWords) {
            made.insert(inLowerCase(word));
        }
        return made;
    }();
    return words.contains(lower);
}

bool isName(Kind kind) {
    return kind == Kind::define || kind == Kind::macro || kind == Kind::label ||
           kind == Kind::function || kind == Kind::variable;
}

}  // namespace

/// A name has a finding where it stands first.
void checkNames(CheckRecord& record) {
    std::unordered_map<std::string, std::string_view> byLowerCase;
    std::unordered_set<std::string_view> seen;
    for (const Fact& fact : record.facts) {
        if (!isName(fact.kind) || !seen.insert(fact.name).second) {
            continue;
        }
        const std::string lower = inLowerCase(fact.name);
        const bool isOther = !byLowerCase.try_emplace(lower, fact.name).second;
        if (isOther || isTorvelWord(lower)) {
            addFinding(record, Check::NameShadows, fact);
        }
    }
}

}  // namespace torvel
