#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_set>

#include "src/base/short-name-table.h"

namespace torvel {

/// A set of names, most of which are short. Only views are kept. No name is empty; as in every text store sixteen bytes
/// can be read from its first one on.
class NameSet {
public:
    /// Whether it is new.
    bool insert(std::string_view name) {
        return name.size() <= ShortName::longest ? shortNames_.insert(shortName(name), {}).second
                                                 : longNames_.insert(name).second;
    }

    bool empty() const { return shortNames_.empty() && longNames_.empty(); }

    bool contains(std::string_view name) const {
        return name.size() <= ShortName::longest ? shortNames_.contains(shortName(name))
                                                 : longNames_.contains(name);
    }

private:
    struct Nothing {};
    static constexpr std::size_t fewestSlots = 64;

    ShortNameTable<Nothing> shortNames_{fewestSlots};
    std::unordered_set<std::string_view> longNames_;
};

}  // namespace torvel
