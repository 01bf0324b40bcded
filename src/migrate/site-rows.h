#pragma once

#include <memory>

#include "src/expr/reference-rows.h"
#include "src/migrate/project.h"
#include "src/preprocess/site-constants.h"

namespace torvel::migrate {

/// The entries of a project as the converter takes them. Null: there are none.
std::shared_ptr<const ReferenceRows> referenceRowsOf(const ReferenceEntries& entries);
std::shared_ptr<const SiteConstants> siteConstantsOf(const ReferenceEntries& entries);

}  // namespace torvel::migrate
