#pragma once

#include <functional>
#include <memory>

#include "src/base/file-source.h"
#include "src/base/name-places.h"
#include "src/base/program.h"
#include "src/expr/reference-rows.h"
#include "src/lex/axis-names.h"
#include "src/limits.h"
#include "src/migrate/program-result.h"
#include "src/preprocess/site-constants.h"

namespace torvel::migrate {

/// What programs are converted with. It is only read, by several threads at once.
struct ConversionSettings {
    /// The project's folder, canonical.
    NativePath folder;
    FileSource source;
    AxisNames axes;
    Limits limits;
    /// What the site gives over the built-in rows; null: nothing.
    std::shared_ptr<const ReferenceRows> reference;
    std::shared_ptr<const SiteConstants> constants;
};

/// A program as it was converted, with the places of its names. It lives until the taker returns.
struct ConvertedNames {
    const Program& program;
    const NamePlaces& places;
};
using NamesTaker = std::function<void(const ConvertedNames& names)>;

/// Converts the program at `path` in this thread. The result has everything but the key of the output and what is
/// known of other programs. A program that cannot be read is a result too. `takeNames`, if it is given, is told of names
/// in any case. Throws std::bad_alloc.
ProgramResult convertOne(const NativePath& path, const ConversionSettings& settings,
                         const NamesTaker& takeNames = {});

}  // namespace torvel::migrate
