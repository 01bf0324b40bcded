#pragma once

#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

// What a page has, read again as a browser reads it.

namespace torvel::migrate::test {

/// The text that was packed: gzip in base64. Throws std::runtime_error if it is none.
std::string unpacked(std::string_view base64);

/// The elements with data, by their id; "" is what is left of the page, with a line "DATA" in the place of each.
std::map<std::string, std::string> elementsOf(const std::string& page);

/// The element `id` of a page.
nlohmann::json dataOf(const std::string& page, const std::string& id);

/// What a script "N.js" calls `torvelProgram` with. Throws std::runtime_error if it does anything else.
struct ProgramCall {
    std::string number;
    nlohmann::json detail;
    std::string made;
};
ProgramCall programCallOf(const std::string& script);

}  // namespace torvel::migrate::test
