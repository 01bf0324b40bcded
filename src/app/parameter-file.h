#pragma once

#include <string_view>

#include "src/lex/axis-names.h"
#include "src/limits.h"

namespace torvel {

/// The axes that an XML parameter file names: below the root element `Parameters`, `Axes`, then in each
/// `Axis` the first `P` whose attribute `n` is "AxisName". An `Axis` without one is passed over; one whose
/// name is empty has its number all the same. White space around a name is not part of it.
/// Throws std::runtime_error with a complete message if the file cannot be read or is not XML, if one
/// of the elements is missing, or if the file goes beyond the limits.
AxisNames loadParameterFile(std::string_view path, const Limits& limits = {});

}  // namespace torvel
