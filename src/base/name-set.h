#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include "src/base/short-name.h"

namespace torvel {

/// A set of names, most of which are short. Only views are kept. No name is empty; as in every text store sixteen bytes
/// can be read from its first one on.
class NameSet {
public:
    /// Whether it is new.
    bool insert(std::string_view name) {
        if (name.size() > ShortName::longest) {
            return longNames_.insert(name).second;
        }
        const ShortName number = shortName(name);
        ShortName& slot = slotOf(number);
        if (slot == number) {
            return false;
        }
        slot = number;
        if (2 * ++count_ > slots_.size()) {
            grow();
        }
        return true;
    }

    bool contains(std::string_view name) {
        return name.size() > ShortName::longest ? longNames_.contains(name)
                                                : slotOf(shortName(name)) != ShortName();
    }

private:
    static constexpr std::size_t fewestSlots = 64;

    /// The slot that has the name, or the free one where it belongs.
    ShortName& slotOf(const ShortName& name) {
        const std::size_t last = slots_.size() - 1;
        std::size_t slot = hashOf(name) & last;
        while (slots_[slot] != ShortName() && slots_[slot] != name) {
            slot = (slot + 1) & last;
        }
        return slots_[slot];
    }

    void grow() {
        const std::vector<ShortName> names =
            std::exchange(slots_, std::vector<ShortName>(2 * slots_.size()));
        for (const ShortName& name : names) {
            if (name != ShortName()) {
                slotOf(name) = name;
            }
        }
    }

    /// At least twice as many as there are short names, by their hashes; a power of two.
    std::vector<ShortName> slots_ = std::vector<ShortName>(fewestSlots);
    std::size_t count_ = 0;
    std::unordered_set<std::string_view> longNames_;
};

}  // namespace torvel
