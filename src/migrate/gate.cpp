#include "src/migrate/gate.h"

#include <algorithm>
#include <map>
#include <set>

#include "src/migrate/text-decoding.h"
#include "src/migrate/text-layout.h"

namespace torvel::migrate {

namespace {

/// As much of a line as a person needs to know it again.
constexpr std::size_t shortText = 100;

/// How many of each group are known.
using KnownCounts = std::map<ContentHash, std::uint32_t>;

KnownCounts knownCounts(const Baseline& baseline) {
    KnownCounts counts;
    for (const BaselineEntry& entry : baseline.entries) {
        counts[groupKey(entry.file, entry.code, entry.hash)] += entry.count;
    }
    return counts;
}

std::uint32_t countIn(const KnownCounts& counts, const ContentHash& group) {
    const auto entry = counts.find(group);
    return entry == counts.end() ? 0 : entry->second;
}

bool isMeant(const FindingRow& row, const std::vector<FailOn>& failOn) {
    return std::any_of(failOn.begin(), failOn.end(), [&row](const FailOn& kind) {
        return kind.todo == row.todo || (kind.severity && *kind.severity == row.severity);
    });
}

NewFinding newFinding(const FindingRow& row, const std::string& program) {
    return {decodedText(row.file),
            row.line,
            row.code,
            row.todo,
            row.severity,
            shortenedText(decodedText(row.text), shortText),
            decodedText(program)};
}

BaselineEntry entryFor(const FindingRow& row) {
    const std::string line = comparableLine(row.lineText);
    return {decodedText(row.file),
            row.code,
            hexadecimal(hashOf(line)),
            0,
            row.line,
            shortenedText(decodedText(line), shortText)};
}

/// Visits each open place that counts, once, with its group.
template <typename Visitor>
void visitPlaces(const Report& report, const Places& places, const Visitor& visit) {
    std::vector<bool> isVisited(places.count());
    Places::Cursor cursor(places);
    report.forEachProgram([&](const ReportProgram& program) {
        for (const ReportFinding& finding : program.findings) {
            const Place& place = cursor.next(finding.row);
            if (countsInGate(finding) && !isVisited[place.number]) {
                isVisited[place.number] = true;
                visit(program, finding.row, place);
            }
        }
    });
}

bool has(const std::vector<std::string>& names, const std::string& name) {
    return names.empty() || std::find(names.begin(), names.end(), name) != names.end();
}

/// The known findings of a group while `accept` looks at it.
struct AcceptedGroup {
    BaselineEntry entry;
    /// Which of the open places are in the baseline from now on.
    std::set<std::uint32_t> ordinals;
};

std::string placeLine(std::string_view file, std::uint32_t line, std::string_view rest) {
    std::string text = "  " + visibleText(file);
    if (line != 0) {
        text += ':' + std::to_string(line);
    }
    return text + ": " + visibleText(rest) + '\n';
}

}  // namespace

bool countsInGate(const ReportFinding& finding) {
    return finding.isOpen && finding.row.code != "comment-dropped";
}

GateResult gate(const Report& report, const Places& places, const std::optional<Baseline>& baseline,
                const std::vector<FailOn>& failOn, const IsUnseenFile& isUnseen) {
    GateResult result;
    const KnownCounts known = knownCounts(baseline.value_or(Baseline()));
    std::map<ContentHash, std::uint32_t> open;
    visitPlaces(report, places,
                [&](const ReportProgram& program, const FindingRow& row, const Place& place) {
                    const ContentHash& group = place.group;
                    ++open[group];
                    if (place.openBefore < countIn(known, group)) {
                        ++result.known;
                    } else if (failOn.empty() ? baseline.has_value() : isMeant(row, failOn)) {
                        if (++result.newCount <= mostNewFindings) {
                            result.newFindings.push_back(newFinding(row, program.program));
                        }
                    } else {
                        ++result.passed;
                    }
                });
    if (baseline) {
        for (const BaselineEntry& entry : baseline->entries) {
            const auto found = open.find(groupKey(entry.file, entry.code, entry.hash));
            const std::uint32_t needed = found == open.end() ? 0 : found->second;
            if (needed < entry.count && !(isUnseen && isUnseen(entry.file))) {
                result.noLongerNeeded.push_back(entry);
                result.noLongerNeeded.back().count -= needed;
            }
        }
    }
    return result;
}

Baseline accepted(const Report& report, const Places& places, const Baseline& baseline,
                  const AcceptFilter& filter, const IsUnseenFile& isUnseen) {
    const KnownCounts known = knownCounts(baseline);
    std::map<ContentHash, AcceptedGroup> groups;
    Places::Cursor cursor(places);
    // A place of an included file is taken in if any of its programs is.
    report.forEachProgram([&](const ReportProgram& program) {
        const bool isMeantProgram =
            filter.programs.empty() || filter.programs.contains(program.program);
        for (const ReportFinding& finding : program.findings) {
            const Place& place = cursor.next(finding.row);
            if (!countsInGate(finding)) {
                continue;
            }
            const bool isKnown = place.openBefore < countIn(known, place.group);
            if (!isKnown && (!isMeantProgram || !has(filter.codes, finding.row.code))) {
                continue;
            }
            AcceptedGroup& group = groups[place.group];
            if (group.ordinals.empty() || finding.row.line < group.entry.line) {
                group.entry = entryFor(finding.row);
            }
            group.ordinals.insert(place.openBefore);
        }
    });
    Baseline result;
    for (auto& [hash, group] : groups) {
        group.entry.count = static_cast<std::uint32_t>(group.ordinals.size());
        result.entries.push_back(std::move(group.entry));
    }
    for (const BaselineEntry& entry : baseline.entries) {
        if (isUnseen && isUnseen(entry.file)) {
            result.entries.push_back(entry);
        }
    }
    std::sort(result.entries.begin(), result.entries.end(),
              [](const BaselineEntry& left, const BaselineEntry& right) {
                  return std::tie(left.file, left.code, left.hash) <
                         std::tie(right.file, right.code, right.hash);
              });
    return result;
}

std::string gateText(const GateResult& result, std::size_t most) {
    std::string text;
    if (result.fails()) {
        const std::size_t told = std::min(result.newFindings.size(), most);
        text += counted(result.newCount, "new finding:", "new findings:") + '\n';
        for (std::size_t i = 0; i < told; ++i) {
            const NewFinding& finding = result.newFindings[i];
            text += placeLine(finding.file, finding.line, finding.text + " [" + finding.code + ']');
        }
        if (result.newCount > told) {
            text += "  " + andMore(result.newCount - told) + '\n';
        }
    }
    if (!result.noLongerNeeded.empty()) {
        const std::size_t count = result.noLongerNeeded.size();
        text += counted(count, "entry of the baseline is", "entries of the baseline are") +
                " no longer needed; `torvel-migrate accept` takes " + (count == 1 ? "it" : "them") +
                " out:\n";
        for (std::size_t i = 0; i < std::min(count, most); ++i) {
            const BaselineEntry& entry = result.noLongerNeeded[i];
            const std::string times =
                entry.count == 1 ? "" : " (" + counted(entry.count, "time", "times") + ')';
            text += placeLine(entry.file, 0, entry.text + times + " [" + entry.code + ']');
        }
        if (count > most) {
            text += "  " + andMore(count - most) + '\n';
        }
    }
    return text;
}

}  // namespace torvel::migrate
