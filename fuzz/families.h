#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace torvel::fuzz {

/// A family of statements, called as its file in src/stmt: what its lines begin with, and the words behind.
struct Family {
    std::string name;
    std::vector<std::string> leads;
    std::vector<std::string> words;
};

std::vector<Family> statementFamilies();

}  // namespace torvel::fuzz
