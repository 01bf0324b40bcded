#include "src/preprocess/long-names.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

#include "src/preprocess/name-cuts.h"

namespace torvel {

namespace {

constexpr std::uint64_t hashBase = 0x9E3779B97F4A7C15ULL;

/// By bit: what a hash is multiplied by when as many bytes as the bit is worth come behind it.
constexpr std::array<std::uint64_t, 32> hashWeights = [] {
    std::array<std::uint64_t, 32> weights{};
    std::uint64_t weight = hashBase;
    for (std::uint64_t& each : weights) {
        each = weight;
        weight *= weight;
    }
    return weights;
}();

/// The hashes of the first bytes of `text`: of none, of one, up to all.
void hashBeginnings(std::string_view text, std::vector<std::uint64_t>& hashes) {
    hashes.clear();
    hashes.reserve(text.size() + 1);
    hashes.push_back(0);
    for (const char c : text) {
        hashes.push_back(hashes.back() * hashBase + static_cast<unsigned char>(c) + 1);
    }
}

/// Whether a name may end behind the first `length` bytes of `text`, which ends at a cut.
bool isCutBehind(std::string_view text, std::size_t length) {
    return length == text.size() || isCut(text[length - 1], text[length]);
}

}  // namespace

LongNameGroup::LongNameGroup(std::vector<LongName> names) : names_(std::move(names)) {
    std::sort(names_.begin(), names_.end(), [](const LongName& a, const LongName& b) {
        return a.text.size() != b.text.size() ? a.text.size() < b.text.size() : a.text < b.text;
    });
    shorter_.reserve(names_.size());
    for (std::uint32_t name = 0; name < names_.size(); ++name) {
        enter(name);
    }
}

/// Enters a name when all shorter ones are.
void LongNameGroup::enter(std::uint32_t name) {
    const std::string_view text = names_[name].text;
    std::vector<std::uint64_t> hashes;
    hashBeginnings(text, hashes);
    std::size_t length = 0;
    for (std::size_t rest = text.size(); rest != 0;) {
        const std::size_t step = std::bit_floor(rest);
        rest -= step;
        length += step;
        const auto [found, isNew] = beginnings_.try_emplace(hashes[length]);
        Beginning& beginning = found->second;
        if (isNew) {
            beginning = {static_cast<std::uint32_t>(length), name, none,
                         longestIn(text, length - 1, hashes.data())};
        } else if (names_[beginning.owner].text.substr(0, beginning.length) !=
                   text.substr(0, length)) {
            isExact_ = false;
        }
        if (rest == 0) {
            beginning.name = name;
        }
    }
    shorter_.push_back(longestIn(text, text.size() - 1, hashes.data()));
}

const LongNameGroup::Beginning* LongNameGroup::find(std::uint64_t hash, std::size_t length) const {
    const auto found = beginnings_.find(hash);
    return found != beginnings_.end() && found->second.length == length ? &found->second : nullptr;
}

std::uint32_t LongNameGroup::longestIn(std::string_view text, std::size_t limit,
                                       const std::uint64_t* hashes) const {
    if (!isExact_) {
        return tryAll(text, limit);
    }
    const Beginning* last = nullptr;
    std::size_t length = 0;
    std::uint64_t weight = 1;
    for (unsigned bit = static_cast<unsigned>(std::bit_width(limit)); bit-- > 0;) {
        const std::size_t longer = length + (std::size_t{1} << bit);
        if (longer > limit) {
            continue;
        }
        const std::uint64_t longerWeight = weight * hashWeights[bit];
        if (const Beginning* found = find(hashes[longer] - hashes[0] * longerWeight, longer)) {
            last = found;
            length = longer;
            weight = longerWeight;
        }
    }
    if (last == nullptr) {
        return none;
    }
    if (names_[last->owner].text.substr(0, length) != text.substr(0, length)) {
        return tryAll(text, limit);
    }
    return last->name != none && isCutBehind(text, length) ? last->name : last->shorter;
}

std::uint32_t LongNameGroup::tryAll(std::string_view text, std::size_t limit) const {
    for (auto name = static_cast<std::uint32_t>(names_.size()); name-- > 0;) {
        const std::string_view candidate = names_[name].text;
        if (candidate.size() <= limit && text.starts_with(candidate) &&
            isCutBehind(text, candidate.size())) {
            return name;
        }
    }
    return none;
}

void LongNames::add(const LongName& name) {
    longest_ = std::max(longest_, name.text.size());
    added_.push_back(name);
}

const std::vector<LongNameGroup>& LongNames::groups() {
    if (!added_.empty()) {
        while (!groups_.empty() && groups_.back().names().size() <= added_.size()) {
            const std::vector<LongName>& names = groups_.back().names();
            added_.insert(added_.end(), names.begin(), names.end());
            groups_.pop_back();
        }
        groups_.emplace_back(std::move(added_));
        added_.clear();
    }
    return groups_;
}

void LongNameSearch::moveTo(std::size_t start) {
    candidates_.clear();
    const std::string_view text = word_.substr(start);
    const std::size_t limit = std::min(text.size(), longest_);
    if (limit < LongNames::shortest) {
        return;
    }
    if (start + limit >= hashesStart_ + hashes_.size()) {
        // Twice as far as is needed now: so no byte is hashed more than twice.
        constexpr std::size_t least = 4096;
        hashBeginnings(text.substr(0, std::max(2 * longest_, least)), hashes_);
        hashesStart_ = start;
    }
    for (const LongNameGroup& group : groups_) {
        const std::uint32_t name =
            group.longestIn(text, limit, hashes_.data() + (start - hashesStart_));
        if (name != LongNameGroup::none) {
            candidates_.push_back({&group, name});
        }
    }
}

const LongName* LongNameSearch::next() {
    const auto longest = std::max_element(
        candidates_.begin(), candidates_.end(), [](const Candidate& a, const Candidate& b) {
            return a.longName().text.size() < b.longName().text.size();
        });
    if (longest == candidates_.end()) {
        return nullptr;
    }
    const LongName& name = longest->longName();
    longest->name = longest->group->shorterThan(longest->name);
    if (longest->name == LongNameGroup::none) {
        candidates_.erase(longest);
    }
    return &name;
}

}  // namespace torvel
