#include "tests/support/table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/escapes.h"

namespace torvel::test {

namespace {

struct Row {
    std::string input;
    std::string expected;
    int line = 0;
};

struct Section {
    std::string name;
    int line = 0;
    std::vector<Row> rows;
    std::string fault;  // of the table's form
};

std::string trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) {
        return {};
    }
    return std::string(text.substr(first, text.find_last_not_of(" \t") - first + 1));
}

std::vector<Section> readTable(const std::string& path) {
    std::vector<Section> sections;
    std::ifstream file(path);
    std::string line;
    for (int number = 1; std::getline(file, line); ++number) {
        if (line.empty() || line == "#" || line.starts_with("# ")) {
            continue;
        }
        if (line.starts_with('[') && line.ends_with(']') && line.find("=>") == std::string::npos) {
            sections.push_back({line.substr(1, line.size() - 2), number, {}, {}});
            continue;
        }
        if (sections.empty()) {
            sections.push_back({"", number, {}, "a row in front of the first section"});
            continue;
        }
        const std::size_t arrow = (line + ' ').find(" => ");
        if (arrow == std::string::npos) {
            sections.back().fault += "line " + std::to_string(number) + " has no \" => \"\n";
            continue;
        }
        const std::string expected = arrow + 4 <= line.size() ? line.substr(arrow + 4) : "";
        sections.back().rows.push_back({decodeEscapes(trimmed(line.substr(0, arrow))),
                                        decodeEscapes(trimmed(expected)), number});
    }
    return sections;
}

std::string driverName(const Section& section) {
    return section.name.substr(0, section.name.find(':'));
}

std::string testName(const Section& section) {
    std::string name;
    for (const char c : section.name) {
        const bool isWordCharacter =
            (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
        if (isWordCharacter) {
            name += c;
        } else if (!name.ends_with('_')) {
            name += '_';
        }
    }
    return name;
}

std::string resultOf(const TableDriver& driver, const std::string& input) {
    try {
        return driver(input);
    } catch (const std::exception& error) {
        const std::string message = error.what();
        return "! " + message.substr(0, message.find('\n'));
    }
}

class SectionTest : public testing::Test {
public:
    SectionTest(std::string path, Section section, TableDriver driver)
        : path_(std::move(path)), section_(std::move(section)), driver_(std::move(driver)) {}

    void TestBody() override {
        if (!section_.fault.empty() || section_.rows.empty()) {
            ADD_FAILURE_AT(path_.c_str(), section_.line)
                << (section_.fault.empty() ? "a section without rows" : section_.fault);
        }
        for (const Row& row : section_.rows) {
            const std::string result = resultOf(driver_, row.input);
            if (result != row.expected) {
                ADD_FAILURE_AT(path_.c_str(), row.line)
                    << "   input: " << encodeEscapes(row.input)
                    << "\nexpected: " << encodeEscapes(row.expected)
                    << "\n  result: " << encodeEscapes(result);
            }
        }
    }

private:
    std::string path_;
    Section section_;
    TableDriver driver_;
};

class TableFault : public testing::Test {
public:
    TableFault(std::string path, int line, std::string fault)
        : path_(std::move(path)), line_(line), fault_(std::move(fault)) {}

    void TestBody() override { ADD_FAILURE_AT(path_.c_str(), line_) << fault_; }

private:
    std::string path_;
    int line_;
    std::string fault_;
};

void registerFault(const std::string& stage, const std::string& path, const Section& section,
                   const std::string& fault) {
    testing::RegisterTest(stage.c_str(), ("Fault_" + testName(section)).c_str(), nullptr, nullptr,
                          path.c_str(), section.line, [=]() -> testing::Test* {
                              return new TableFault(path, section.line, fault);
                          });
}

}  // namespace

TableTests::TableTests(const std::string& stage, std::map<std::string, TableDriver> drivers) {
    const std::string path = std::string(TORVEL_SOURCE_DIR) + "/tests/unit/" + stage + ".table";
    const std::string suite = replaceAll(stage, "-", "_");
    std::set<std::string> met;
    for (const Section& section : readTable(path)) {
        const auto driver = drivers.find(driverName(section));
        if (driver == drivers.end()) {
            registerFault(suite, path, section,
                          "no driver is called '" + driverName(section) + "'");
            continue;
        }
        met.insert(driver->first);
        testing::RegisterTest(suite.c_str(), testName(section).c_str(), nullptr, nullptr,
                              path.c_str(), section.line,
                              [path, section, run = driver->second]() -> testing::Test* {
                                  return new SectionTest(path, section, run);
                              });
    }
    for (const auto& [name, run] : drivers) {
        if (!met.contains(name)) {
            registerFault(suite, path, {name, 1, {}, {}},
                          "the table has no section of this driver");
        }
    }
}

}  // namespace torvel::test
