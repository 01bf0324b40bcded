#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <vector>

#include "src/migrate/report.h"
#include "src/migrate/store.h"

namespace torvel::migrate {

/// A store that is reported.
struct ReportedStore {
    std::shared_ptr<const Store> store;
    /// The folder of its project, canonical: where its keys begin.
    NativePath folder;
    /// What the store calls the programs whose outputs were put in place as they were generated, just now, and need
    /// not be read again. In order. Null: none.
    std::shared_ptr<const std::vector<std::int64_t>> asGenerated;
    /// Where the store is, canonical.
    NativePath path;
    /// Reading throws Interrupted when it is set. Null: nobody sets it.
    const std::atomic<bool>* isInterrupted = nullptr;
};

/// The report of several stores, their programs in one order. The keys of a single one stay as they are; those of
/// several begin at `directory`, canonical. What the outputs are is found out when the report is read for the first
/// time, and stays so. Reading throws StoreError.
Report reportOf(std::vector<ReportedStore> stores, const NativePath& directory,
                const Effort& effort);

}  // namespace torvel::migrate
