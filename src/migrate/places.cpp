#include "src/migrate/places.h"

#include <algorithm>
#include <stdexcept>
#include <tuple>

#include "src/base/characters.h"
#include "src/migrate/finding-names.h"
#include "src/migrate/text-decoding.h"

namespace torvel::migrate {

namespace {

std::uint64_t detailOf(const FindingRow& row) {
    KeyBuilder key;
    key.add("todo", todoName(row.todo));
    key.add("text", row.text);
    const ContentHash hash = key.key();
    std::uint64_t detail = 0;
    for (std::size_t i = 0; i < 8; ++i) {
        detail = detail << 8U | hash[i];
    }
    return detail;
}

bool isBefore(const Place& left, const Place& right) {
    return std::tie(left.line, left.column, left.detail) <
           std::tie(right.line, right.column, right.detail);
}

bool isSame(const Place& left, const Place& right) {
    return !isBefore(left, right) && !isBefore(right, left);
}

Place placeFor(const FindingRow& row) {
    return {row.line, row.columns.first, detailOf(row), row.todo, row.severity, false, 0};
}

}  // namespace

std::string comparableLine(std::string_view lineText) {
    std::string line;
    bool hasBlank = false;
    for (const char c : lineText) {
        if (isWhiteSpace(c)) {
            hasBlank = !line.empty();
            continue;
        }
        if (hasBlank) {
            line += ' ';
            hasBlank = false;
        }
        line += c;
    }
    return line;
}

ContentHash groupKey(std::string_view file, std::string_view code, std::string_view textHash) {
    KeyBuilder key;
    key.add("file", file);
    key.add("code", code);
    key.add("line", textHash);
    return key.key();
}

ContentHash groupOf(const FindingRow& row) {
    return groupKey(decodedText(row.file), row.code,
                    hexadecimal(hashOf(comparableLine(row.lineText))));
}

Places::Places(const Report& report) {
    report.forEachProgram([this](const ReportProgram& program) {
        for (const ReportFinding& finding : program.findings) {
            std::vector<Place>& places = groups_[groupOf(finding.row)];
            const Place place = placeFor(finding.row);
            auto at = std::lower_bound(places.begin(), places.end(), place, isBefore);
            if (at == places.end() || !isSame(*at, place)) {
                at = places.insert(at, place);
            }
            at->isOpen = at->isOpen || finding.isOpen;
        }
    });
    for (auto& [group, places] : groups_) {
        firstNumbers_.emplace(group, count_);
        count_ += places.size();
        std::uint32_t open = 0;
        for (Place& place : places) {
            place.openBefore = open;
            open += place.isOpen ? 1 : 0;
        }
    }
}

Places::Found Places::find(const FindingRow& row) const {
    const auto group = groups_.find(groupOf(row));
    if (group != groups_.end()) {
        const std::vector<Place>& places = group->second;
        const Place place = placeFor(row);
        const auto at = std::lower_bound(places.begin(), places.end(), place, isBefore);
        if (at != places.end() && isSame(*at, place)) {
            const auto ordinal = static_cast<std::size_t>(at - places.begin());
            return {&*at, firstNumbers_.at(group->first) + ordinal, &group->first, ordinal};
        }
    }
    throw std::logic_error("The report gave another finding than when it was first read.");
}

std::string Places::Found::fingerprint() const {
    KeyBuilder key;
    key.add("group", hexadecimal(*group));
    key.add("ordinal", std::to_string(ordinal));
    return hexadecimal(key.key());
}

}  // namespace torvel::migrate
