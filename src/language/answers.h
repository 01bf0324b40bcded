#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "src/language/plant.h"
#include "src/language/program-names.h"

// What an editor is told, as JSON; editors/language-server/src/converter/messages.ts names what stands in it.

namespace torvel::language {

struct Answer {
    std::string json;
    /// Of names: eight numbers each, and the lines of the program, five numbers each. They are many.
    std::vector<std::uint32_t> names{};
    std::vector<std::uint32_t> lines{};
};

std::string plantAnswer(Plant& plant, std::uint32_t number);
/// What came of a program, and its findings.
std::string programAnswer(const Plant& plant, const migrate::ProgramResult& result,
                          const AxisNames& axes);
/// Its names, its output, and where its lines are in that.
Answer namesAnswer(const migrate::ProgramResult& result, const ProgramNames& names);
/// What predefined names stand for, and what codes mean.
std::string tablesAnswer(const SiteConstants* constants);
std::string faultAnswer(std::string_view sentence);

}  // namespace torvel::language
