#pragma once

#include <string>
#include <vector>

#include "src/migrate/discovery.h"
#include "src/migrate/project.h"
#include "src/migrate/store.h"

namespace torvel::migrate {

/// Outputs that belong to no program any more.
struct LeftOutputs {
    /// What is to be told of those that are there: first those that a person has edited or written, with their number
    /// in front if they are several.
    std::vector<Notice> edited;
    std::vector<Notice> asGenerated;
    /// Those that are not there.
    std::vector<std::string> gone;
};

LeftOutputs leftOutputs(const Project& project, const Store& store);

}  // namespace torvel::migrate
