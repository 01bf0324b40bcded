#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace torvel {

/// What the ways through the conditionals may have left under a name.
struct Reaching {
    /// Some way has not named it, or has taken it away.
    bool mayBeNone = true;
    bool mayBeKept = false;
    bool mayBeLost = false;
    bool mayBeMacro = false;
    bool mayBeLostMacro = false;
    /// The value that some way has given it; null: none has.
    const std::string_view* value = nullptr;
    /// Two ways have given it different values.
    bool hasSeveralValues = false;
    /// The number of the latest fact that named it.
    std::size_t latest = 0;
};

/// What holds where one of two ways has come from.
Reaching join(const Reaching& a, const Reaching& b);

/// Names along all ways through the conditionals. They must stay where they are.
class Ways {
public:
    const Reaching& at(std::string_view name) const;
    /// Gives what it was.
    Reaching set(std::string_view name, const Reaching& reaching) {
        return set(name, reaching, mostLevels);
    }

    /// Begins the first branch of a conditional, which is fact number `fact`. `guard` is the name that must be
    /// defined in it, or must not.
    void openConditional(std::size_t fact, std::string_view guard, bool isNegated);
    void nextBranch(std::size_t fact, bool isElse);
    void closeConditional();

    /// The fact that began the innermost branch; 0 outside of conditionals.
    std::size_t branchStart() const { return frames_.empty() ? 0 : frames_.back().branchStart; }

private:
    /// So many conditionals around a name follow it, so that the time is in proportion to the program however deep
    /// they are. In those around them what the name was may be seen in the next branch too.
    static constexpr unsigned mostLevels = 64;

    struct Change {
        /// What it was in front of the branch.
        Reaching before;
        /// What the ended branches have made of it, and how many have.
        Reaching joined;
        std::size_t branches = 0;
        bool isInBranch = false;
        /// Conditionals around this one that follow the name.
        unsigned levels = 0;
    };
    struct Frame {
        std::unordered_map<std::string_view, Change> changes;
        std::vector<std::string_view> inBranch;
        std::size_t branches = 1;
        bool hasElse = false;
        std::size_t branchStart = 0;
        std::string_view guard;
        bool isNegated = false;
    };

    Reaching set(std::string_view name, const Reaching& reaching, unsigned levels);
    void endBranch(Frame& frame);

    std::unordered_map<std::string_view, Reaching> names_;
    std::vector<Frame> frames_;
};

}  // namespace torvel
