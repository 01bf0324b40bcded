#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace torvel {

/// The arguments of a macro in order, and the same as a set. A macro may have a million of them, so the set is
/// made when all are there: then they can go to their places in an order that the processor's cache bears.
class MacroArguments {
public:
    void add(std::string_view argument);
    /// Makes the set. False: one of the arguments stands in the list twice.
    bool index();
    /// Whether it is one of them, once there is the set.
    bool contains(std::string_view argument) const;

    const std::vector<std::string_view>& list() const { return list_; }

private:
    std::size_t slotOf(std::string_view argument, std::uint32_t hash) const;

    std::vector<std::string_view> list_;
    std::vector<std::uint32_t> hashes_;
    /// The number in the list + 1 by hash, open addressing; 0 is free.
    std::vector<std::uint32_t> slots_;
};

}  // namespace torvel
