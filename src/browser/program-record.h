#pragma once

#include <string>
#include <string_view>

#include "src/migrate/report.h"

namespace torvel::browser {

/// What a report needs of a program, as bytes that outlive the instance.
std::string packedRecord(const migrate::ProgramResult& result, std::string_view machine);

/// Throws std::runtime_error if the bytes are not of that kind.
migrate::ReportProgram unpackedRecord(std::string_view bytes);

}  // namespace torvel::browser
