#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace torvel {

/// Names of a text store, each of them once, none of them with a NUL. Only views are kept of long ones.
class NameSet {
public:
    /// Whether the name, which is not empty, was not there yet. As in every text store sixteen bytes can be read
    /// from its first one on.
    bool insert(std::string_view name);

private:
    /// The bytes of a name of sixteen at most, filled up with NULs: most names are that short, and two numbers are
    /// compared without a look at their text. Zero: a free slot.
    struct ShortName {
        std::uint64_t low = 0;
        std::uint64_t high = 0;
    };

    static ShortName shortName(std::string_view name);
    static std::uint64_t hashOf(const ShortName& name);
    bool insertShort(const ShortName& name);
    void grow();

    /// At least twice as many as there are short names, by their hashes; a power of two.
    std::vector<ShortName> slots_;
    std::size_t count_ = 0;
    std::unordered_set<std::string_view> longNames_;
};

}  // namespace torvel
