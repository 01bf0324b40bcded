#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "src/language/plant.h"
#include "src/language/program-names.h"

// What an editor is told, as JSON. docs/language-server.md tells what stands in it.

namespace torvel::language {

struct Answer {
    std::string json;
    /// Of a program: its names, eight numbers each, and its lines, five numbers each. They are many.
    std::vector<std::uint32_t> names{};
    std::vector<std::uint32_t> lines{};
};

std::string plantAnswer(Plant& plant, std::uint32_t number);
Answer programAnswer(Plant& plant, const migrate::ProgramResult& result, const ProgramNames& names,
                     const AxisNames& axes);
/// What predefined names stand for, and what codes mean.
std::string tablesAnswer(const SiteConstants* constants);
std::string faultAnswer(std::string_view sentence);

}  // namespace torvel::language
