#include "src/checks/ways.h"

#include <algorithm>
#include <utility>

namespace torvel {

Reaching join(const Reaching& a, const Reaching& b) {
    Reaching both;
    both.mayBeNone = a.mayBeNone || b.mayBeNone;
    both.mayBeKept = a.mayBeKept || b.mayBeKept;
    both.mayBeLost = a.mayBeLost || b.mayBeLost;
    both.mayBeMacro = a.mayBeMacro || b.mayBeMacro;
    both.mayBeLostMacro = a.mayBeLostMacro || b.mayBeLostMacro;
    both.value = a.value != nullptr ? a.value : b.value;
    both.hasSeveralValues =
        a.hasSeveralValues || b.hasSeveralValues ||
        (a.value != nullptr && b.value != nullptr && a.value != b.value && *a.value != *b.value);
    both.latest = std::max(a.latest, b.latest);
    return both;
}

const Reaching& Ways::at(std::string_view name) const {
    static const Reaching none;
    const auto found = names_.find(name);
    return found == names_.end() ? none : found->second;
}

Reaching Ways::set(std::string_view name, const Reaching& reaching, unsigned levels) {
    Reaching& now = names_[name];
    if (!frames_.empty()) {
        Frame& frame = frames_.back();
        const auto found = frame.changes.find(name);
        const bool isInBranch = found != frame.changes.end() && found->second.isInBranch;
        if (isInBranch || levels > 0) {
            Change& change = isInBranch ? found->second : frame.changes[name];
            if (!isInBranch) {
                change.isInBranch = true;
                change.before = now;
                frame.inBranch.push_back(name);
            }
            change.levels = std::max(change.levels, levels);
        }
    }
    return std::exchange(now, reaching);
}

void Ways::openConditional(std::size_t fact, std::string_view guard, bool isNegated) {
    Frame& frame = frames_.emplace_back();
    frame.branchStart = fact;
    frame.guard = guard;
    frame.isNegated = isNegated;
}

/// The branch's names are out of sight. A branch that asks for a name counts for that name only if the condition
/// can hold: the default behind #ifndef is none where the name is defined on every way.
void Ways::endBranch(Frame& frame) {
    for (const std::string_view name : frame.inBranch) {
        Change& change = frame.changes[name];
        Reaching& now = names_[name];
        const bool isGuard = frame.branches == 1 && name == frame.guard;
        const bool canHold = !isGuard || !frame.isNegated || change.before.mayBeNone;
        const Reaching& left = canHold ? now : change.before;
        change.joined = change.branches == 0 ? left : join(change.joined, left);
        ++change.branches;
        change.isInBranch = false;
        now = change.before;
    }
    frame.inBranch.clear();
}

void Ways::nextBranch(std::size_t fact, bool isElse) {
    if (frames_.empty()) {
        return;
    }
    Frame& frame = frames_.back();
    endBranch(frame);
    ++frame.branches;
    frame.hasElse = frame.hasElse || isElse;
    frame.branchStart = fact;
}

void Ways::closeConditional() {
    if (frames_.empty()) {
        return;
    }
    endBranch(frames_.back());
    const Frame frame = std::move(frames_.back());
    frames_.pop_back();
    for (const auto& [name, change] : frame.changes) {
        Reaching left = change.joined;
        if (!frame.hasElse || change.branches < frame.branches) {
            Reaching around = change.before;
            // Who goes round the default has the name already.
            around.mayBeNone = around.mayBeNone && !(frame.isNegated && name == frame.guard);
            left = join(left, around);
        }
        set(name, left, change.levels == 0 ? 0 : change.levels - 1);
    }
}

}  // namespace torvel
