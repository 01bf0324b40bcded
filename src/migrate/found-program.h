#pragma once

#include <string>
#include <string_view>

#include "src/migrate/discovery.h"
#include "src/migrate/machine-settings.h"
#include "src/migrate/program-result.h"

namespace torvel::migrate {

/// What becomes of a program that was found: its conversion, or why it is not converted. `names`, if it
/// is given, gets the names of one that is. Throws std::bad_alloc.
ProgramResult resultOf(const FoundProgram& found, const MachineSettings& settings,
                       ConvertedNames* names = nullptr);

/// Why a program with an `outputOwner` is not converted.
std::string sentenceOnOwner(const FoundProgram& found);

/// A finding about a program as a whole.
FindingRow findingOfWhole(const FoundProgram& found, std::string_view code, std::string text);

}  // namespace torvel::migrate
