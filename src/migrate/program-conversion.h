#pragma once

#include <memory>

#include "src/base/check-record.h"
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

/// A program as it was converted, with the places of its names.
struct ConvertedNames {
    Program program;
    CheckRecord record;
    NamePlaces places;
};

/// Converts the program at `path` in this thread. The result has everything but the key of the output and what is
/// known of other programs. A program that cannot be read is a result too. `names`, if somebody asks for names, is
/// empty before; it has those of a program that cannot be read as far as it was read. Throws std::bad_alloc.
ProgramResult convertOne(const NativePath& path, const ConversionSettings& settings,
                         ConvertedNames* names = nullptr);

}  // namespace torvel::migrate
