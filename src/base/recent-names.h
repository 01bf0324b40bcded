#pragma once

#include <array>
#include <string_view>
#include <unordered_set>

#include "src/base/short-name.h"

namespace torvel {

/// Names that were met lately. They are looked for with one look into a table that stays small, so a name is now and
/// then forgotten. Only views are kept of long ones.
class RecentNames {
public:
    /// False: the name, which is not empty, was met before. True: it was not, or is forgotten. As in every text store
    /// sixteen bytes can be read from its first one on.
    bool insert(std::string_view name) {
        return name.size() <= ShortName::longest ? insertShort(shortName(name))
                                                 : longNames_.insert(name).second;
    }

private:
    bool insertShort(const ShortName& name) {
        ShortName& slot = slots_[hashOf(name) % slots_.size()];
        if (slot == name) {
            return false;
        }
        slot = name;
        return true;
    }

    std::array<ShortName, 1024> slots_{};
    std::unordered_set<std::string_view> longNames_;
};

}  // namespace torvel
