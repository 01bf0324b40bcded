#pragma once

#include <string>
#include <vector>

#include "src/base/file-system.h"
#include "src/migrate/project.h"
#include "src/migrate/store-report.h"

// Where reports are written: a slip of the hand must not cost a program, or what a person wrote into an output.

namespace torvel::migrate {

/// A report that was asked for.
struct ReportTarget {
    /// "--csv"
    std::string option;
    /// As the user wrote it; "-" is the standard output.
    std::string shown;
    /// The page of --html, which may be a folder.
    bool isPage = false;
};

/// Why two of the reports cannot both be written; a complete sentence, empty if they can.
std::string clashOf(const std::vector<ReportTarget>& targets);

/// Why a report may not be written: it would replace a file of the project, or one that a store knows. A complete
/// sentence; empty: all may. Throws StoreError.
std::string keptFileFault(const std::vector<ReportTarget>& targets, const Project& project,
                          const std::vector<ReportedStore>& stores);

}  // namespace torvel::migrate
