#pragma once

#include "src/migrate/discovery.h"
#include "src/migrate/project.h"
#include "src/migrate/store.h"

namespace torvel::migrate {

/// Whether something is there. What nobody may look at counts as there.
bool isOnDisk(const NativePath& path);

/// Whether an output is known to be made from another program that is still on the disk, or may be. What was edited in
/// it belongs to that program.
bool isOfOtherProgram(const OutputRecord& record, const FoundProgram& found, const Project& project,
                      const Discovery& discovery);

/// Sets `outputOwner` of the programs in whose output's place there is that of such a program.
void findOutputOwners(const Project& project, const Store& store, Discovery& discovery);

}  // namespace torvel::migrate
