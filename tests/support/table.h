#pragma once

#include <functional>
#include <map>
#include <string>

// Two-column tables of inputs and expected results. tests/unit/README.md tells their form.

namespace torvel::test {

/// Turns an input of a table into the text that the expected side is compared with. A std::exception
/// that it throws is printed as "! " and its message, up to the first line end.
using TableDriver = std::function<std::string(const std::string& input)>;

/// Makes a test of each section of tests/unit/<stage>.table, when an object of it is initialised. Keys of
/// `drivers` are the sections' names up to a ":".
class TableTests {
public:
    TableTests(const std::string& stage, std::map<std::string, TableDriver> drivers);
};

}  // namespace torvel::test
