#include "src/preprocess/long-names.h"

#include <algorithm>

namespace torvel {

void LongNames::add(std::string_view name) {
    auto at = std::find_if(lengths_.begin(), lengths_.end(),
                           [&](const Length& entry) { return entry.length <= name.size(); });
    if (at == lengths_.end() || at->length != name.size()) {
        Length entry;
        entry.length = name.size();
        for (std::size_t i = 1; i < name.size(); ++i) {
            entry.leadWeight *= base;
        }
        at = lengths_.insert(at, std::move(entry));
    }
    std::uint64_t hash = 0;
    for (char c : name) {
        hash = extend(hash, c);
    }
    at->hashes.insert(hash);
}

LongNameWindows::LongNameWindows(const LongNames& names, std::string_view word) : word_(word) {
    const auto& lengths = names.lengths();
    auto entry = std::partition_point(lengths.begin(), lengths.end(),
                                      [&](const auto& each) { return each.length > word.size(); });
    for (; entry != lengths.end(); ++entry) {
        std::uint64_t hash = 0;
        for (std::size_t i = 0; i < entry->length; ++i) {
            hash = LongNames::extend(hash, word[i]);
        }
        windows_.push_back({&*entry, hash});
    }
}

void LongNameWindows::moveTo(std::size_t start) {
    for (; start_ < start; ++start_) {
        std::erase_if(windows_, [&](const Window& window) {
            return start_ + window.length->length >= word_.size();
        });
        for (Window& window : windows_) {
            const auto leaving = static_cast<unsigned char>(word_[start_]);
            window.hash = LongNames::extend(
                window.hash - (leaving + std::uint64_t{1}) * window.length->leadWeight,
                word_[start_ + window.length->length]);
        }
    }
}

const std::vector<std::size_t>& LongNameWindows::candidates() {
    candidates_.clear();
    for (const Window& window : windows_) {
        if (window.length->hashes.contains(window.hash)) {
            candidates_.push_back(window.length->length);
        }
    }
    return candidates_;
}

}  // namespace torvel
