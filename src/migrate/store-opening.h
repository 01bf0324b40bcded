#pragma once

#include "src/base/file-system.h"
#include "src/migrate/database.h"
#include "src/migrate/store.h"

namespace torvel::migrate {

/// The database of a store, its tables of the newest version. Who wants to write has its lock.
Database openStore(const NativePath& path, StoreUse use);

/// Brings what stands in the log of a written store into its file, which can be read then where nothing can be
/// written.
void settleStore(Database& database);

}  // namespace torvel::migrate
