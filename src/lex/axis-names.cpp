#include "src/lex/axis-names.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "src/base/characters.h"
#include "src/base/hash.h"

namespace torvel {

namespace {

std::vector<std::string> defaultNames() {
    std::vector<std::string> names;
    names.reserve(32);
    for (const std::size_t length : {1U, 2U}) {
        for (const bool upper : {true, false}) {
            for (const char letter : std::string_view("XYZUABCD")) {
                names.emplace_back(length, upper ? letter : lowerCase(letter));
            }
        }
    }
    return names;
}

}  // namespace

AxisNames::AxisNames() : AxisNames(defaultNames()) {
    areOfParameterFile_ = false;
}

AxisNames::AxisNames(std::vector<std::string> names)
    : names_(std::move(names)), slots_(std::bit_ceil(2 * names_.size() + 2)) {
    for (std::uint32_t axis = 0; axis < names_.size(); ++axis) {
        const std::string& name = names_[axis];
        if (name.empty()) {
            continue;
        }
        longestName_ = std::max(longestName_, name.size());
        std::size_t slot = hashText(name) & (slots_.size() - 1);
        while (slots_[slot] != 0 && names_[slots_[slot] - 1] != name) {
            slot = (slot + 1) & (slots_.size() - 1);
        }
        slots_[slot] = axis + 1;
    }
    findBeginnings();
    findContinuations();
}

void AxisNames::findBeginnings() {
    for (const std::string_view name : names_) {
        if (!name.empty()) {
            const auto first = static_cast<unsigned char>(name[0]);
            begins_[first] = true;
            letters_[first] = letters_[first] || name.size() == 1;
        }
    }
    for (const std::string_view name : names_) {
        if (name.size() > 1 && isDigit(name[1])) {
            letters_[static_cast<unsigned char>(name[0])] = false;
        }
    }
}

void AxisNames::findContinuations() {
    for (const std::string_view name : names_) {
        std::uint64_t hash = fnvOffsetBasis;
        for (std::size_t length = 1; length < name.size(); ++length) {
            hash = extendHash(hash, name[length - 1]);
            if (find(name.substr(0, length), hash)) {
                continuations_[static_cast<unsigned char>(name[length])] = true;
            }
        }
    }
}

std::optional<std::uint32_t> AxisNames::axisIndex(std::string_view word) const {
    return word.size() > longestName_ ? std::nullopt : find(word, hashText(word));
}

std::size_t AxisNames::lengthAt(std::string_view word) const {
    const std::size_t end = std::min(word.size(), longestName_);
    std::size_t longest = 0;
    std::uint64_t hash = fnvOffsetBasis;
    for (std::size_t length = 1; length <= end; ++length) {
        hash = extendHash(hash, word[length - 1]);
        const bool mayEnd = length == word.size() || isDigit(word[length]);
        if (mayEnd && find(word.substr(0, length), hash)) {
            longest = length;
        }
    }
    return longest;
}

std::optional<std::uint32_t> AxisNames::find(std::string_view word, std::uint64_t hash) const {
    std::size_t slot = hash & (slots_.size() - 1);
    while (slots_[slot] != 0) {
        if (names_[slots_[slot] - 1] == word) {
            return slots_[slot] - 1;
        }
        slot = (slot + 1) & (slots_.size() - 1);
    }
    return std::nullopt;
}

}  // namespace torvel
