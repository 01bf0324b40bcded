#include "src/checks/program-checks.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <unordered_set>

#include "src/base/characters.h"
#include "src/checks/ways.h"

namespace torvel {

namespace {

using Kind = Fact::Kind;

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

}  // namespace

void checkDefines(CheckRecord& record) {
    const std::unordered_set<std::uint32_t> marked = markedLines(record.facts);
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
                if (ways.at(fact.name).hasSeveralValues && !marked.contains(fact.programLine)) {
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

/// The blocks that are open along a way: the innermost one, and through it those around it.
class OpenBlocks {
public:
    struct Block {
        std::size_t around = 0;
        std::size_t depth = 0;
        std::size_t fact = 0;
        bool isIf = false;
    };
    static constexpr std::size_t none = 0;

    std::size_t open(std::size_t around, std::size_t fact, bool isIf) {
        blocks_.push_back({around, blocks_[around].depth + 1, fact, isIf});
        return blocks_.size() - 1;
    }
    const Block& operator[](std::size_t block) const { return blocks_[block]; }

private:
    std::vector<Block> blocks_ = {Block()};
};

/// The way with the fewest open blocks and the one with the most.
struct OpenRange {
    std::size_t fewest = OpenBlocks::none;
    std::size_t most = OpenBlocks::none;
};

/// What the body of a macro does to the blocks around it.
struct BodyEffect {
    std::size_t closes = 0;
    std::vector<bool> opens;  // whether they are IFs

    bool operator==(const BodyEffect&) const = default;
};

/// More than this no body opens or closes that means it.
constexpr std::size_t mostOfBody = 64;

class BlockCheck {
public:
    explicit BlockCheck(CheckRecord& record) : record_(record), facts_(record.facts) {}

    void run() {
        for (std::size_t number = 0; number < facts_.size(); ++number) {
            follow(number);
        }
        if (isUncertain_) {
            return;
        }
        for (std::size_t block = now_.fewest; block != OpenBlocks::none;
             block = blocks_[block].around) {
            addFinding(record_, Check::BlockShape, facts_[blocks_[block].fact]);
        }
    }

private:
    struct Conditional {
        OpenRange before;
        OpenRange joined;
        bool hasJoined = false;
        bool hasElse = false;
    };

    OpenRange joined(const OpenRange& a, const OpenRange& b) const {
        const auto depth = [this](std::size_t block) { return blocks_[block].depth; };
        return {depth(a.fewest) <= depth(b.fewest) ? a.fewest : b.fewest,
                depth(a.most) >= depth(b.most) ? a.most : b.most};
    }

    void endBranch(Conditional& conditional) {
        conditional.joined = conditional.hasJoined ? joined(conditional.joined, now_) : now_;
        conditional.hasJoined = true;
        now_ = conditional.before;
    }

    void follow(std::size_t number) {
        const Fact& fact = facts_[number];
        switch (fact.kind) {
            case Kind::ifdef: conditionals_.push_back({now_, {}, false, false}); return;
            case Kind::elif:
            case Kind::otherwise:
                if (!conditionals_.empty()) {
                    endBranch(conditionals_.back());
                    conditionals_.back().hasElse |= fact.kind == Kind::otherwise;
                }
                return;
            case Kind::endif: closeConditional(); return;
            case Kind::macro: endBody(fact.name); return;
            case Kind::lostMacro:
                bodies_.erase(fact.name);
                lost_.insert(fact.name);
                return;
            case Kind::macroCall: callMacro(fact, number); return;
            default: break;
        }
        if (fact.isInBody) {
            followBody(fact);
        } else {
            followLine(fact, number);
        }
    }

    void closeConditional() {
        if (conditionals_.empty()) {
            return;
        }
        Conditional& conditional = conditionals_.back();
        endBranch(conditional);
        now_ = conditional.hasElse ? conditional.joined
                                   : joined(conditional.joined, conditional.before);
        conditionals_.pop_back();
    }

    void followLine(const Fact& fact, std::size_t number) {
        switch (fact.kind) {
            case Kind::opens: open(number, fact.name == "if"); break;
            case Kind::closes: close(fact); break;
            case Kind::continues:
                if (now_.most == OpenBlocks::none ||
                    (now_.most == now_.fewest && !blocks_[now_.most].isIf)) {
                    report(fact);
                }
                break;
            default: break;
        }
    }

    void open(std::size_t number, bool isIf) {
        const bool isOne = now_.fewest == now_.most;
        now_.most = blocks_.open(now_.most, number, isIf);
        now_.fewest = isOne ? now_.most : blocks_.open(now_.fewest, number, isIf);
    }

    void close(const Fact& fact) {
        if (now_.most == OpenBlocks::none) {
            report(fact);
        }
        now_.most = blocks_[now_.most].around;
        now_.fewest = blocks_[now_.fewest].around;
    }

    void report(const Fact& fact) {
        if (!isUncertain_) {
            addFinding(record_, Check::BlockShape, fact);
        }
    }

    void followBody(const Fact& fact) {
        const bool closes = fact.kind == Kind::closes || fact.kind == Kind::continues;
        if (closes && body_.opens.empty()) {
            ++body_.closes;
        } else if (closes) {
            body_.opens.pop_back();
        }
        if (fact.kind == Kind::opens || fact.kind == Kind::continues) {
            body_.opens.push_back(fact.name == "if" || fact.kind == Kind::continues);
        }
    }

    void endBody(const std::string& name) {
        const auto [entry, isFirst] = bodies_.try_emplace(name, body_);
        if (!isFirst && !(entry->second == body_)) {
            lost_.insert(name);  // which of the two is called is not known
        }
        body_ = {};
    }

    void callMacro(const Fact& fact, std::size_t number) {
        const auto found = bodies_.find(fact.name);
        if (found == bodies_.end() || lost_.contains(fact.name) ||
            found->second.closes + found->second.opens.size() > mostOfBody) {
            isUncertain_ = true;
            return;
        }
        const BodyEffect effect = found->second;
        for (std::size_t i = 0; i < effect.closes; ++i) {
            if (fact.isInBody) {
                followBody(closing());
            } else {
                close(fact);
            }
        }
        for (const bool isIf : effect.opens) {
            if (fact.isInBody) {
                body_.opens.push_back(isIf);
            } else {
                open(number, isIf);
            }
        }
    }

    static Fact closing() {
        Fact fact;
        fact.kind = Kind::closes;
        return fact;
    }

    CheckRecord& record_;
    const std::vector<Fact>& facts_;
    OpenBlocks blocks_;
    OpenRange now_;
    std::vector<Conditional> conditionals_;
    BodyEffect body_;
    std::unordered_map<std::string, BodyEffect> bodies_;
    std::unordered_set<std::string> lost_;
    /// What a macro does to the blocks is not known: nothing is said any more.
    bool isUncertain_ = false;
};

}  // namespace

void checkBlocks(CheckRecord& record) {
    BlockCheck(record).run();
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
