#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "src/checks/program-checks.h"

namespace torvel {

namespace {

using Kind = Fact::Kind;

enum class BlockKind : std::uint8_t { loop, branch, function };

/// A line of the program that opens a block, closes one or continues it: a fact if it does so by a macro.
struct Place {
    std::uint32_t programLine = 0;
    const Fact* fact = nullptr;
};

/// The blocks that are open along a way: the innermost one, and through it those around it.
class OpenBlocks {
public:
    struct Block {
        std::size_t around = 0;
        std::size_t depth = 0;
        Place place{};
        /// The function that it stands in, itself if it is one.
        std::size_t function = 0;
        BlockKind kind{};
        bool isReported = false;
    };
    static constexpr std::size_t none = 0;

    std::size_t open(std::size_t around, const Place& place, BlockKind kind) {
        const std::size_t block = blocks_.size();
        blocks_.push_back({around, blocks_[around].depth + 1, place,
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
        for (const GrowingArray<BlockLine>& part : record_.blocksOfLines) {
            for (const BlockLine& block : part) {
                followUpTo(block.programLine);
                followLine(block);
            }
        }
        followUpTo(UINT32_MAX);
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

    /// Follows the facts up to a line of the program and those of the line itself.
    void followUpTo(std::uint32_t programLine) {
        while (next_ < facts_.size() && facts_[next_].programLine <= programLine) {
            follow(facts_[next_++]);
        }
    }

    void follow(const Fact& fact) {
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
            case Kind::macroCall: callMacro(fact); return;
            case Kind::function: beginsFunction_ = true; return;
            case Kind::functionEnd: endsFunction_ = true; return;
            default: break;
        }
        if (fact.isInBody) {
            followBody(fact);
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

    /// The kind of the block that is opened now.
    BlockKind takeKind(bool isIf) {
        if (std::exchange(beginsFunction_, false)) {
            return BlockKind::function;
        }
        return isIf ? BlockKind::branch : BlockKind::loop;
    }

    void followLine(const BlockLine& line) {
        const Place place = {line.programLine, nullptr};
        switch (line.effect) {
            case BlockEffect::Opens: open(place, takeKind(line.isIf)); break;
            case BlockEffect::Closes: closeByLine(place); break;
            case BlockEffect::Continues:
                if (now_.most == OpenBlocks::none ||
                    (isOneWay() && blocks_[now_.most].kind != BlockKind::branch)) {
                    report(place);
                }
                break;
            default: break;
        }
    }

    /// Whether all ways have the same blocks open.
    bool isOneWay() const { return now_.most == now_.fewest; }

    void open(const Place& place, BlockKind kind) {
        const bool isOne = isOneWay();
        now_.most = blocks_.open(now_.most, place, kind);
        now_.fewest = isOne ? now_.most : blocks_.open(now_.fewest, place, kind);
    }

    /// The end of a function ends what is left open in it, and no other end ends a function: so a slip stays in
    /// the function that has it.
    void closeByLine(const Place& place) {
        const bool endsFunction = std::exchange(endsFunction_, false);
        const std::size_t function = blocks_[now_.most].function;
        if (function != OpenBlocks::none && endsFunction) {
            if (isOneWay()) {
                reportOpen(now_.most, function);
            }
            const std::size_t other = blocks_[now_.fewest].function;
            now_ = {other == OpenBlocks::none ? now_.fewest : other, function};
        } else if (function != OpenBlocks::none && isOneWay() && now_.most == function) {
            report(place);
            return;
        }
        close(place);
    }

    void close(const Place& place) {
        if (now_.most == OpenBlocks::none) {
            report(place);
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
            report(blocks_[block].place);
        }
    }

    void report(const Place& place) {
        if (isUncertain_) {
            return;
        }
        Fact line;
        line.programLine = place.programLine;
        addFinding(record_, Check::BlockShape, place.fact != nullptr ? *place.fact : line);
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
            body_.opens.push_back(takeKind(fact.name == "if"));
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

    void callMacro(const Fact& fact) {
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
                close({fact.programLine, &fact});
            }
        }
        for (const BlockKind kind : effect.opens) {
            if (fact.isInBody) {
                body_.opens.push_back(kind);
            } else {
                open({fact.programLine, &fact}, kind);
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
    std::size_t next_ = 0;
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
    const bool hasBlocks =
        facts.haveOneOf({Kind::opens, Kind::closes, Kind::continues}) ||
        std::any_of(record.blocksOfLines.begin(), record.blocksOfLines.end(),
                    [](const GrowingArray<BlockLine>& part) { return !part.empty(); });
    if (hasBlocks) {
        BlockCheck(facts, record).run();
    }
}

}  // namespace torvel
