#include "src/base/names-of-parts.h"

#include <algorithm>
#include <utility>

namespace torvel {

std::unique_ptr<NameSet> NamesOfParts::take(std::size_t part) {
    const std::lock_guard lock(mutex_);
    const auto free = std::find_if(free_.begin(), free_.end(),
                                   [&](const Free& each) { return each.part < part; });
    if (free == free_.end()) {
        return std::make_unique<NameSet>();
    }
    std::unique_ptr<NameSet> names = std::move(free->names);
    free_.erase(free);
    return names;
}

void NamesOfParts::giveBack(std::unique_ptr<NameSet> names, std::size_t part) {
    const std::lock_guard lock(mutex_);
    free_.push_back({std::move(names), part});
}

}  // namespace torvel
