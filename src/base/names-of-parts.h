#pragma once

#include <cstddef>
#include <memory>
#include <mutex>
#include <vector>

#include "src/base/name-set.h"

namespace torvel {

/// Sets of names that the parts of a program enter their names in, each set by one part at a time. A part gets a set that
/// only parts in front of it have had, so a name is new to it where it stands first in the program, whatever the order in
/// which the parts are worked at.
class NamesOfParts {
public:
    /// A set for the part of that number.
    std::unique_ptr<NameSet> take(std::size_t part);
    void giveBack(std::unique_ptr<NameSet> names, std::size_t part);

private:
    struct Free {
        std::unique_ptr<NameSet> names;
        /// The last part that has had it.
        std::size_t part = 0;
    };

    std::mutex mutex_;
    std::vector<Free> free_;
};

}  // namespace torvel
