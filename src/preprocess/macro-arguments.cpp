#include "src/preprocess/macro-arguments.h"

#include <bit>

#include "src/base/hash.h"

namespace torvel {

namespace {

std::uint32_t shortHash(std::string_view argument) {
    const std::uint64_t hash = hashText(argument);
    return static_cast<std::uint32_t>(hash ^ (hash >> 32U));
}

/// Which of `count` ranges of hashes, all of one size, a hash is in.
std::size_t rangeOf(std::uint32_t hash, std::size_t count) {
    return static_cast<std::size_t>((std::uint64_t{hash} * count) >> 32U);
}

/// The places of hashes, those of one range of hashes behind those of the range before.
std::vector<std::uint32_t> sortRoughly(const std::vector<std::uint32_t>& hashes) {
    constexpr std::size_t rangeSize = 8192;
    const std::size_t ranges = hashes.size() / rangeSize + 1;
    std::vector<std::uint32_t> next(ranges + 1);
    for (const std::uint32_t hash : hashes) {
        ++next[rangeOf(hash, ranges) + 1];
    }
    for (std::size_t range = 1; range < ranges; ++range) {
        next[range] += next[range - 1];
    }
    std::vector<std::uint32_t> sorted(hashes.size());
    for (std::uint32_t place = 0; place < hashes.size(); ++place) {
        sorted[next[rangeOf(hashes[place], ranges)]++] = place;
    }
    return sorted;
}

}  // namespace

void MacroArguments::add(std::string_view argument) {
    list_.push_back(argument);
    hashes_.push_back(shortHash(argument));
}

std::size_t MacroArguments::slotOf(std::string_view argument, std::uint32_t hash) const {
    std::size_t slot = rangeOf(hash, slots_.size());
    while (slots_[slot] != 0 &&
           (hashes_[slots_[slot] - 1] != hash || list_[slots_[slot] - 1] != argument)) {
        slot = (slot + 1) & (slots_.size() - 1);
    }
    return slot;
}

bool MacroArguments::index() {
    slots_.assign(std::bit_ceil(2 * list_.size() + 1), 0);
    for (const std::uint32_t place : sortRoughly(hashes_)) {
        std::uint32_t& slot = slots_[slotOf(list_[place], hashes_[place])];
        if (slot != 0) {
            return false;
        }
        slot = place + 1;
    }
    return true;
}

bool MacroArguments::contains(std::string_view argument) const {
    return slots_[slotOf(argument, shortHash(argument))] != 0;
}

}  // namespace torvel
