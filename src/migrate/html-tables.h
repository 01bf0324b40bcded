#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "src/migrate/places.h"
#include "src/migrate/report.h"

// A report in rows of numbers, as the page has it (web/src/data/format.ts). A text that stands in many rows is there
// once.

namespace torvel::migrate {

/// Texts by numbers. They are bytes; the first one is empty.
class HtmlStrings {
public:
    HtmlStrings() { numberOf({}); }
    // Views of texts are of those of the object itself, moved or not.
    HtmlStrings(const HtmlStrings&) = delete;
    HtmlStrings& operator=(const HtmlStrings&) = delete;
    HtmlStrings(HtmlStrings&&) = default;
    HtmlStrings& operator=(HtmlStrings&&) = default;
    ~HtmlStrings() = default;

    std::uint32_t numberOf(std::string_view text);
    const std::deque<std::string>& all() const { return texts_; }

private:
    /// They stay where they are, and the numbers have views of them.
    std::deque<std::string> texts_;
    std::unordered_map<std::string_view, std::uint32_t> numbers_;
};

struct HtmlProgram {
    std::uint32_t path = 0;
    std::uint32_t output = 0;
    std::uint32_t machine = 0;
    ProgramStatus status{};
    OutputState outputState{};
    std::uint64_t lines = 0;
    std::uint64_t convertedLines = 0;
    /// The number of its first finding.
    std::uint32_t firstFinding = 0;
};

struct HtmlFinding {
    std::uint32_t program = 0;
    std::uint32_t place = 0;
    std::uint32_t file = 0;
    std::uint32_t line = 0;
    /// In units of UTF-16.
    ColumnRange columns;
    std::uint32_t text = 0;
    std::uint32_t lineText = 0;
    std::uint32_t chain = 0;
    std::uint32_t outputLine = 0;
    std::uint32_t outputLineCount = 0;
    std::uint16_t rule = 0;
    FindingOrigin origin{};
    FindingTodo todo{};
    Severity severity{};
    bool isOpen = true;
};

/// Further lines that a finding is about.
struct HtmlFurtherLines {
    std::uint32_t finding = 0;
    std::vector<std::uint32_t> lines;
};

struct HtmlTables {
    HtmlStrings strings;
    std::vector<HtmlProgram> programs;
    /// Those of the report, in the order in which findings have them.
    std::vector<const Place*> places;
    std::vector<HtmlFinding> findings;
    /// The codes of the findings, by the numbers that these have of them.
    std::vector<std::string> codes;
    /// Ways of inclusion, file and line by turns; the first one is empty.
    std::vector<std::vector<std::uint32_t>> chains;
    /// In the order of the findings.
    std::vector<HtmlFurtherLines> furtherLines;
};

/// Reads the report once. The tables have no more of `places` than where they are.
HtmlTables htmlTablesOf(const Report& report, const Places& places);

}  // namespace torvel::migrate
