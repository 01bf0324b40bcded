#include "src/migrate/html-tables.h"

#include <map>

#include "src/migrate/text-decoding.h"

namespace torvel::migrate {

namespace {

class Builder {
public:
    explicit Builder(const Places& places)
        : cursor_(places), placeNumbers_(places.count(), notMet) {
        chainOf({});
    }

    void add(const ReportProgram& program) {
        tables_.programs.push_back({string(program.program), string(program.output),
                                    string(program.machine), program.status, program.outputState,
                                    program.lines, program.convertedLines, nextFinding()});
        for (const ReportFinding& finding : program.findings) {
            add(finding);
        }
    }

    HtmlTables tables() { return std::move(tables_); }

private:
    void add(const ReportFinding& finding) {
        const FindingRow& row = finding.row;
        if (!row.lines.empty()) {
            tables_.furtherLines.push_back({nextFinding(), row.lines});
        }
        HtmlFinding entry;
        entry.program = static_cast<std::uint32_t>(tables_.programs.size() - 1);
        entry.place = placeOf(row);
        entry.file = string(row.file);
        entry.line = row.line;
        entry.columns = utf16Columns(row.lineText, row.columns);
        entry.text = string(row.text);
        entry.lineText = string(row.lineText);
        entry.chain = chainOf(row.includedFrom);
        entry.outputLine = row.outputLine;
        entry.outputLineCount = row.outputLineCount;
        entry.rule = ruleOf(row.code);
        entry.origin = row.origin;
        entry.todo = row.todo;
        entry.severity = row.severity;
        entry.isOpen = finding.isOpen;
        tables_.findings.push_back(entry);
    }

    std::uint32_t string(std::string_view text) { return tables_.strings.numberOf(text); }

    std::uint32_t nextFinding() const {
        return static_cast<std::uint32_t>(tables_.findings.size());
    }

    /// Places are numbered in the order in which they are met.
    std::uint32_t placeOf(const FindingRow& row) {
        const Place& place = cursor_.next(row);
        std::uint32_t& number = placeNumbers_[place.number];
        if (number == notMet) {
            number = static_cast<std::uint32_t>(tables_.places.size());
            tables_.places.push_back(&place);
        }
        return number;
    }

    std::uint16_t ruleOf(const std::string& code) {
        const auto [entry, isNew] =
            rules_.try_emplace(code, static_cast<std::uint16_t>(rules_.size()));
        if (isNew) {
            tables_.codes.push_back(code);
        }
        return entry->second;
    }

    std::uint32_t chainOf(const std::vector<IncludedFrom>& includedFrom) {
        std::vector<std::uint32_t> chain;
        for (const IncludedFrom& from : includedFrom) {
            chain.push_back(string(from.file));
            chain.push_back(from.line);
        }
        const auto [entry, isNew] =
            chains_.try_emplace(chain, static_cast<std::uint32_t>(chains_.size()));
        if (isNew) {
            tables_.chains.push_back(std::move(chain));
        }
        return entry->second;
    }

    static constexpr std::uint32_t notMet = UINT32_MAX;

    Places::Cursor cursor_;
    /// By the report's number of a place.
    std::vector<std::uint32_t> placeNumbers_;
    HtmlTables tables_;
    std::map<std::string, std::uint16_t> rules_;
    std::map<std::vector<std::uint32_t>, std::uint32_t> chains_;
};

}  // namespace

std::uint32_t HtmlStrings::numberOf(std::string_view text) {
    const auto known = numbers_.find(text);
    if (known != numbers_.end()) {
        return known->second;
    }
    const auto number = static_cast<std::uint32_t>(texts_.size());
    numbers_.emplace(texts_.emplace_back(text), number);
    return number;
}

HtmlTables htmlTablesOf(const Report& report, const Places& places) {
    Builder builder(places);
    report.forEachProgram([&builder](const ReportProgram& program) { builder.add(program); });
    return builder.tables();
}

}  // namespace torvel::migrate
