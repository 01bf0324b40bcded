#include "src/migrate/line-changes.h"

#include <algorithm>
#include <dtl/dtl.hpp>

namespace torvel::migrate {

namespace {

/// A line of each side; they are equal.
struct LinePair {
    std::size_t before = 0;
    std::size_t after = 0;
};

/// Lines of one side, and where they stand in it.
struct PickedLines {
    std::vector<std::uint32_t> numbers;
    std::vector<std::size_t> places;
};

/// The lines of `side` from `begin` to `end` that are `wanted`.
PickedLines pick(std::span<const std::uint32_t> side, std::size_t begin, std::size_t end,
                 const std::vector<bool>& wanted) {
    PickedLines picked;
    for (std::size_t i = begin; i < end; ++i) {
        if (side[i] < wanted.size() && wanted[side[i]]) {
            picked.numbers.push_back(side[i]);
            picked.places.push_back(i);
        }
    }
    return picked;
}

/// By number: whether a line of `side` from `begin` to `end` has it.
std::vector<bool> numbersIn(std::span<const std::uint32_t> side, std::size_t begin,
                            std::size_t end) {
    std::vector<bool> found;
    for (std::size_t i = begin; i < end; ++i) {
        if (side[i] >= found.size()) {
            found.resize(std::max<std::size_t>(side[i] + std::size_t{1}, found.size() * 2));
        }
        found[side[i]] = true;
    }
    return found;
}

/// Appends the longest common part. dtl remembers two million steps, which bounds its memory; beyond them it takes
/// the best way so far and goes on from its end. The places that it gives are wrong then, so they are counted here.
void appendCommon(const PickedLines& before, const PickedLines& after,
                  std::vector<LinePair>& pairs) {
    if (before.numbers.empty() || after.numbers.empty() ||
        before.numbers.size() + after.numbers.size() > mostComparedLines) {
        return;
    }
    dtl::Diff<std::uint32_t> diff(before.numbers, after.numbers);
    diff.compose();
    std::size_t x = 0;
    std::size_t y = 0;
    for (const auto& [number, step] : diff.getSes().getSequence()) {
        if (step.type == dtl::SES_COMMON) {
            pairs.push_back({before.places[x], after.places[y]});
        }
        x += step.type == dtl::SES_ADD ? 0 : 1;
        y += step.type == dtl::SES_DELETE ? 0 : 1;
    }
}

}  // namespace

std::vector<LineChange> changesBetween(std::span<const std::uint32_t> before,
                                       std::span<const std::uint32_t> after) {
    std::size_t begin = 0;
    const std::size_t shorter = std::min(before.size(), after.size());
    while (begin < shorter && before[begin] == after[begin]) {
        ++begin;
    }
    std::size_t oldEnd = before.size();
    std::size_t newEnd = after.size();
    while (oldEnd > begin && newEnd > begin && before[oldEnd - 1] == after[newEnd - 1]) {
        --oldEnd;
        --newEnd;
    }
    std::vector<LinePair> pairs;
    appendCommon(pick(before, begin, oldEnd, numbersIn(after, begin, newEnd)),
                 pick(after, begin, newEnd, numbersIn(before, begin, oldEnd)), pairs);
    pairs.push_back({oldEnd, newEnd});

    std::vector<LineChange> changes;
    LinePair next{begin, begin};
    for (const LinePair& pair : pairs) {
        if (pair.before > next.before || pair.after > next.after) {
            changes.push_back({next.before, pair.before, next.after, pair.after});
        }
        next = {pair.before + 1, pair.after + 1};
    }
    return changes;
}

}  // namespace torvel::migrate
