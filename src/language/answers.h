#pragma once

#include <string>

#include "src/language/plant.h"
#include "src/language/program-names.h"

// What an editor is told, as JSON. docs/language-server.md tells what stands in it.

namespace torvel::language {

std::string plantAnswer(Plant& plant, std::uint32_t number);
std::string programAnswer(Plant& plant, const migrate::ProgramResult& result,
                          const std::vector<NameRow>& names, const AxisNames& axes);
/// What predefined names stand for, and what codes mean.
std::string tablesAnswer(const SiteConstants* constants);
std::string faultAnswer(std::string_view sentence);

}  // namespace torvel::language
