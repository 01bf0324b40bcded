#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "src/checks/program-checks.h"

namespace torvel {

namespace {

using Kind = Fact::Kind;

enum class BlockKind : std::uint8_t { loop, branch, function };

/// The blocks that are open along a way: the innermost one, and through it those around it.
class OpenBlocks {
public:
    struct Block {
        std::size_t around = 0;
        std::size_t depth = 0;
        std::size_t fact = 0;
        /// The function that it stands in, itself if it is one.
        std::size_t function = 0;
        BlockKind kind{};
        bool isReported = false;
    };
    static constexpr std::size_t none = 0;

    std::size_t open(std::size_t around, std::size_t fact, BlockKind kind) {
        const std::size_t block = blocks_.size();
        blocks_.push_back({around, blocks_[around].depth + 1, fact,
                           kind == BlockKind::function ? block : blocks_[around].function, kind,
                           false});
        return block;
    }
    std::size_t size() const { return blocks_.size(); }
    /// Forgets the newest block.
    void forget() { blocks_.pop_back(); }
    const Block& operator[](std::size_t block) const { return blocks_[block]; }
    void setReported(std::size_t block) { blocks_[block].isReported = true; }

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
    std::vector<BlockKind> opens;

    bool operator==(const BodyEffect&) const = default;
};

/// More than this no body opens or closes that means it.
constexpr std::size_t mostOfBody = 64;

class BlockCheck {
public:
    BlockCheck(const Facts& facts, CheckRecord& record) : record_(record), facts_(facts) {}

    void run() {
        for (std::size_t number = 0; number < facts_.size(); ++number) {
            follow(number);
        }
        if (isUncertain_) {
            return;
        }
        reportOpen(now_.fewest, OpenBlocks::none);
    }

private:
    struct Conditional {
        OpenRange before;
        OpenRange joined;
        bool hasJoined = false;
        bool hasElse = false;
        /// The first block that no way but the one through this branch knows.
        std::size_t firstOfBranch = 0;
    };

    /// Blocks of one kind that the branches open are one; of two kinds they are two ways.
    OpenRange joined(const OpenRange& a, const OpenRange& b) const {
        const OpenBlocks::Block& most = blocks_[a.most];
        const OpenBlocks::Block& other = blocks_[b.most];
        const bool isFirst =
            most.depth > other.depth || (most.depth == other.depth && most.kind == other.kind);
        return {blocks_[a.fewest].depth <= blocks_[b.fewest].depth ? a.fewest : b.fewest,
                isFirst ? a.most : b.most};
    }

    void endBranch(Conditional& conditional) {
        conditional.joined = conditional.hasJoined ? joined(conditional.joined, now_) : now_;
        conditional.hasJoined = true;
        conditional.firstOfBranch = blocks_.size();
        now_ = conditional.before;
    }

    void follow(std::size_t number) {
        const Fact& fact = facts_[number];
        switch (fact.kind) {
            case Kind::ifdef:
                conditionals_.push_back({now_, {}, false, false, blocks_.size()});
                return;
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
            case Kind::function: beginsFunction_ = true; return;
            case Kind::functionEnd: endsFunction_ = true; return;
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

    /// The kind of the block that a fact opens.
    BlockKind takeKind(const Fact& fact) {
        if (std::exchange(beginsFunction_, false)) {
            return BlockKind::function;
        }
        return fact.name == "if" ? BlockKind::branch : BlockKind::loop;
    }

    void followLine(const Fact& fact, std::size_t number) {
        switch (fact.kind) {
            case Kind::opens: open(number, takeKind(fact)); break;
            case Kind::closes: closeByLine(fact); break;
            case Kind::continues:
                if (now_.most == OpenBlocks::none ||
                    (isOneWay() && blocks_[now_.most].kind != BlockKind::branch)) {
                    report(fact);
                }
                break;
            default: break;
        }
    }

    /// Whether all ways have the same blocks open.
    bool isOneWay() const { return now_.most == now_.fewest; }

    void open(std::size_t number, BlockKind kind) {
        const bool isOne = isOneWay();
        now_.most = blocks_.open(now_.most, number, kind);
        now_.fewest = isOne ? now_.most : blocks_.open(now_.fewest, number, kind);
    }

    /// The end of a function ends what is left open in it, and no other end ends a function: so a slip stays in
    /// the function that has it.
    void closeByLine(const Fact& fact) {
        const bool endsFunction = std::exchange(endsFunction_, false);
        const std::size_t function = blocks_[now_.most].function;
        if (function != OpenBlocks::none && endsFunction) {
            if (isOneWay()) {
                reportOpen(now_.most, function);
            }
            const std::size_t other = blocks_[now_.fewest].function;
            now_ = {other == OpenBlocks::none ? now_.fewest : other, function};
        } else if (function != OpenBlocks::none && isOneWay() && now_.most == function) {
            report(fact);
            return;
        }
        close(fact);
    }

    void close(const Fact& fact) {
        if (now_.most == OpenBlocks::none) {
            report(fact);
        }
        const OpenRange closed =
            std::exchange(now_, {blocks_[now_.fewest].around, blocks_[now_.most].around});
        if (closed.most == closed.fewest && isOfThisWayAlone(closed.most)) {
            blocks_.forget();
        }
    }

    /// Whether a block is the newest one, and no other way has it.
    bool isOfThisWayAlone(std::size_t block) const {
        const std::size_t first =
            conditionals_.empty() ? OpenBlocks::none + 1 : conditionals_.back().firstOfBranch;
        return block >= first && block + 1 == blocks_.size();
    }

    /// The blocks from `block` to the one in front of `last` are not closed. Each is said once, whatever branches
    /// meet it, and below one that was said before all were.
    void reportOpen(std::size_t block, std::size_t last) {
        for (; block != last && !blocks_[block].isReported; block = blocks_[block].around) {
            blocks_.setReported(block);
            report(facts_[blocks_[block].fact]);
        }
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
        endsFunction_ = endsFunction_ && !closes;
        if (fact.kind == Kind::opens) {
            body_.opens.push_back(takeKind(fact));
        } else if (fact.kind == Kind::continues) {
            body_.opens.push_back(BlockKind::branch);
        }
    }

    void endBody(std::string_view name) {
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
        for (const BlockKind kind : effect.opens) {
            if (fact.isInBody) {
                body_.opens.push_back(kind);
            } else {
                open(number, kind);
            }
        }
    }

    static Fact closing() {
        Fact fact;
        fact.kind = Kind::closes;
        return fact;
    }

    CheckRecord& record_;
    const Facts& facts_;
    OpenBlocks blocks_;
    OpenRange now_;
    std::vector<Conditional> conditionals_;
    BodyEffect body_;
    std::unordered_map<std::string_view, BodyEffect> bodies_;
    std::unordered_set<std::string_view> lost_;
    /// The next line that opens a block begins a function, the next that closes one ends it.
    bool beginsFunction_ = false;
    bool endsFunction_ = false;
    /// What a macro does to the blocks is not known: nothing is said any more.
    bool isUncertain_ = false;
};

}  // namespace

void checkBlocks(const Facts& facts, CheckRecord& record) {
    if (facts.haveOneOf({Kind::opens, Kind::closes, Kind::continues})) {
        BlockCheck(facts, record).run();
    }
}

}  // namespace torvel
