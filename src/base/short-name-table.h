#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "src/base/short-name.h"

namespace torvel {

/// Short names with what is known of each, by their hashes.
template <typename Value>
class ShortNameTable {
public:
    /// `slots` is a power of two.
    explicit ShortNameTable(std::size_t slots) : slots_(slots) {}

    /// What is known of the name, and whether that is new: then it is `value`.
    std::pair<Value, bool> insert(const ShortName& name, const Value& value) {
        Slot& slot = slotOf(name);
        if (slot.name == name) {
            return {slot.value, false};
        }
        slot = {name, value};
        if (2 * ++count_ > slots_.size()) {
            grow();
        }
        return {value, true};
    }

    bool contains(const ShortName& name) const { return slots_[numberOf(name)].name == name; }
    bool empty() const { return count_ == 0; }

private:
    /// Zero in the place of the name: a free slot.
    struct Slot {
        ShortName name;
        [[no_unique_address]] Value value{};
    };

    /// The slot that has the name, or the free one where it belongs.
    Slot& slotOf(const ShortName& name) { return slots_[numberOf(name)]; }
    std::size_t numberOf(const ShortName& name) const {
        const std::size_t last = slots_.size() - 1;
        std::size_t slot = hashOf(name) & last;
        while (slots_[slot].name.low != 0 && slots_[slot].name != name) {
            slot = (slot + 1) & last;
        }
        return slot;
    }

    void grow() {
        const std::vector<Slot> slots = std::exchange(slots_, std::vector<Slot>(2 * slots_.size()));
        for (const Slot& slot : slots) {
            if (slot.name.low != 0) {
                slotOf(slot.name) = slot;
            }
        }
    }

    /// At least twice as many as there are names.
    std::vector<Slot> slots_;
    std::size_t count_ = 0;
};

}  // namespace torvel
